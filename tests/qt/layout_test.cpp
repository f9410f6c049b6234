// SPDX-License-Identifier: MIT
// That texts fit and colours contrast: the rules one by one, and every window of the program as it is shown.
#include "all_windows.h"
#include "folder_desktop.h"
#include "level/register_image.h"
#include "qt/column_widths.h"
#include "qt/control_layout.h"
#include "qt/look.h"

namespace tessit::qt {

namespace {

TEST(ColumnWidths, empty_places_share_what_is_left) {
    const std::tuple<const char*, std::vector<int>, int, std::vector<int>> cases[] = {
        {"40, , ,50 , ", {10, 10, 10, 10}, 290, {40, 100, 100, 50}},
        {"40,,50", {10, 10, 10}, 100, {40, 10, 50}},
        {"40, ,", {60, 10, 10}, 160, {60, 50, 50}},
        {" , ", {150, 10}, 200, {150, 50}},
        {" , ", {10, 150}, 200, {50, 150}},
        {"", {10, 10}, 101, {51, 50}},
        {"40,50", {10, 20}, 60, {25, 35}},
        {"40,50", {10, 20}, 20, {10, 20}},
        {"x,-5", {10, 10}, 60, {30, 30}},
    };
    for (const auto& [widths, needed, available, result] : cases) {
        EXPECT_EQ(column_widths(widths, 1, needed, available), result) << widths;
    }
}

TEST(Places, grow_where_there_is_room) {
    const QRect place(100, 100, 50, 20);
    const std::tuple<const char*, Placed, std::vector<QRect>, QRect> cases[] = {
        {"enough", {place, {40, 20}, 0}, {}, place},
        {"to the right", {place, {80, 20}, 0}, {}, {100, 100, 80, 20}},
        {"to the left", {place, {80, 20}, 2}, {}, {70, 100, 80, 20}},
        {"to both sides", {place, {80, 20}, 1}, {}, {85, 100, 80, 20}},
        {"away from other", {place, {80, 20}, 0}, {{160, 100, 20, 20}}, {79, 100, 80, 20}},
        {"what is free", {place, {80, 20}, 0}, {{160, 90, 9, 50}, {80, 90, 10, 50}}, {91, 100, 68, 20}},
        {"higher", {place, {50, 24}, 0}, {}, {100, 98, 50, 24}},
        {"higher upwards", {place, {50, 24}, 0}, {{100, 121, 50, 9}}, {100, 96, 50, 24}},
        {"at the edge", {{190, 0, 10, 20}, {30, 24}, 0}, {}, {170, 0, 30, 24}},
    };
    for (const auto& [what, control, others, result] : cases) {
        std::vector<Placed> controls{control};
        for (const QRect& other : others) {
            controls.push_back({.designed = other, .needed = {}});
        }
        EXPECT_EQ(places_with_room(controls, {200, 200}).front(), result) << what;
    }
}

TEST(Look, text_contrasts_with_every_background) {
    EXPECT_TRUE(readable_on(QColor(0xFF0000)) == Qt::black && readable_on(QColor(0xC0C0C0)) == Qt::black);
    EXPECT_EQ(readable_on(QColor(0x000080)), QColor(Qt::white));
    const auto shown_link = [](const QColor& background) {
        QPalette palette(background); // with texts that contrast
        palette.setColor(QPalette::Base, background);
        palette.setColor(QPalette::Link, Qt::blue);
        return link_color(palette);
    };
    EXPECT_TRUE(shown_link(Qt::white) == Qt::blue && shown_link(Qt::black) != Qt::blue);
}

QString name_of(const QWidget& widget) {
    return widget.window()->objectName() + "." + widget.objectName();
}

int text_width(const QWidget& widget, const QString& text) {
    int widest = 0;
    for (const QString& line : text.split('\n')) {
        widest = std::max(widest, widget.fontMetrics().horizontalAdvance(line));
    }
    return widest;
}

void expect_texts_to_fit(const QComboBox& box) {
    QStyleOptionComboBox option;
    option.initFrom(&box);
    option.editable = box.isEditable();
    const QRect room = box.style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, &box);
    for (int index = 0; index < box.count(); ++index) {
        EXPECT_LE(text_width(box, box.itemText(index)), room.width()) << name_of(box).toStdString();
    }
    EXPECT_LE(box.fontMetrics().height(), room.height()) << name_of(box).toStdString();
}

void expect_texts_to_fit(const QTableView& view) {
    for (int column = 0; column < view.model()->columnCount(); ++column) {
        const QString heading = view.model()->headerData(column, Qt::Horizontal).toString();
        EXPECT_LE(view.horizontalHeader()->sectionSizeHint(column), view.columnWidth(column))
            << name_of(view).toStdString() << " " << heading.toStdString();
        for (int row = 0; row < view.model()->rowCount(); ++row) {
            const QString cell = view.model()->index(row, column).data().toString();
            EXPECT_LE(view.fontMetrics().horizontalAdvance(cell) + 7, view.columnWidth(column)) << cell.toStdString();
        }
    }
    EXPECT_EQ(view.horizontalScrollBar()->maximum(), 0);
}

void expect_text_to_fit(const QWidget& widget) {
    const std::string name = name_of(widget).toStdString();
    if (const auto* label = qobject_cast<const QLabel*>(&widget)) {
        const int lines = static_cast<int>(label->text().count('\n')) + 1;
        EXPECT_LE(text_width(widget, label->text()), widget.width()) << name;
        EXPECT_LE(widget.fontMetrics().height() * lines, widget.height()) << name;
    } else if (qobject_cast<const QLineEdit*>(&widget) != nullptr) {
        EXPECT_LE(widget.fontMetrics().height() + 4, widget.height()) << name;
    } else if (const auto* button = qobject_cast<const QPushButton*>(&widget)) {
        EXPECT_LE(text_width(widget, button->text()) + 8, widget.width()) << name;
        EXPECT_LE(widget.fontMetrics().height() + 4, widget.height()) << name;
    } else if (const auto* radio = qobject_cast<const QRadioButton*>(&widget)) {
        EXPECT_LE(radio->sizeHint().width(), widget.width()) << name;
    } else if (const auto* box = qobject_cast<const QComboBox*>(&widget)) {
        expect_texts_to_fit(*box);
    } else if (const auto* view = qobject_cast<const QTableView*>(&widget)) {
        expect_texts_to_fit(*view);
    }
}

void expect_no_overlap(const WindowWidget& window) {
    const auto& controls = window.controls();
    for (std::size_t at = 0; at < controls.size(); ++at) {
        for (std::size_t other = 0; other < at; ++other) {
            const QWidget& one = controls[at]->widget();
            const QWidget& two = controls[other]->widget();
            const QRect common = one.geometry() & two.geometry();
            const bool frames = controls[at]->is_frame() || controls[other]->is_frame();
            if (!frames && !one.isHidden() && !two.isHidden()) {
                EXPECT_TRUE(common.isEmpty()) << name_of(one).toStdString() << " over " << name_of(two).toStdString();
            }
        }
    }
}

class EveryWindow : public ProgramTest, public ::testing::WithParamInterface<int> {};

INSTANTIATE_TEST_SUITE_P(PointsOfTheDesktop, EveryWindow, ::testing::Values(10, 14, 18));

TEST_P(EveryWindow, shows_its_texts_whole_and_apart) {
    desktop.font.setPointSize(GetParam());
    app.from_user("windows", [this] {
        app.serialselected = true; // keeps the load window from closing itself
#define SHOW(window) app.window->Show();
        EACH_WINDOW(SHOW)
        EditWindow& editor = app.editwindow.get();
        editor.wave_box.SetListIndex(1);
        editor.FreqField.SetText("999999");
        app.Update_display();
        app.load_direct_window->loadcompleted.SetVisible(true);
        editor.changelvlfield.SetVisible(true);
    });
    EXPECT_TRUE(find<QLineEdit>(app.editwindow.get(), "EditField1").isHidden()) << "it lies off the content";
    const QImage change_field = find<QLineEdit>(app.editwindow.get(), "changelvlfield").grab().toImage();
    EXPECT_EQ(change_field.pixelColor(5, 8), QColor(Qt::red));
    EXPECT_GE(app.WindowCount(), 19);
    const double scale = text_scale(*desktop.widget_of(app.editwindow.get()));
    const std::map<int, int> text_sizes{{10, 12}, {14, 19}, {18, 24}};
    EXPECT_EQ(scaled(12, scale), text_sizes.at(GetParam()));
    for (int index = 0; index < app.WindowCount(); ++index) {
        WindowWidget* shown = desktop.widget_of(app.Window(index));
        ASSERT_NE(shown, nullptr) << app.Window(index).name();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(shown)) << app.Window(index).name();
        expect_no_overlap(*shown);
        for (const auto& control : shown->controls()) {
            expect_text_to_fit(control->widget());
        }
        if (shown->width() >=
            scaled(app.Window(index).design().width, scale)) { // else the screen is smaller than the window
            EXPECT_EQ(qobject_cast<QScrollArea*>(shown->centralWidget())->verticalScrollBar()->maximum(), 0);
        }
    }
}

} // namespace

} // namespace tessit::qt
