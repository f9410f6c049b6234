// SPDX-License-Identifier: MIT
// The frequency list in the running program. Sorting and duplicate removal, from the text in the field to the text in
// the field, beside a sorting program that has the same numbers in a file, one a line; the rules' own loops at the
// lengths that they can bear. Composing, from the button to the painted window, beside a bare table with the same
// rows. Opening a list, from the menu to the painted field, beside a bare text field that reads the same file. And the
// peak memory of a process with a list and the composer open, beside one with a bare text field.
// Usage: list_bench ROUNDS. Prints Markdown tables of medians. `list_bench --peak program|bare FILE` is the process
// whose peak is measured; it prints the peak in kilobytes.
#include "bench_main.h"
#include "composer/compose_window.h"
#include "consolidator/consolidator_window.h"
#include "consolidator/frequency_list.h"
#include "tests/support/frequency_loops.h"

#include <QElapsedTimer>
#include <QFile>
#include <QPlainTextEdit>
#include <QProcess>
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

void wait_until_painted(QWidget& window) {
    while (!window.windowHandle()->isExposed()) {
        QCoreApplication::processEvents();
    }
    window.repaint();
    QCoreApplication::processEvents();
}

// A folder of its own, so that no message waits for an answer; the dialogs answer themselves.
class ListDesktop : public qt::QtDesktop {
public:
    FolderItem program_folder() override { return FolderItem(folder_.path().toStdString()); }
    DialogAnswer show_dialog(const MessageDialog&) override { return DialogAnswer::alternate; }
    std::optional<FolderItem> choose_open_file(const FileRequest&) override { return FolderItem(list_file()); }
    std::string list_file() const { return folder_.filePath("list.csv").toStdString(); }

private:
    const QTemporaryDir folder_;
};

void show_bare_field(QPlainTextEdit& field, const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        throw std::runtime_error(file.errorString().toStdString());
    }
    field.setPlainText(QString::fromUtf8(file.readAll()));
    wait_until_painted(field);
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

    void opening(int count) {
        std::ofstream(desktop_.list_file()) << joined(random_entries(count), ", ") << "\r";
        const double program = median_of(rounds_, [this] { return opened(); });
        QPlainTextEdit field;
        field.resize(455, 303); // as the program's
        field.show();
        wait_until_painted(field);
        const auto path = QString::fromStdString(desktop_.list_file());
        const double bare = median_of(rounds_, [&] {
            field.clear();
            wait_until_painted(field);
            return milliseconds([&] { show_bare_field(field, path); });
        });
        std::printf("| opening %d entries, until the field is painted | %.1f |\n"
                    "| a bare text field that reads the same file | %.1f |\n| ratio | %.2f |\n",
                    count, program, bare, program / bare);
    }

    // The peaks come from processes of their own.
    void memory() const {
        const long program = peak_of("program");
        const long bare = peak_of("bare");
        std::printf("\n| Peak memory with the list of the last row | MB |\n|---|---|\n"
                    "| program, composer open | %.1f |\n| a bare text field | %.1f |\n| ratio | %.2f |\n",
                    static_cast<double>(program) / 1024, static_cast<double>(bare) / 1024,
                    static_cast<double>(program) / static_cast<double>(bare));
    }

    void open_with_composer(const QString& list) {
        if (!QFile::copy(list, QString::fromStdString(desktop_.list_file()))) {
            throw std::runtime_error("no list at " + list.toStdString());
        }
        opened();
        app_.consolidatorWindow->composebutton.click();
        wait_until_painted(*desktop_.widget_of(app_.composewindow.get()));
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

    double opened() {
        app_.consolidatorWindow->freqdisplayfield.SetText("");
        wait_until_painted(*desktop_.widget_of(app_.consolidatorWindow.get()));
        return milliseconds([this] {
            app_.choose_menu("ConsolidatorOpen");
            wait_until_painted(*desktop_.widget_of(app_.consolidatorWindow.get()));
        });
    }

    long peak_of(const char* what) const {
        QProcess process;
        process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        process.start(QCoreApplication::applicationFilePath(),
                      {"--peak", what, QString::fromStdString(desktop_.list_file())});
        process.waitForFinished(-1);
        const long peak = process.readAllStandardOutput().trimmed().toLong();
        if (process.exitCode() != 0 || peak <= 0) {
            throw std::runtime_error(std::string("no peak of ") + what);
        }
        return peak;
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

    using PrimeTexts = std::array<QString, 3>;

    const int rounds_;
    const QTemporaryDir folder_;
    std::vector<std::string> entries_;
    ListDesktop desktop_;
    App app_{desktop_, {.StageCode = Stage::beta}};
};

// In kilobytes. What getrusage tells would include the process that started this one.
long peak_of_this_process() {
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;) {
        if (word == "VmHWM:") {
            long peak = 0;
            status >> peak;
            return peak;
        }
    }
    throw std::runtime_error("no peak in /proc/self/status");
}

int print_peak(const QString& what, const QString& list) {
    QPlainTextEdit field;
    std::optional<ListBench> bench;
    if (what == "bare") {
        field.resize(455, 303);
        field.show();
        show_bare_field(field, list);
    } else {
        bench.emplace(1);
        bench->open_with_composer(list);
    }
    std::printf("%ld\n", peak_of_this_process());
    return 0;
}

int run(const QStringList& arguments) {
    if (arguments.value(1) == "--peak") {
        return print_peak(arguments.value(2), arguments.value(3));
    }
    ListBench bench(std::max(1, arguments.value(1).toInt()));
    bench.sorts_and_removal();
    bench.composing(10000);
    bench.opening(100000);
    bench.memory();
    return 0;
}

} // namespace
} // namespace tessit::bench

int main(int argc, char* argv[]) {
    return tessit::bench::run_bench(argc, argv, tessit::bench::run);
}
