// SPDX-License-Identifier: MIT
// What start-up is compared with: the least that Qt needs for a window with a menu bar, of the size of the window that
// it stands beside. "bare_window table" shows the full table in Qt's ready-made table, "bare_window panel" no table.
#include "bench/full_table.h"

#include <QApplication>
#include <QHeaderView>
#include <QLabel>
#include <QMainWindow>
#include <QMenuBar>
#include <QTableWidget>

namespace {

QTableWidget* make_table() {
    const auto rows = tessit::bench::full_table();
    auto* table = new QTableWidget(static_cast<int>(rows.size()), static_cast<int>(tessit::bench::headings.size()));
    for (int column = 0; column < table->columnCount(); ++column) {
        const auto at = static_cast<std::size_t>(column);
        table->setHorizontalHeaderItem(column, new QTableWidgetItem(tessit::bench::headings[at]));
        for (int row = 0; row < table->rowCount(); ++row) {
            const std::string& text = rows[static_cast<std::size_t>(row)][at];
            table->setItem(row, column, new QTableWidgetItem(QString::fromStdString(text)));
        }
    }
    return table;
}

void fill_menu_bar(QMenuBar& bar) {
    for (const char* title : {"File", "Zephon", "Edit", "Consolidator", "Settings", "ContactUs", "Help"}) {
        QMenu* menu = bar.addMenu(QLatin1String(title));
        for (const char* entry : {"New", "Open", "Save", "Quit"}) {
            menu->addAction(QLatin1String(entry));
        }
    }
}

} // namespace

int main(int argc, char* argv[]) {
    QApplication application(argc, argv);
    const bool with_table = application.arguments().value(1) == QLatin1String("table");
    QMainWindow window;
    fill_menu_bar(*window.menuBar());
    if (with_table) {
        window.setCentralWidget(make_table());
        window.resize(890, 670);
    } else {
        window.setCentralWidget(new QLabel(QStringLiteral("Bare window")));
        window.resize(574, 296);
    }
    window.show();
    return application.exec();
}
