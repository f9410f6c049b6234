// SPDX-License-Identifier: MIT
// Consolidator and composer as the user sees them: cells painted and clicked, the list's selection and clipboard, long
// lists, and the editor that comes up behind the composer.
#include "composer/compose_window.h"
#include "consolidator/consolidator_window.h"
#include "editor/edit_window.h"
#include "folder_desktop.h"
#include "qt/pieced_text_edit.h"

namespace tessit::qt {

namespace {

class Lists : public ProgramTest {
protected:
    Lists() {
        app.choose_menu("ConsolidatorNew");
        widget(app.consolidatorWindow.get());
    }

    QPlainTextEdit& list() { return find<QPlainTextEdit>(app.consolidatorWindow.get(), "freqdisplayfield"); }

    QTableView& compose(const char* text) {
        app.consolidatorWindow->freqdisplayfield.edit(text);
        app.consolidatorWindow->composebutton.click();
        widget(app.composewindow.get());
        return find<QTableView>(app.composewindow.get(), "freq_listBox");
    }

    static QRect cell(QTableView& table, int row, int column) {
        return table.visualRect(table.model()->index(row, column));
    }
    static void click(QTableView& table, int row, int column) {
        QTest::mouseClick(table.viewport(), Qt::LeftButton, Qt::NoModifier, cell(table, row, column).center());
    }
    static QColor background(QTableView& table, int row, int column) {
        return table.viewport()->grab().toImage().pixelColor(cell(table, row, column).topRight() + QPoint(-6, 6));
    }
    // Whether the text's colour is among the pixels of a cell.
    static bool shows(QTableView& table, int row, int column, const QColor& color) {
        const QImage image = table.viewport()->grab(cell(table, row, column)).toImage();
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                const QColor pixel = image.pixelColor(x, y);
                if (std::abs(pixel.red() - color.red()) + std::abs(pixel.green() - color.green()) +
                        std::abs(pixel.blue() - color.blue()) <
                    60) {
                    return true;
                }
            }
        }
        return false;
    }
};

TEST_F(Lists, cells_are_painted_in_their_colours) {
    QTableView& table = compose("300, 110, 100");
    const QColor orange(0xFF, 0x66, 0x00);
    EXPECT_TRUE(shows(table, 1, 0, orange) && !shows(table, 0, 0, orange));
    EXPECT_EQ(background(table, 2, 2), QColor(Qt::white));
    click(table, 2, 2);
    EXPECT_EQ(app.composewindow->freq_field.Text(), "105.");
    app.composewindow->enterbutton.click();
    find<QWidget>(app.composewindow.get(), "enterbutton").setFocus(); // off the cell, which would be framed
    EXPECT_EQ(background(table, 2, 2), QColor(0xC0, 0xC0, 0xC0));
    EXPECT_EQ(background(table, 2, 1), QColor(Qt::white));
}

TEST_F(Lists, headings_change_all_at_once) {
    QTableView& table = compose("300");
    QSignalSpy told(table.model(), &QAbstractItemModel::headerDataChanged);
    app.composewindow->freq_listBox.SetHeadings("A\tB\tC");
    ASSERT_EQ(told.size(), 1);
    EXPECT_EQ(joined(told[0][1].toInt(), told[0][2].toInt()), "0|2");
}

TEST_F(Lists, cells_are_clicked_without_a_mouse_too) {
    QTableView& table = compose("300, 200");
    table.setFocus();
    QTest::keyClick(&table, Qt::Key_Down);
    QTest::keyClick(&table, Qt::Key_Space);
    EXPECT_EQ(app.composewindow->freq_field.Text(), "200.");
    QTest::keyClick(&table, Qt::Key_Right);
    QTest::keyClick(&table, Qt::Key_Right);
    QTest::keyClick(&table, Qt::Key_Return);
    EXPECT_EQ(app.cellcol, prime_column::center);
}

TEST_F(Lists, the_editor_comes_up_behind_the_composer) {
    compose("300, 200");
    app.composewindow->freq_listBox.click_cell(0, 0);
    app.composewindow->enterbutton.click();
    EXPECT_TRUE(desktop.widget_of(app.editwindow.get())->isVisible());
    EXPECT_EQ(QGuiApplication::focusWindow(), widget(app.composewindow.get()).windowHandle());
    EXPECT_TRUE(app.in_front(app.composewindow.get()));
}

