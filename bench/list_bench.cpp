// SPDX-License-Identifier: MIT
// The frequency list in the running program. Sorting and duplicate removal, from the text in the field to the text in
// the field, beside a sorting program that has the same numbers in a file, one a line; the rules' own loops at the
// lengths that they can bear. And composing, from the button to the painted window, beside a bare table with the same
// rows. Usage: list_bench ROUNDS. Prints Markdown tables of medians.
#include "bench_main.h"
#include "composer/compose_window.h"
#include "consolidator/consolidator_window.h"
#include "consolidator/frequency_list.h"
#include "tests/support/frequency_loops.h"

#include <QElapsedTimer>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QWindow>
#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

namespace tessit::bench {
namespace {

constexpr int longest_for_loops = 1000;

double median_of(int rounds, const std::function<double()>& measured) {
    std::vector<double> times;
    for (int round = 0; round < rounds; ++round) {
        times.push_back(measured());
    }
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

double milliseconds(const std::function<void()>& work) {
    QElapsedTimer timer;
    timer.start();
    work();
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

// Quarters of a hertz in any order; about every second one is there more than once.
std::vector<std::string> random_entries(int count) {
    std::mt19937 random(20261123);
    std::uniform_int_distribution<int> quarters(1, count);
    std::vector<std::string> entries;
    for (int i = 0; i < count; ++i) {
        entries.push_back(Str(static_cast<float>(quarters(random)) / 4.0F));
    }
    return entries;
}

std::string joined(const std::vector<std::string>& entries, const char* separator) {
    std::string text;
    for (const std::string& entry : entries) {
        text += text.empty() ? entry : separator + entry;
    }
    return text;
}

class ListBench {
public:
    explicit ListBench(int rounds) : rounds_(rounds) {
        app_.start();
        app_.choose_menu("ConsolidatorNew");
        QCoreApplication::processEvents();
    }

    void sorts_and_removal() {
        std::printf(
            "| Entries | What | program, ms | sorting program, ms | ratio | loops, ms |\n|---|---|---|---|---|---|\n");
        for (const int count : {300, 1000, 10000, 100000}) {
            entries_ = random_entries(count);
            std::ofstream(file()) << joined(entries_, "\n") << "\n";
            row(count, "sort", &ConsolidatorWindow::SortupButton, "sort -g",
                [](std::vector<double> list) { testing::sort_by_loops(list, SortOrder::increasing); });
            row(count, "removal", &ConsolidatorWindow::RemDupButton, "sort -g -u",
                [](std::vector<double> list) { testing::remove_by_loops(std::move(list)); });
        }
    }

    void composing(int count) {
        entries_.clear();
        for (int i = 1; i <= count; ++i) {
            entries_.push_back(Str(i * 9));
        }
        const double program = median_of(rounds_, [this] { return composed(); });
        const double bare = median_of(rounds_, [this] { return bare_table(); });
        std::printf("\n| What | ms |\n|---|---|\n| composing %d entries, until the window is painted | %.0f |\n"
                    "| a bare table with the same rows | %.0f |\n| ratio | %.2f |\n",
                    count, program, bare, program / bare);
    }

private:
    using Button = PushButton ConsolidatorWindow::*;

    std::string file() const { return folder_.filePath("list").toStdString(); }

    void row(int count, const char* what, Button button, const std::string& command,
             void (*loops)(std::vector<double>)) {
        const std::string text = joined(entries_, ", ");
        const double program = median_of(rounds_, [&] {
            app_.consolidatorWindow->freqdisplayfield.SetText(text);
            QCoreApplication::processEvents();
            return milliseconds([&] { (app_.consolidatorWindow.get().*button).click(); });
        });
        const double other = median_of(rounds_, [&] {
            return milliseconds([&] {
                if (std::system((command + " -o " + file() + ".sorted " + file()).c_str()) != 0) {
                    throw std::runtime_error(command + " failed");
                }
            });
        });
        std::printf("| %d | %s | %.1f | %.1f | %.2f | ", count, what, program, other, program / other);
        if (count <= longest_for_loops) {
            const auto list = read_frequency_list(text, DecimalMark::point).numbers;
            std::printf("%.0f", milliseconds([&] { loops({list.begin(), list.end()}); }));
        }
        std::printf(" |\n");
    }

    double composed() {
        app_.choose_menu("ConsolidatorNew");
        app_.consolidatorWindow->freqdisplayfield.SetText(joined(entries_, ", "));
        QCoreApplication::processEvents();
        const double time = milliseconds([&] {
            app_.consolidatorWindow->composebutton.click();
            wait_until_painted(*desktop_.widget_of(app_.composewindow.get()));
        });
        app_.composewindow->close_by_user();
        QCoreApplication::processEvents();
        return time;
    }

    double bare_table() const {
        std::vector<PrimeTexts> rows;
        for (const std::string& entry : entries_) {
            rows.push_back({QString::fromStdString(entry + "."), "4", QString::fromStdString(entry + ".")});
        }
        return milliseconds([&] {
            QTableWidget table(0, 3);
            for (const PrimeTexts& texts : rows) {
                const int at = table.rowCount();
                table.insertRow(at);
                for (int column = 0; column < 3; ++column) {
                    table.setItem(at, column, new QTableWidgetItem(texts[static_cast<std::size_t>(column)]));
                }
            }
            table.show();
            wait_until_painted(table);
        });
    }

    static void wait_until_painted(QWidget& window) {
        while (!window.windowHandle()->isExposed()) {
            QCoreApplication::processEvents();
        }
        window.repaint();
        QCoreApplication::processEvents();
    }

    using PrimeTexts = std::array<QString, 3>;

    const int rounds_;
    const QTemporaryDir folder_;
    std::vector<std::string> entries_;
    qt::QtDesktop desktop_;
    App app_{desktop_, {.StageCode = Stage::beta}};
};

int run(const QStringList& arguments) {
    ListBench bench(std::max(1, arguments.value(1).toInt()));
    bench.sorts_and_removal();
    bench.composing(10000);
    return 0;
}

} // namespace
} // namespace tessit::bench

int main(int argc, char* argv[]) {
    return tessit::bench::run_bench(argc, argv, tessit::bench::run);
}
