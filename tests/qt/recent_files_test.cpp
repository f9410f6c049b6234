// SPDX-License-Identifier: MIT
#include "qt/recent_files.h"

#include <QRegularExpression>
#include <gtest/gtest.h>

namespace tessit::qt {

namespace {

const RecentFile night{.file = "/home/a & b/Night \"7\".zp2",
                       .type = "application/x-night",
                       .used = QDateTime::fromString("2026-03-09T12:00:00Z", Qt::ISODate)};
constexpr auto address = "file:///home/a%20&amp;%20b/Night%20%227%22.zp2";

// As another program wrote it: with its own entry, and one of the file.
const QByteArray foreign = R"(<?xml version="1.0" encoding="UTF-8"?>
<!-- kept -->
<xbel version="1.0" xmlns:bookmark="http://www.freedesktop.org/standards/desktop-bookmarks"
      xmlns:mime="http://www.freedesktop.org/standards/shared-mime-info">
  <bookmark href="file:///tmp/a.png" added="2020-01-01T10:00:00Z"><title>A &lt; B</title><info>
    <metadata owner="http://freedesktop.org"><bookmark:private/></metadata></info></bookmark>
  <bookmark href=")" + QByteArray(address) +
                           R"(" added="2020-01-01T10:00:00Z" modified="2020-01-01T10:00:00Z"><info>
    <metadata owner="http://freedesktop.org"><bookmark:groups><bookmark:group>Old</bookmark:group></bookmark:groups>
      <bookmark:applications><bookmark:application name="Other" exec="other" count="4"/></bookmark:applications>
    </metadata></info></bookmark>
</xbel>)";

TEST(RecentList, takes_the_file_once_and_keeps_what_others_wrote) {
    const auto uses = [](const QByteArray& list) {
        static const QRegularExpression application(R"re(name="Tessit Control"[^>]*count="(\d+)")re");
        return application.match(list).captured(1);
    };
    for (const QByteArray& old : {QByteArray(), foreign}) {
        const QByteArray once = *with_recent_file(old, night);
        const QByteArray twice = *with_recent_file(once, night);
        EXPECT_EQ(once.count(address), 1) << once.toStdString();
        EXPECT_EQ(twice.count(address), 1) << twice.toStdString();
        EXPECT_EQ(uses(once), "1");
        EXPECT_EQ(uses(twice), "2") << twice.toStdString();
        EXPECT_EQ(twice.count("visited=\"2026-03-09T12:00:00Z\""), 1);
        for (const char* kept : {"<!-- kept -->", "A &lt; B", "<bookmark:private/>", "<bookmark:group>Old<",
                                 "name=\"Other\" exec=\"other\" count=\"4\"", "file:///tmp/a.png"}) {
            EXPECT_EQ(twice.count(kept), old.isEmpty() ? 0 : 1) << kept << twice.toStdString();
        }
    }
    EXPECT_EQ(with_recent_file({}, night)->count("type=\"application/x-night\""), 1);
}

TEST(RecentList, that_is_damaged_is_left_alone) {
    for (const QByteArray& damaged :
         {foreign.left(foreign.size() - 3), QByteArray("<html/>"), QByteArray("\xff\xfe")}) {
        EXPECT_FALSE(with_recent_file(damaged, night).has_value()) << damaged.toStdString();
    }
}

} // namespace

} // namespace tessit::qt