TEST_F(Lists, cut_and_paste_follow_the_selection_in_the_field) {
    list().setFocus();
    QTest::keyClicks(&list(), "1, 2, 3");
    QTest::keyClick(&list(), Qt::Key_Home);
    for (int i = 0; i < 3; ++i) {
        QTest::keyClick(&list(), Qt::Key_Right, Qt::ShiftModifier);
    }
    app.choose_menu("EditCut");
    EXPECT_EQ(joined(list().toPlainText(), list().textCursor().position(), desktop.clipboard_text().value_or("")),
              "2, 3|0|1, ");
    desktop.set_clipboard_text("10\r20");
    app.choose_menu("EditPaste");
    EXPECT_EQ(list().toPlainText(), "10, 20,");
}

TEST_F(Lists, typed_wave_types_are_completed_and_any_text_stays_possible) {
    compose("300");
    auto& box = find<QComboBox>(app.composewindow.get(), "wavebox");
    const std::tuple<const char*, Qt::Key, const char*, int> cases[] = {
        {"sweep", Qt::Key_Return, "Sweep Decreasing", 3},
        {"sweep i", Qt::Key_Tab, "Sweep Increasing", 4},
        {"sweep", Qt::Key_Delete, "sweep", -1},
        {"saw", Qt::Key_Return, "saw", -1},
        {"spread contracting", Qt::Key_Return, "spread contracting", 1},
    };
    for (const auto& [typed, key, text, index] : cases) {
        box.setFocus();
        box.lineEdit()->selectAll();
        QTest::keyClicks(&box, QLatin1String(typed));
        QTest::keyClick(&box, key);
        QTest::keyClick(&box, Qt::Key_Return);
        EXPECT_EQ(joined(app.composewindow->wavebox, app.composewindow->wavebox.ListIndex()), joined(text, index));
        EXPECT_EQ(box.currentText(), text);
    }
}

TEST_F(Lists, both_tables_of_the_composer_take_their_share_of_a_larger_window) {
    const QTableView& list = compose("300");
    const auto& levels = find<QTableView>(app.composewindow.get(), "compose_displayBox");
    const auto& between = find<QPushButton>(app.composewindow.get(), "allbutton");
    WindowWidget& window = widget(app.composewindow.get());
    window.resize(1000, 600);
    QCoreApplication::processEvents(); // scroll bars go
    const QRect upper = list.geometry();
    const QRect lower = levels.geometry();
    const int gap = between.y() - upper.bottom();
    window.resize(1000, 700);
    EXPECT_EQ(list.geometry(), upper.adjusted(0, 0, 0, 50));
    EXPECT_EQ(levels.geometry(), lower.adjusted(0, 50, 0, 100));
    EXPECT_EQ(between.y() - list.geometry().bottom(), gap);
}

TEST_F(Lists, newest_report_of_duplicates_can_be_seen) {
    for (int removal = 0; removal < 20; ++removal) {
        app.consolidatorWindow->freqdisplayfield.edit("5, 5");
        app.consolidatorWindow->RemDupButton.click();
    }
    const auto& bar = *find<QPlainTextEdit>(app.consolidatorWindow.get(), "duplicatefield").verticalScrollBar();
    EXPECT_TRUE(bar.maximum() > 0 && bar.value() == bar.maximum());
}

TEST_F(Lists, undo_brings_back_the_text_and_its_selection) {
    list().setFocus();
    list().insertPlainText("3, €1, 2");
    QTest::keyClick(&list(), Qt::Key_Left, Qt::ShiftModifier);
    app.consolidatorWindow->SortdnButton.click();
    QTest::keyClick(&list(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(joined(list().toPlainText(), list().textCursor().selectedText()), "3, €1, 2|2");
    Q_EMIT list().customContextMenuRequested({5, 5});
    auto* menu = list().findChild<QMenu*>();
    ASSERT_NE(menu, nullptr);
    menu->findChild<QAction*>("edit-redo")->trigger();
    EXPECT_EQ(list().toPlainText(), "3, 2, 1, 0");
    menu->close();
}

TEST_F(Lists, a_long_list_is_shown_whole_and_stays_editable) {
    QString numbers;
    for (int i = 0; i < 5000; ++i) {
        numbers += QString::number(i) + QLatin1Char('\n');
    }
    list().setPlainText(numbers); // as a paste into the field
    EXPECT_EQ(list().toPlainText().left(9), "0, 1, 2, ");
    app.consolidatorWindow->SortdnButton.click();
    EXPECT_GT(list().blockCount(), 1); // in pieces, with nothing between them
    EXPECT_EQ(static_cast<PiecedTextEdit&>(list()).text().toStdString(),
              app.consolidatorWindow->freqdisplayfield.Text());
    EXPECT_EQ(list().toPlainText().left(11), "4999, 4998,");
    list().moveCursor(QTextCursor::End);
    QTest::keyClicks(&list(), "7");
    EXPECT_TRUE(app.consolidatorWindow->freqdisplayfield.Text().ends_with("0, 07"));
}

} // namespace

} // namespace tessit::qt
