// SPDX-License-Identifier: MIT
#include "fixture.h"

namespace tessit::qt {

namespace {

using Adapters = SampleTest;

TEST_F(Adapters, line_field_passes_typing_on_and_shows_what_the_program_sets) {
    auto& edit = find<QLineEdit>("field");
    edit.setFocus();
    QTest::keyClicks(&edit, "7.8");
    EXPECT_EQ(window().field.Text(), "7.8");
    EXPECT_EQ(app.log, (Log{"field 7", "field 7.", "field 7.8"}));
    app.log.clear();
    window().field.SetText("set");
    EXPECT_EQ(edit.text(), "set");
    EXPECT_EQ(app.log, Log{"field set"}) << "the program's own change came back as the user's";
}

TEST_F(Adapters, limit_holds_for_the_user_alone) {
    auto& edit = find<QLineEdit>("field");
    window().field.SetText("longer than seven");
    EXPECT_EQ(edit.text(), "longer than seven");
    QTest::keyClicks(&edit, "x");
    EXPECT_EQ(joined(window().field.Text(), edit.text()), "longer than seven|longer than seven");
    window().field.SetText("");
    QTest::keyClicks(&edit, "123456789");
    EXPECT_EQ(window().field.Text(), "1234567");
}

TEST_F(Adapters, undo_takes_back_only_what_the_user_typed) {
    auto& edit = find<QLineEdit>("field");
    QTest::keyClicks(&edit, "ab");
    window().field.SetText("set");
    QTest::keyClick(&edit, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(edit.text(), "set");
    QTest::keyClicks(&edit, "!");
    QTest::keyClick(&edit, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(joined(edit.text(), window().field.Text()), "set|set");
}

TEST_F(Adapters, line_field_takes_what_is_pasted) {
    const std::pair<const char*, const char*> cases[] = {
        {"1234.5678", "1234.56"}, // the limit holds from the beginning
        {"a\nb", "a b"},
        {"a b\n", "a b"},
        {"\n", ""},
    };
    auto& edit = find<QLineEdit>("field");
    for (const auto& [pasted, left] : cases) {
        QGuiApplication::clipboard()->setText(QLatin1String(pasted));
        edit.selectAll();
        edit.paste();
        EXPECT_EQ(window().field.Text(), left);
        EXPECT_EQ(edit.text().toStdString(), left);
        EXPECT_EQ(edit.displayText().toStdString(), left);
    }
}

TEST_F(Adapters, text_field_holds_carriage_returns_inside) {
    auto& edit = find<QPlainTextEdit>("notes");
    window().notes.SetText("one\rtwo");
    EXPECT_EQ(edit.toPlainText(), "one\ntwo");
    edit.moveCursor(QTextCursor::End);
    QTest::keyClick(&edit, Qt::Key_Return);
    QTest::keyClicks(&edit, "3");
    EXPECT_EQ(window().notes.Text(), "one\rtwo\r3");
}

TEST_F(Adapters, popup_menu_both_ways) {
    auto& box = find<QComboBox>("menu");
    box.setCurrentIndex(2);
    EXPECT_EQ(window().menu.ListIndex(), 2);
    window().menu.SetListIndex(0);
    EXPECT_EQ(box.currentIndex(), 0);
    window().menu.ReplaceRows({"30", "40"});
    EXPECT_EQ(box.count(), 2);
    EXPECT_EQ(box.currentIndex(), window().menu.ListIndex());
    EXPECT_EQ(app.log, (Log{"menu 20", "menu "}));
    box.setFocus();
    QTest::keyClick(&box, Qt::Key_Down);
    QTest::keyClick(box.view(), Qt::Key_Down);
    QTest::keyClick(box.view(), Qt::Key_Down);
    EXPECT_EQ(app.log.size(), 2U) << "entries are passed";
    QTest::keyClick(box.view(), Qt::Key_Return);
    EXPECT_EQ(app.log.back(), "menu 40");
}

TEST_F(Adapters, combo_box_keeps_a_free_text_as_typed_and_makes_no_item) {
    auto& box = find<QComboBox>("combo");
    box.setFocus();
    box.lineEdit()->selectAll();
    QTest::keyClicks(&box, "tw");
    EXPECT_TRUE(app.log.empty()) << "typing is not finished";
    QTest::keyClick(&box, Qt::Key_Return);
    EXPECT_EQ(app.log, Log{"combo -1 tw"});
    EXPECT_EQ(joined(box.currentText(), box.count()), "tw|3");
    QTest::keyClicks(&box, "O");
    find<QLineEdit>("field").setFocus(Qt::TabFocusReason);
    EXPECT_EQ(app.log.back(), "combo 1 twO") << "a text of the list in another case selects its entry";
    EXPECT_EQ(box.currentText(), "twO");
    window().combo.SetListIndex(2);
    EXPECT_EQ(joined(box.currentText(), app.log.size()), "Three|3");
}

TEST_F(Adapters, wheel_changes_a_combo_box_only_with_the_focus) {
    auto& box = find<QComboBox>("menu");
    const auto turn = [&] {
        const QPointF inside(5, 5);
        QWheelEvent event(inside, box.mapToGlobal(inside), {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&box, &event);
    };
    find<QLineEdit>("field").setFocus();
    turn();
    EXPECT_EQ(window().menu.ListIndex(), 1);
    box.setFocus();
    turn();
    EXPECT_EQ(window().menu.ListIndex(), 2);
}

TEST_F(Adapters, button_acts_on_mouse_space_and_return) {
    auto& button = find<QPushButton>("button");
    EXPECT_EQ(button.text(), "Push &&&& pull");
    QTest::mouseClick(&button, Qt::LeftButton);
    QTest::keyClick(&button, Qt::Key_Space);
    QTest::keyClick(&button, Qt::Key_Return);
    EXPECT_EQ(app.log, (Log{"button", "button", "button"}));
    window().button.SetEnabled(false);
    EXPECT_FALSE(button.isEnabled());
}

TEST_F(Adapters, radio_buttons_follow_the_models_group) {
    auto& left = find<QRadioButton>("left");
    auto& right = find<QRadioButton>("right");
    QTest::mouseClick(&right, Qt::LeftButton, Qt::NoModifier, {8, 10});
    EXPECT_TRUE(window().right.Value() && !window().left.Value() && !left.isChecked());
    window().right.SetValue(false);
    EXPECT_FALSE(right.isChecked() || left.isChecked());
    left.toggle(); // as assistive technology does
    QTest::keyClick(&left, Qt::Key_Space);
    EXPECT_EQ(app.log, (Log{"right", "left", "left"}));
}

TEST_F(Adapters, table_shows_every_change_at_once) {
    auto& view = find<QTableView>("table");
    Listbox& table = window().table;
    const auto cell = [&](int row, int column) { return view.model()->index(row, column).data().toString(); };
    table.SetHeadings("Level\tName\tTime");
    table.SetColumnAlignment(1, Align::right);
    table.AddRow("");
    table.AddRow("1");
    table.SetCell(1, 2, "3:00");
    EXPECT_EQ(joined(view.model()->headerData(1, Qt::Horizontal).toString(), cell(1, 2)), "Name|3:00");
    table.InsertRow(1, "0");
    EXPECT_EQ(joined(cell(1, 0), cell(2, 2)), "0|3:00");
    table.RemoveRow(1);
    EXPECT_EQ(joined(view.model()->rowCount(), cell(1, 2)), "2|3:00");
    EXPECT_EQ(view.model()->index(1, 1).data(Qt::TextAlignmentRole).value<Qt::Alignment>(),
              Qt::AlignRight | Qt::AlignVCenter);
}

TEST_F(Adapters, table_selection_and_double_click) {
    auto& view = find<QTableView>("table");
    for (const char* row : {"", "1", "2"}) {
        window().table.AddRow(row);
    }
    const auto centre = [&](int row) { return view.visualRect(view.model()->index(row, 0)).center(); };
    QTest::mouseClick(view.viewport(), Qt::LeftButton, Qt::NoModifier, centre(2));
    QTest::mouseDClick(view.viewport(), Qt::LeftButton, Qt::NoModifier, centre(2));
    QTest::keyClick(&view, Qt::Key_F2);
    QTest::keyClick(&view, Qt::Key_Up);
    QTest::keyClick(&view, Qt::Key_Return);
    EXPECT_EQ(app.log, (Log{"row 2", "double 2", "double 2", "row 1", "double 1"}));
    app.log.clear();
    window().table.SetListIndex(0);
    EXPECT_TRUE(view.selectionModel()->isRowSelected(0));
    const QPoint below(5, centre(2).y() + 40);
    QTest::mouseDClick(view.viewport(), Qt::LeftButton, Qt::NoModifier, below);
    EXPECT_EQ(joined(app.log.front(), std::count(app.log.begin(), app.log.end(), "double 0")), "row 0|0");
}

TEST_F(Adapters, table_scrolls_both_ways) {
    auto& view = find<QTableView>("table");
    for (int row = 0; row < 100; ++row) {
        window().table.AddRow(Str(row));
    }
    window().table.SetScrollPosition(40);
    EXPECT_EQ(view.rowAt(2), 40);
    view.verticalScrollBar()->setValue(7);
    EXPECT_EQ(window().table.ScrollPosition(), 7);
}

TEST_F(Adapters, names_labels_and_line_ends_of_captions) {
    EXPECT_EQ(find<QLineEdit>("field").accessibleName(), "Field");
    EXPECT_EQ(find<QTableView>("table").accessibleName(), "Table");
    EXPECT_EQ(find<QLabel>("caption").text(), "Lines\nof text");
    EXPECT_EQ(find<QLabel>("combo_label").buddy(), &find<QComboBox>("combo"));
    EXPECT_EQ(find<QLabel>("combo_label").text(), "Combo");
}

TEST_F(Adapters, tab_follows_the_order_of_the_controls) {
    find<QLineEdit>("field").setFocus();
    Log order;
    for (int step = 0; step < 6; ++step) {
        order.push_back(QApplication::focusWidget()->objectName().toStdString());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    EXPECT_EQ(order, (Log{"field", "notes", "combo", "menu", "left", "button"}));
}

} // namespace

} // namespace tessit::qt
