// SPDX-License-Identifier: MIT
// The feedback form filled in with the keyboard alone.
#include "fixture.h"
#include "folder_desktop.h"
#include "program/main_window.h"
#include "support/feedback_form.h"

#include <QRadioButton>

namespace tessit::qt {

namespace {

TEST(FeedbackKeys, TabGoesFromGroupToGroupAndArrowsWithinOne) {
    FolderDesktop desktop;
    App app(desktop, {.StageCode = Stage::beta});
    app.start();
    app.choose_menu("ContactUsGiveusyourFeedback");
    WindowWidget* widget = desktop.widget_of(app.FeedbackWindow.get());
    ASSERT_TRUE(QTest::qWaitForWindowActive(widget));
    const auto focus = [&] { return widget->focusWidget()->objectName().toStdString(); };
    const auto press = [&](Qt::Key key) { QTest::keyClick(widget->focusWidget(), key); };

    std::string visited;
    for (int group = 0; group < 16; ++group) {
        visited += focus() + " ";
        press(group == 15 ? Qt::Key_Right : Qt::Key_Tab);
    }
    EXPECT_EQ(visited,
              "RadioButton1 RadioButton6 RadioButton64 RadioButton16 RadioButton19 RadioButton22 RadioButton28 "
              "RadioButton33 RadioButton63 RadioButton38 RadioButton43 RadioButton44 RadioButton49 "
              "RadioButton54 RadioButton58 RadioButton69 ");
    EXPECT_EQ(focus(), "RadioButton70");
    press(Qt::Key_Space);
    EXPECT_EQ(app.HelpUsefull, "Help Window - Somewhat Usefull");
    press(Qt::Key_Right); // from a button that is on, the arrows choose
    EXPECT_EQ(app.HelpUsefull, "Help Window - Usefull");
    press(Qt::Key_Left);
    EXPECT_EQ(app.HelpUsefull, "Help Window - Somewhat Usefull");

    press(Qt::Key_Tab);
    EXPECT_EQ(focus(), "FeedbackCommentField");
    QTest::keyClick(widget->focusWidget(), Qt::Key_Tab, Qt::ShiftModifier);
    EXPECT_EQ(focus(), "RadioButton70") << "the one that is on";
    QTest::keyClick(widget->focusWidget(), Qt::Key_Tab, Qt::ShiftModifier);
    EXPECT_EQ(focus(), "RadioButton58");
    EXPECT_EQ(widget->focusWidget()->accessibleName(), "Help Menu, Help Window Layout: Poor");
}

} // namespace

} // namespace tessit::qt
