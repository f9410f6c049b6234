// SPDX-License-Identifier: MIT
// read_bench EMULATOR ROUNDS: the program on the real desktop reads a bank of fifty levels from a running emulator
// that sends at the line's 1920 bytes a second, with adapters of 0, 1 and 3 ms of latency, ROUNDS times each with the
// program's clock and with pure spinning in turn, and prints a Markdown table. Each reading counts the levels that
// arrived as the generator holds them.
#include "bench/bench_main.h"
#include "bench/clocks.h"
#include "bench/emulator_process.h"
#include "core/app.h"
#include "device/read_window.h"
#include "device/settings_window.h"
#include "program/main_window.h"

#include <algorithm>
#include <cstdio>
#include <stdexcept>

namespace tessit::bench {
namespace {

constexpr int bank = 3;
constexpr int levels = 50;

// docs/wire-format.md, stated once more: from the first byte of the answer to the last acknowledge.
constexpr double prescribed_waits = 5'000 + 55 * (12'000 + 10);

class ReadingDesktop : public qt::QtDesktop {
public:
    explicit ReadingDesktop(std::string folder) : folder_(std::move(folder)) {}

    Clock& clock() override { return other_clock != nullptr ? *other_clock : QtDesktop::clock(); }
    FolderItem program_folder() override { return FolderItem(folder_); }
    DialogAnswer show_dialog(const MessageDialog&) override { return DialogAnswer::alternate; }

    Clock* other_clock = nullptr;

private:
    const std::string folder_;
};

struct Case {
    int latency = 0; // milliseconds
    const char* name = "";
    Clock* clock = nullptr;       // null for the program's own
    std::vector<double> ratios{}; // elapsed over the prescribed waits
    std::vector<double> processor_parts{};
    int perfect = 0; // readings with all fifty levels right
    int fewest = levels;
};

class ReadBench {
public:
    explicit ReadBench(const QString& emulator) : emulator_(emulator), desktop_(folder_.path().toStdString()) {
        emulator_.ask(QStringLiteral("fill %1").arg(bank));
        emulator_.ask(QStringLiteral("pace on"));
        held_ = emulator_.ask(QStringLiteral("dump %1").arg(bank));
        app_.start();
        app_.choose_menu("SettingsSetSerialPort");
        app_.settings_window->Serial_box.choose(1);
        app_.settings_window->close_by_user();
        app_.choose_menu("ZephonReadZephon");
        QCoreApplication::processEvents();
    }

    void read(Case& reading) {
        emulator_.ask(QStringLiteral("latency %1").arg(reading.latency));
        desktop_.other_clock = reading.clock;
        app_.readchanged = false; // so that nothing is asked
        emulator_.ask(QStringLiteral("5 2 %1 #").arg(bank));
        const Microseconds before = processor_time();
        const Microseconds start = steady_now();
        app_.ReadZPWindow->Readbutton.click();
        const auto whole = static_cast<double>(steady_now() - start);
        reading.processor_parts.push_back(static_cast<double>(processor_time() - before) / whole);
        reading.ratios.push_back(measured() / prescribed_waits);
        const int right = levels_right();
        reading.perfect += right == levels ? 1 : 0;
        reading.fewest = std::min(reading.fewest, right);
        QCoreApplication::processEvents();
    }

private:
    // As the emulator timed it, from the answer to the last acknowledge.
    double measured() {
        const QStringList told = emulator_.ask(QStringLiteral("waits")).filter(QStringLiteral("reading "));
        const QStringList words = told.value(told.size() - 1).split(QLatin1Char(' '));
        if (words.size() < 2) {
            throw std::runtime_error("the emulator timed no reading");
        }
        return words.value(1).toDouble();
    }

    int levels_right() const {
        int right = 0;
        for (int level = 0; level < levels; ++level) {
            const LevelBytes record = app_.bytes(level);
            const QByteArray bytes(reinterpret_cast<const char*>(record.data()), record_offset::errorchk);
            right += held_.value(level).startsWith(QString::fromLatin1(bytes.toHex(' '))) ? 1 : 0;
        }
        return right;
    }

    QTemporaryDir folder_;
    EmulatorProcess emulator_;
    ReadingDesktop desktop_;
    App app_{desktop_, {.StageCode = Stage::beta}};
    QStringList held_;
};

double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

void print(const Case& reading, int rounds) {
    const auto [least, most] = std::minmax_element(reading.ratios.begin(), reading.ratios.end());
    std::printf("| %d | %s | %d of %d | %d | %.4f (%.4f, %.4f) | %.3f |\n", reading.latency, reading.name,
                reading.perfect, rounds, reading.fewest, median(reading.ratios), *least, *most,
                median(reading.processor_parts));
}

int run(const QStringList& arguments) {
    const int rounds = arguments.value(2).toInt();
    if (arguments.size() != 3 || rounds < 1) {
        std::fputs("usage: read_bench EMULATOR ROUNDS\n", stderr);
        return 2;
    }
    SpinningClock spinning;
    std::vector<Case> cases;
    for (const int latency : {0, 1, 3}) {
        cases.push_back({.latency = latency, .name = "the program's clock"});
        cases.push_back({.latency = latency, .name = "spinning alone", .clock = &spinning});
    }
    ReadBench bench(arguments[1]);
    for (int round = 0; round < rounds; ++round) {
        for (Case& reading : cases) {
            bench.read(reading);
        }
    }
    std::puts("| Latency, ms | Waiting by | Readings with 50 of 50 levels | Fewest levels right | Elapsed / prescribed "
              "waits (least, most) | Processor time / elapsed |");
    std::puts("|---|---|---|---|---|---|");
    for (const Case& reading : cases) {
        print(reading, rounds);
    }
    return 0;
}

} // namespace
} // namespace tessit::bench

int main(int argc, char* argv[]) {
    return tessit::bench::run_bench(argc, argv, tessit::bench::run);
}
