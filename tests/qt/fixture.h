// SPDX-License-Identifier: MIT
// The sample program with its window shown, and access to its widgets by name.
#pragma once

#include "sample_windows.h"

#include <gtest/gtest.h>

namespace tessit::qt {

class SampleDesktop : public QtDesktop {
public:
    FolderItem program_folder() override { return FolderItem(folder.path().toStdString()); }
    QTemporaryDir folder;
};

class SampleTest : public ::testing::Test {
protected:
    SampleTest() {
        app.window->Show();
        widget = desktop.widget_of(app.window.get());
        EXPECT_TRUE(QTest::qWaitForWindowActive(widget));
        app.from_user("settle", [] {});
        EXPECT_TRUE(eventually([this] { return app.in_front(*app.window.operator->()); }));
        app.log.clear();
    }

    template <class W> W& find(const char* name) const {
        W* found = widget->findChild<W*>(QLatin1String(name));
        EXPECT_NE(found, nullptr) << name;
        return *found;
    }
    SampleWindow& window() { return app.window.get(); }

    SampleDesktop desktop;
    SampleApp app{desktop};
    WindowWidget* widget = nullptr;
};

} // namespace tessit::qt
