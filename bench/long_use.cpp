// SPDX-License-Identifier: MIT
// What a day's work leaves in memory: long_use CYCLES [EMULATOR]. In each cycle a protocol is opened and saved through
// the real file dialogs, a level is typed, the editor is closed; with an emulator a bank is read and its window closed.
// Prints a Markdown table of resident memory and open descriptors after 1, 10, 100 cycles and each further hundred.
#include "bench/bench_main.h"
#include "bench/emulator_process.h"
#include "core/app.h"
#include "device/read_window.h"
#include "device/settings_window.h"
#include "editor/edit_window.h"
#include "program/main_window.h"

#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTimer>
#include <malloc.h>
#include <memory>
#include <stdexcept>
#include <unistd.h>

namespace tessit::bench {
namespace {

// The clock does not wait: what a read leaves behind does not depend on it.
class HastyClock : public Clock {
public:
    Microseconds now() override { return now_; }
    void idle(Microseconds at_most) override {
        now_ += at_most;
        ::usleep(50);
    }

private:
    Microseconds now_ = 0;
};

// Message boxes are answered by the program, file dialogs by `answer_dialog`.
class BusyDesktop : public qt::QtDesktop {
public:
    explicit BusyDesktop(std::string folder) : folder_(std::move(folder)) {}

    Clock& clock() override { return hasty_clock_; }
    FolderItem program_folder() override { return FolderItem(folder_); }
    DialogAnswer show_dialog(const MessageDialog&) override { return DialogAnswer::alternate; }

private:
    const std::string folder_;
    HastyClock hasty_clock_;
};

// Types the name into the next file dialog and presses Return.
void answer_dialog(const QString& name) {
    QTimer::singleShot(0, qApp, [name] {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        if (dialog == nullptr) {
            return answer_dialog(name);
        }
        dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(name);
        dialog->setOption(QFileDialog::DontConfirmOverwrite);
        QMetaObject::invokeMethod(dialog, "accept");
    });
}

class LongUse {
public:
    explicit LongUse(const QString& emulator) : desktop_(folder_.path().toStdString()) {
        if (!emulator.isEmpty()) {
            emulator_ = std::make_unique<EmulatorProcess>(emulator);
        }
        app_.start();
        first_protocol();
        if (emulator_ != nullptr) {
            emulator_->ask(QStringLiteral("fill 7"));
            app_.choose_menu("SettingsSetSerialPort");
            app_.settings_window->Serial_box.choose(1);
            app_.settings_window->close_by_user();
        }
    }

    void cycle() {
        edit_file();
        if (emulator_ != nullptr) {
            read_bank();
        }
    }

private:
    void first_protocol() {
        app_.choose_menu("FileCreateNewFile");
        type_level();
        save();
        close(app_.editwindow.get());
    }

    void edit_file() {
        answer_dialog(QStringLiteral("day.zp2"));
        app_.choose_menu("FileOpen");
        settle();
        app_.editwindow->edit_displayBox.double_click(1);
        type_level();
        save();
        close(app_.editwindow.get());
    }

    void read_bank() {
        app_.choose_menu("ZephonReadZephon");
        settle();
        emulator_->ask(QStringLiteral("5 2 7 #"));
        app_.ReadZPWindow->Readbutton.click();
        if (app_.ReadZPWindow->displaybox.ListCount() < 50) {
            throw std::runtime_error("the bank was not read");
        }
        app_.readchanged = false; // so that nothing is asked
        close(app_.ReadZPWindow.get());
    }

    void type_level() {
        app_.editwindow->FreqField.edit("7.83");
        app_.editwindow->FreqField.press(keys::return_);
        settle();
    }

    void save() {
        answer_dialog(QStringLiteral("day.zp2"));
        app_.choose_menu("FileSave");
        app_.editchanged = false;
        settle();
    }

    static void close(Window& window) {
        window.close_by_user();
        settle();
    }

    // As the event loop does between two hands of the user.
    static void settle() {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    QTemporaryDir folder_;
    std::unique_ptr<EmulatorProcess> emulator_;
    BusyDesktop desktop_;
    App app_{desktop_, {.StageCode = Stage::beta}};
};

long resident_pages() {
    QFile status(QStringLiteral("/proc/self/statm"));
    return status.open(QIODevice::ReadOnly) ? status.readAll().split(' ').value(1).toLong() : 0;
}

void print(int cycle) {
    malloc_trim(0); // what is free again is no growth
    const auto descriptors = QDir(QStringLiteral("/proc/self/fd")).entryList(QDir::AllEntries | QDir::System).size();
    std::printf("| %d | %.1f | %.2f | %d |\n", cycle,
                static_cast<double>(resident_pages() * sysconf(_SC_PAGESIZE)) / 1e6,
                static_cast<double>(mallinfo2().uordblks) / 1e6, static_cast<int>(descriptors));
    std::fflush(stdout);
}

int run(const QStringList& arguments) {
    const int cycles = arguments.value(1).toInt();
    if (arguments.size() < 2 || arguments.size() > 3 || cycles < 1) {
        std::fputs("usage: long_use CYCLES [EMULATOR]\n", stderr);
        return 2;
    }
    LongUse use(arguments.value(2));
    std::puts("| Cycles | Resident, MB | Allocated, MB | Descriptors |\n|---|---|---|---|");
    for (int cycle = 1; cycle <= cycles; ++cycle) {
        use.cycle();
        if (cycle == 1 || cycle == 10 || cycle % 100 == 0) {
            print(cycle);
        }
    }
    return 0;
}

} // namespace
} // namespace tessit::bench

int main(int argc, char* argv[]) {
    return tessit::bench::run_bench(argc, argv, tessit::bench::run);
}
