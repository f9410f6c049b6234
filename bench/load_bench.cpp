// SPDX-License-Identifier: MIT
// load_bench EMULATOR FILE ROUNDS: the program on the real desktop loads FILE into bank 7 of a running emulator,
// ROUNDS times with each of three clocks in turn, and prints a Markdown table. What it waits by is exchanged; the
// dialogue, the serial port, the windows and the generator are the same. Every load is checked: the generator holds
// the fifty levels of the file, and has found nothing wrong.
#include "bench/bench_main.h"
#include "bench/clocks.h"
#include "bench/emulator_process.h"
#include "bench/observed_line.h"
#include "core/app.h"
#include "device/bank_boxes.h"
#include "device/load_direct_window.h"
#include "device/settings_window.h"
#include "editor/edit_window.h"
#include "program/main_window.h"

#include <QDeadlineTimer>
#include <QFile>
#include <algorithm>
#include <cstdio>
#include <stdexcept>

namespace tessit::bench {
namespace {

constexpr int bank = 7;

// docs/wire-format.md, stated once more so that a wrong wait of the program shows.
constexpr Microseconds wait_after_a_call = 10'000;
constexpr Microseconds waits_of_a_level = 10'000 + 10'000 + 11 * 5'000 + 4 * 5'000;
constexpr Microseconds wait_after_a_miss = 1'000;

Microseconds fixed_waits(const LoadRecord& load) {
    return load.calls * wait_after_a_call + 50 * waits_of_a_level;
}

Microseconds all_waits(const LoadRecord& load) {
    return fixed_waits(load) + load.misses * wait_after_a_miss;
}

class LoadingDesktop : public qt::QtDesktop {
public:
    LoadingDesktop(std::string file, std::string folder) : file_(std::move(file)), folder_(std::move(folder)) {}

    Clock& clock() override { return other_clock != nullptr ? *other_clock : QtDesktop::clock(); }
    SerialPorts& serial_ports() override { return ports; }
    FolderItem program_folder() override { return FolderItem(folder_); }
    DialogAnswer show_dialog(const MessageDialog&) override { return DialogAnswer::action; }
    std::optional<FolderItem> choose_open_file(const FileRequest&) override { return FolderItem(file_); }

    Clock* other_clock = nullptr;
    ObservedPorts ports{QtDesktop::serial_ports()};

private:
    const std::string file_;
    const std::string folder_;
};

struct Sample {
    LoadRecord load;
    Microseconds processor_time = 0;
    QStringList waits; // the emulator's answer to "waits"
};

struct Way {
    const char* name;
    Clock* clock; // null for the program's own
    std::vector<Sample> samples{};
};

void let_windows_settle() {
    for (const QDeadlineTimer deadline(500); !deadline.hasExpired();) {
        QCoreApplication::processEvents(QEventLoop::AllEvents, 50);
    }
}

QStringList expected_dump(const App& app) {
    QStringList lines;
    for (int level = 1; level <= 50; ++level) {
        const LevelBytes record = app.bytes(level);
        const QByteArray bytes(reinterpret_cast<const char*>(record.data()), static_cast<qsizetype>(record.size()));
        lines << QString::fromLatin1(bytes.toHex(' ') + " ff ff ff ff");
    }
    return lines;
}

class LoadBench {
public:
    LoadBench(const QString& emulator, const QString& file)
        : emulator_(emulator), desktop_(QFile::encodeName(file).toStdString(), folder_.path().toStdString()) {
        app_.start();
        app_.choose_menu("SettingsSetSerialPort");
        app_.settings_window->Serial_box.choose(1);
        app_.settings_window->close_by_user();
        app_.choose_menu("FileOpen");
        app_.choose_menu("ZephonLoadDirect");
        let_windows_settle();
    }
    ~LoadBench() { app_.editchanged = false; }

    Sample load(Clock* clock) {
        desktop_.other_clock = clock;
        desktop_.ports.record = {};
        Sample sample;
        app_.from_user("load", [&] {
            show_loading_notice(app_);
            const Microseconds before = processor_time();
            send_to_bank(app_, bank);
            sample.processor_time = processor_time() - before;
        });
        sample.load = desktop_.ports.record;
        sample.waits = emulator_.ask(QStringLiteral("waits"));
        check();
        let_windows_settle();
        return sample;
    }

private:
    void check() {
        if (emulator_.ask(QStringLiteral("dump %1").arg(bank)) != expected_dump(app_)) {
            throw std::runtime_error("the generator does not hold the file's levels");
        }
        const QStringList violations = emulator_.ask(QStringLiteral("violations"));
        if (violations.value(0) != QLatin1String("0")) {
            throw std::runtime_error("the generator found fault: " +
                                     violations.join(QLatin1String("; ")).toStdString());
        }
    }

