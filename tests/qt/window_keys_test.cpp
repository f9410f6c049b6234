// SPDX-License-Identifier: MIT
// Keys that are for the window as a whole, and commands on the rows of a table.
#include "device/load_direct_window.h"
#include "editor/edit_window.h"
#include "files/preferences_window.h"
#include "folder_desktop.h"
#include "support/help_window.h"

namespace tessit::qt {

namespace {

class WindowKeys : public ProgramTest {
protected:
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        WindowWidget& front = widget(*app.front_window());
        QTest::keyClick(front.focusWidget() != nullptr ? front.focusWidget() : &front, key, modifiers);
    }
    std::string focus() { return widget(*app.front_window()).focusWidget()->objectName().toStdString(); }
    EditWindow& editor_with_level() {
        app.choose_menu("FileCreateNewFile");
        app.editwindow->FreqField.edit("7");
        app.editwindow->enterbutton.click();
        return app.editwindow.get();
    }
};

TEST_F(WindowKeys, what_is_typed_in_a_list_counts_before_tab_goes_on) {
    app.choose_menu("FileCreateNewFile");
    auto& waves = *widget(app.editwindow.get()).findChild<QComboBox*>("wave_box");
    waves.setFocus();
    waves.lineEdit()->selectAll();
    QTest::keyClicks(&waves, "Sweep Increasing");
    press(Qt::Key_Tab);
    EXPECT_EQ(focus(), "FreqField") << "where the choice sends it, and no further";
    app.choose_menu("ZephonLoadDirect");
    std::string visited = focus();
    press(Qt::Key_Tab);
    QTest::keyClicks(widget(*app.front_window()).focusWidget(), "7");
    press(Qt::Key_Tab);
    visited += " " + focus() + " " + app.load_direct_window->bank_bt0.Text();
    press(Qt::Key_Tab);
    EXPECT_EQ(visited + " " + focus(), "bank_bt1 LoadButton 7 bank_bt1") << "what only shows is passed over";
}

TEST_F(WindowKeys, close_what_holds_no_work_and_press_the_buttons_that_they_belong_to) {
    const std::tuple<const char*, const char*, Qt::Key, Qt::KeyboardModifiers, bool> cases[] = {
        {"SettingsSetSerialPort", "", Qt::Key_Escape, Qt::NoModifier, false},
        {"HelpOnlineHelp", "", Qt::Key_Escape, Qt::NoModifier, false},
        {"HelpOnlineHelp", "me", Qt::Key_Escape, Qt::NoModifier, true},
        {"HelpOnlineHelp", "", Qt::Key_W, Qt::ControlModifier, false},
        {"SettingsSetPreferences", "", Qt::Key_Escape, Qt::NoModifier, false},
        {"SettingsSetPreferences", "", Qt::Key_Return, Qt::NoModifier, false},
        {"FileCreateNewFile", "", Qt::Key_Escape, Qt::NoModifier, true},
    };
    for (const auto& [entry, typed, key, modifiers, stays] : cases) {
        app.choose_menu(entry);
        const std::string opened = app.front_window()->name();
        QTest::keyClicks(widget(*app.front_window()).focusWidget(), QLatin1String(typed));
        press(key, modifiers);
        EXPECT_EQ(app.front_window()->name() == opened, stays) << entry << " " << typed;
    }
}

TEST_F(WindowKeys, a_level_comes_back_with_its_frequency_selected_and_escape_cancels_the_change) {
    EditWindow& editor = editor_with_level();
    editor.edit_displayBox.SetListIndex(1);
    find<QTableView>(editor, "edit_displayBox").setFocus();
    press(Qt::Key_Return);
    EXPECT_EQ(focus() + find<QLineEdit>(editor, "FreqField").selectedText().toStdString(), "FreqField7");
    press(Qt::Key_Escape);
    EXPECT_FALSE(app.changelevel);
}

TEST_F(WindowKeys, f1_opens_the_chapter_of_the_window_in_front) {
    QFile help(desktop.folder.filePath("HELP.html"));
    ASSERT_TRUE(help.open(QIODevice::WriteOnly) && help.write("<p>x<a name='port'>y</a>") > 0);
    help.close();
    app.choose_menu("SettingsSetSerialPort");
    press(Qt::Key_F1);
    EXPECT_EQ(find<QTextBrowser>(app.helpWindow.get(), "HTMLV_html").source().fragment(), "port");
    press(Qt::Key_Escape);
    EXPECT_FALSE(app.helpWindow.exists());
}

TEST_F(WindowKeys, a_row_offers_its_commands_by_mouse_and_by_key) {
    EditWindow& editor = editor_with_level();
    auto& table = find<QTableView>(editor, "edit_displayBox");
    const auto choose = [&](const char* name) {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_NE(menu, nullptr);
        for (QAction* action : menu->actions()) {
            if (action->objectName() == QLatin1String(name)) {
                action->trigger();
            }
        }
        menu->close();
    };
    const QPoint level = table.visualRect(table.model()->index(1, 2)).center();
    QTest::mouseClick(table.viewport(), Qt::RightButton, Qt::NoModifier, level);
    QContextMenuEvent asks(QContextMenuEvent::Mouse, level, table.viewport()->mapToGlobal(level));
    QApplication::sendEvent(table.viewport(), &asks);
    choose("EditInsertRow");
    EXPECT_EQ(joined(editor.edit_displayBox.ListCount(), app.row), "3|1");
    QTest::keyClick(&table, Qt::Key_F10, Qt::ShiftModifier);
    choose("EditDeleteRow");
    EXPECT_EQ(editor.edit_displayBox.ListCount(), 2);
    desktop.faults.clear(); // times in seconds are not added up
}

} // namespace

} // namespace tessit::qt
