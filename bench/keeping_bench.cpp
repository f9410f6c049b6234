// SPDX-License-Identifier: MIT
// What a key costs while unsaved work is kept: keeping_bench [KEYS]. Keys are typed into the consolidator beside a list
// of 100,000 frequencies that has unsaved changes, with recovery copies and without, and with a disk whose every flush
// takes 0.3 seconds. Prints a Markdown table of the time in which each key is through, and of the longest turn of the
// event loop between two keys, in which the copy's values are taken.
#include "bench/bench_main.h"
#include "consolidator/consolidator_window.h"
#include "core/app.h"

#include <QElapsedTimer>
#include <QTemporaryDir>
#include <algorithm>
#include <atomic>
#include <cstdio>
#include <unistd.h>

namespace {

std::atomic<bool> disk_is_slow = false;
std::atomic<int> flushes = 0;

} // namespace

extern "C" int fsync(int descriptor) { // in place of the system's
    ++flushes;
    if (disk_is_slow) {
        ::usleep(300'000);
    }
    return ::fdatasync(descriptor);
}

namespace tessit::bench {
namespace {

enum class Keeping { none, usual, slow_disk };

class ListDesktop : public qt::QtDesktop {
public:
    explicit ListDesktop(Keeping keeping) : keeping_(keeping) {}

    FolderItem program_folder() override { return FolderItem(folder_.path().toStdString()); }
    std::optional<FolderItem> recovery_folder() override {
        return keeping_ == Keeping::none ? std::nullopt : std::optional(program_folder().Child("recovery"));
    }
    DialogAnswer show_dialog(const MessageDialog&) override { return DialogAnswer::alternate; }

private:
    const Keeping keeping_;
    QTemporaryDir folder_;
};

struct Times { // in milliseconds
    std::vector<double> keys;
    double longest_turn = 0;
};

double milliseconds_of(const std::function<void()>& step) {
    QElapsedTimer timer;
    timer.start();
    step();
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

Times type_keys(int count, Keeping keeping) {
    ListDesktop desktop(keeping);
    App app(desktop, Version{});
    app.start();
    app.choose_menu("ConsolidatorNew");
    std::string list;
    for (int i = 0; i < 100'000; ++i) {
        list += std::to_string(i % 9'000 + 10) + "." + std::to_string(i % 10) + ",";
    }
    ConsolidatorWindow& window = app.consolidatorWindow.get();
    app.from_user("list", [&] {
        window.freqdisplayfield.SetText(list);
        app.consolidatorchanged = true;
    });
    disk_is_slow = keeping == Keeping::slow_disk;
    Times times;
    for (int i = 0; i < count; ++i) {
        times.keys.push_back(milliseconds_of([&] { window.entryField.type("1"); }));
        for (int turn = 0; turn < 10; ++turn) {
            ::usleep(3'000);
            times.longest_turn =
                std::max(times.longest_turn, milliseconds_of([] { QCoreApplication::processEvents(); }));
        }
    }
    app.consolidatorchanged = false;
    return times;
}

void measure(const char* name, int count, Keeping keeping) {
    const int flushes_before = flushes;
    Times times = type_keys(count, keeping);
    std::sort(times.keys.begin(), times.keys.end());
    std::printf("| %s | %.3f | %.3f | %.3f | %.1f | %d |\n", name, times.keys[times.keys.size() / 2],
                times.keys[times.keys.size() * 99 / 100], times.keys.back(), times.longest_turn,
                flushes - flushes_before);
}

} // namespace
} // namespace tessit::bench

int main(int argc, char* argv[]) {
    using namespace tessit::bench;
    const tessit::qt::GuiApplication application(argc, argv);
    const int keys = argc > 1 ? std::max(std::atoi(argv[1]), 1) : 300;
    std::puts("| Unsaved work | key: median ms | 99 % | longest | longest turn of the loop | flushes "
              "|\n|---|---|---|---|---|---|");
    measure("is not kept", keys, Keeping::none);
    measure("is kept", keys, Keeping::usual);
    measure("is kept, each flush takes 300 ms", keys, Keeping::slow_disk);
}