    QTemporaryDir folder_;
    EmulatorProcess emulator_;
    LoadingDesktop desktop_;
    App app_{desktop_, {.StageCode = Stage::beta}};
};

template <class Measure> std::vector<double> sorted(const std::vector<Sample>& samples, Measure measure) {
    std::vector<double> values;
    std::transform(samples.begin(), samples.end(), std::back_inserter(values), measure);
    std::sort(values.begin(), values.end());
    return values;
}

template <class Measure> double median(const std::vector<Sample>& samples, Measure measure) {
    const std::vector<double> values = sorted(samples, measure);
    const std::size_t middle = values.size() / 2;
    return values.size() % 2 == 1 ? values[middle] : (values[middle - 1] + values[middle]) / 2;
}

double elapsed(const Sample& sample) {
    return static_cast<double>(sample.load.last_acknowledge - sample.load.first_write);
}

double over_all_waits(const Sample& sample) {
    return elapsed(sample) / static_cast<double>(all_waits(sample.load));
}

double over_fixed_waits(const Sample& sample) {
    return elapsed(sample) / static_cast<double>(fixed_waits(sample.load));
}

double processor_part(const Sample& sample) {
    return static_cast<double>(sample.processor_time) / elapsed(sample);
}

double milliseconds_in_the_line(const Sample& sample) {
    return static_cast<double>(sample.load.within_the_line) / 1e3;
}

double milliseconds_woken_late(const Sample& sample) {
    return (elapsed(sample) - static_cast<double>(all_waits(sample.load) + sample.load.within_the_line)) / 1e3;
}

void print_ways(const std::vector<Way>& ways) {
    std::puts("| Waiting by | Elapsed, s | Acknowledges not yet there | Elapsed / all prescribed waits (least, most) |"
              " Elapsed / fixed waits alone | Processor time / elapsed | In the serial line, ms | Woken late, ms |");
    std::puts("|---|---|---|---|---|---|---|---|");
    for (const Way& way : ways) {
        const auto of = [&](auto measure) { return median(way.samples, measure); };
        const std::vector<double> ratios = sorted(way.samples, over_all_waits);
        std::printf("| %s | %.3f | %.0f | %.4f (%.4f, %.4f) | %.4f | %.4f | %.0f | %.0f |\n", way.name,
                    of(elapsed) / 1e6, of([](const Sample& s) { return s.load.misses; }), of(over_all_waits),
                    ratios.front(), ratios.back(), of(over_fixed_waits), of(processor_part),
                    of(milliseconds_in_the_line), of(milliseconds_woken_late));
    }
}

// A word's number in one of the emulator's lines, such as the one behind "shortest".
long number_behind(const QString& line, const char* word) {
    const QStringList words = line.split(QLatin1Char(' '));
    const auto at = words.indexOf(QLatin1String(word));
    if (at < 0) {
        throw std::runtime_error("the emulator tells no " + std::string(word) + ": " + line.toStdString());
    }
    return words.value(at + 1).toLong();
}

// Over all loads of a way, as the emulator saw them.
void print_gaps(const Way& way) {
    std::puts("\n| Wait after | Prescribed, us | Waits | Least slack, us | Median gap, us | Longest "
              "gap, us |");
    std::puts("|---|---|---|---|---|---|");
    for (const char* name : {"call", "address_high", "first_byte", "further_byte", "padding"}) {
        long prescribed = 0, count = 0, slack = 1'000'000, longest = 0;
        std::vector<long> medians;
        for (const Sample& sample : way.samples) {
            const QString line = sample.waits.filter(QLatin1String(name)).value(0);
            prescribed = number_behind(line, "prescribed");
            count += number_behind(line, "count");
            slack = std::min(slack, number_behind(line, "slack"));
            longest = std::max(longest, number_behind(line, "longest"));
            medians.push_back(number_behind(line, "median"));
        }
        std::nth_element(medians.begin(), medians.begin() + static_cast<long>(medians.size() / 2), medians.end());
        std::printf("| %s | %ld | %ld | %ld | %ld | %ld |\n", name, prescribed, count, slack,
                    medians[medians.size() / 2], longest);
    }
}

int run(const QStringList& arguments) {
    if (arguments.size() != 4 || arguments[3].toInt() < 1) {
        std::fputs("usage: load_bench EMULATOR FILE ROUNDS\n", stderr);
        return 2;
    }
    SleepingClock sleeping;
    SpinningClock spinning;
    std::vector<Way> ways = {
        {"the program's clock", nullptr}, {"`sleep_until` alone", &sleeping}, {"spinning alone", &spinning}};
    LoadBench bench(arguments[1], arguments[2]);
    for (int round = 0; round < arguments[3].toInt(); ++round) {
        for (Way& way : ways) {
            way.samples.push_back(bench.load(way.clock));
        }
    }
    print_ways(ways);
    print_gaps(ways.front());
    return 0;
}

} // namespace
} // namespace tessit::bench

int main(int argc, char* argv[]) {
    return tessit::bench::run_bench(argc, argv, tessit::bench::run);
}
