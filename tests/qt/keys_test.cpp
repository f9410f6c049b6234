// SPDX-License-Identifier: MIT
#include "dialog_driver.h"
#include "fixture.h"
#include "qt/earlier_input.h"

namespace tessit::qt {

namespace {

class Keys : public SampleTest {
protected:
    Keys() {
        window().key_down = [this](const std::string& key) {
            seen.push_back(key);
            return use_up;
        };
        edit.setFocus();
    }
    QLineEdit& edit = find<QLineEdit>("field");
    Log seen;
    bool use_up = false;
};

TEST_F(Keys, each_key_arrives_in_its_form) {
    const std::tuple<Qt::Key, Qt::KeyboardModifiers, const char*, Log> cases[] = {
        {Qt::Key_Return, Qt::NoModifier, "\r", {"\r"}},
        {Qt::Key_Enter, Qt::KeypadModifier, "\r", {"\x03"}},
        {Qt::Key_Return, Qt::ControlModifier, "\r", {""}},
        {Qt::Key_C, Qt::ControlModifier, "\x03", {""}},
        {Qt::Key_M, Qt::ControlModifier, "\r", {""}},
        {Qt::Key_L, Qt::AltModifier, "l", {""}},
        {Qt::Key_L, Qt::ControlModifier, "\x0c", {""}},
        {Qt::Key_L, Qt::NoModifier, "l", {"l"}},
        {Qt::Key_L, Qt::ShiftModifier, "L", {"L"}},
        {Qt::Key_L, Qt::KeypadModifier, "l", {"l"}},
        {Qt::Key_At, Qt::GroupSwitchModifier, "@", {"@"}},
        {Qt::Key_At, Qt::ControlModifier | Qt::AltModifier, "@", {"@"}},
        {Qt::Key_Shift, Qt::ShiftModifier, "", {}},
        {Qt::Key_AltGr, Qt::NoModifier, "", {}},
        {Qt::Key_Left, Qt::NoModifier, "", {""}},
        {Qt::Key_F5, Qt::NoModifier, "", {""}},
    };
    for (const auto& [key, modifiers, text, expected] : cases) {
        seen.clear();
        QKeyEvent press(QEvent::KeyPress, key, modifiers, QString::fromLatin1(text));
        QCoreApplication::sendEvent(&edit, &press);
        EXPECT_EQ(seen, expected) << "key " << key << " modifiers " << modifiers;
    }
}

TEST_F(Keys, tab_leaves_the_field) {
    QTest::keyClick(&edit, Qt::Key_Tab);
    EXPECT_EQ(seen, Log{""});
    EXPECT_FALSE(edit.hasFocus());
}

TEST_F(Keys, a_key_that_is_used_up_does_not_reach_the_field) {
    use_up = true;
    QTest::keyClicks(&edit, "1");
    EXPECT_EQ(edit.text(), "");
}

TEST_F(Keys, the_letter_that_emptied_the_field_stays_behind_in_it) {
    window().field.SetText("7.83");
    window().key_down = [this](const std::string& key) {
        if (key == "l") {
            window().field.SetText("");
        }
        return false;
    };
    QTest::keyClicks(&edit, "l");
    EXPECT_EQ(joined(edit.text(), window().field.Text()), "l|l");
}

TEST_F(Keys, committed_text_of_an_input_method_is_offered_too) {
    QInputMethodEvent commit;
    commit.setCommitString("lé");
    QCoreApplication::sendEvent(&edit, &commit);
    EXPECT_EQ(seen, (Log{"l", "é"}));
    EXPECT_EQ(window().field.Text(), "lé");
}

TEST_F(Keys, a_handler_may_close_its_own_window) {
    QPointer<WindowWidget> shown(widget);
    window().key_down = [this](const std::string&) {
        app.window.Close();
        return false;
    };
    QTest::keyClicks(&edit, "x");
    EXPECT_FALSE(app.window.exists());
    EXPECT_TRUE(eventually([&] { return shown == nullptr; }));
}

TEST_F(Keys, a_fault_in_a_handler_is_reported_and_goes_no_further) {
    window().key_down = [](const std::string&) -> bool {
        throw Fault(FaultKind::out_of_bounds, "Beyond <b>the</b> end.");
    };
    QString report;
    DialogDriver driver;
    driver.when_shown<QMessageBox>([&](QMessageBox& box) {
        report = box.text() + box.informativeText() + box.detailedText();
        box.accept();
    });
    QTest::keyClicks(&edit, "x");
    EXPECT_TRUE(report.contains("Beyond <b>the</b> end.")) << report.toStdString();
    EXPECT_TRUE(report.contains("sample.field_KeyDown")) << report.toStdString();
    EXPECT_EQ(window().field.Text(), "x");
}

TEST_F(Keys, leaving_for_another_field_is_told) {
    int left = 0;
    window().lost_focus = [&] { ++left; };
    find<QPushButton>("button").setFocus(Qt::TabFocusReason);
    EXPECT_EQ(left, 1);
    edit.setFocus(Qt::TabFocusReason);
    for (const auto reason : {Qt::PopupFocusReason, Qt::ActiveWindowFocusReason, Qt::MenuBarFocusReason}) {
        find<QPushButton>("button").setFocus(reason);
        edit.setFocus(reason);
    }
    EXPECT_EQ(left, 1);
}

TEST(EarlierInput, pressed_while_nobody_listened_is_dropped_and_nothing_else) {
    struct Listener : QWindow {
        void keyPressEvent(QKeyEvent* event) override { heard += std::to_string(event->timestamp()) + " "; }
        std::string heard;
    } window;
    const auto press = [&window](quint64 stamp) {
        QKeyEvent event(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
        event.setTimestamp(stamp);
        QCoreApplication::sendEvent(&window, &event);
    };
    watch_input();
    press(70'000);
    QTest::qSleep(20);
    drop_input_so_far(); // up to the stamp 70020 at least
    for (const quint64 stamp : {70'001, 70'019, 69'999, 0, 900'000}) {
        press(stamp);
    }
    EXPECT_EQ(window.heard, "70000 69999 0 900000 ");
}

} // namespace

} // namespace tessit::qt
