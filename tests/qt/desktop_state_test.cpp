// SPDX-License-Identifier: MIT
#include "qt/desktop_state.h"

#include <QtTest>
#include <fstream>
#include <functional>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace tessit::qt {

namespace {

TEST(KeptState, outlives_the_program_and_does_without_a_usable_file) {
    struct Case {
        std::function<void(const QByteArray& file)> obstacle;
        const char* kept;
    };
    const Case cases[] = {
        {[](const QByteArray&) {}, "two"},
        {[](const QByteArray& file) { mkfifo(file, 0600); }, ""},
        {[](const QByteArray& file) { mkdir(file, 0700); }, ""},
        {[](const QByteArray& file) { QFile(file).open(QIODevice::WriteOnly) && QFile::resize(file, 2 << 20); }, ""},
        {[](const QByteArray& file) {
             std::ofstream(file.data()) << "[folders]\nopen=@Variant(\x7f\xff[[=;;\n=\n\xff";
         },
         "two"},
    };
    for (const Case& test : cases) {
        const QTemporaryDir home;
        const auto folder = std::filesystem::path(home.path().toStdString()) / "state";
        DesktopState(folder).set("folders/open", "one");
        const QString file = home.filePath("state/desktop.ini");
        EXPECT_EQ(DesktopState(folder).value("folders/open"), "one");
        QFile::remove(file);
        test.obstacle(QFile::encodeName(file));
        DesktopState(folder).set("folders/open", "two");
        EXPECT_EQ(DesktopState(folder).value("folders/open").toString(), test.kept) << (&test - cases);
    }
    DesktopState nowhere({});
    nowhere.set("folders/open", "one");
    EXPECT_FALSE(nowhere.value("folders/open").isValid());
}

} // namespace

} // namespace tessit::qt
