// SPDX-License-Identifier: MIT
// The feedback form filled in with the keyboard alone.
#include "folder_desktop.h"
#include "support/feedback_form.h"

namespace tessit::qt {

namespace {

using FeedbackKeys = ProgramTest;

TEST_F(FeedbackKeys, tab_goes_from_group_to_group_and_arrows_within_one) {
    app.choose_menu("ContactUsGiveusyourFeedback");
    const WindowWidget& form = widget(app.FeedbackWindow.get());
    const auto focus = [&] { return form.focusWidget()->objectName().toStdString(); };
    const auto press = [&](Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(form.focusWidget(), key, modifiers);
    };

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
    press(Qt::Key_Tab, Qt::ShiftModifier);
    EXPECT_EQ(focus(), "RadioButton70") << "the one that is on";
    press(Qt::Key_Tab, Qt::ShiftModifier);
    EXPECT_EQ(focus(), "RadioButton58");
    EXPECT_EQ(form.focusWidget()->accessibleName(), "Help Menu, Help Window Layout: Poor");
}

} // namespace

} // namespace tessit::qt
