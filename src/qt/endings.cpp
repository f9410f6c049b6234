// SPDX-License-Identifier: MIT
#include "qt/endings.h"

#include <QCoreApplication>
#include <QEvent>
#include <QGuiApplication>
#include <QSessionManager>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace tessit::qt {

namespace {

constexpr int end_signals[] = {SIGTERM, SIGINT, SIGHUP};
constexpr auto longest_keeping = std::chrono::milliseconds(800);
constexpr char nothing_more = 0;

int ends[2] = {-1, -1}; // a pipe from the signal handler, which may do little more than write, to the watcher

extern "C" void note_signal(int signal) {
    const int error = errno;
    const char number = static_cast<char>(signal);
    [[maybe_unused]] const auto written = write(ends[1], &number, 1);
    errno = error;
}

void set_handler(void (*handler)(int)) {
    struct sigaction action = {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    for (const int signal : end_signals) {
        struct sigaction old = {};
        sigaction(signal, nullptr, &old);
        if (old.sa_handler != SIG_IGN) { // as under nohup
            sigaction(signal, &action, nullptr);
        }
    }
}

} // namespace

Endings::Endings(std::function<void()> keep, std::function<bool()> may_end)
    : keep_(std::move(keep)), may_end_(std::move(may_end)) {
    if (pipe2(ends, O_CLOEXEC) == 0) {
        watcher_ = std::thread([this] { watch(); });
        set_handler(note_signal);
    }
    connect(qApp, &QGuiApplication::commitDataRequest, this, &Endings::ask_for_session, Qt::DirectConnection);
    qApp->installEventFilter(this);
}

Endings::~Endings() {
    if (watcher_.joinable()) {
        set_handler(SIG_DFL);
        [[maybe_unused]] const auto written = write(ends[1], &nothing_more, 1);
        watcher_.join();
        close(ends[0]);
        close(ends[1]);
    }
}

void Endings::watch() {
    char signal = nothing_more;
    while (read(ends[0], &signal, 1) < 0 && errno == EINTR) {
    }
    if (signal == nothing_more) {
        return;
    }
    const int status = 128 + signal;
    const auto end_now = [this, status] { end(status); };
    QMetaObject::invokeMethod(this, end_now, Qt::QueuedConnection);
    std::this_thread::sleep_for(longest_keeping);
    _exit(status);
}

// Without unwinding: a handler may be in the middle of its work, which is no more than what a kill would stop.
void Endings::end(int status) {
    keep_();
    _exit(status);
}

void Endings::ask_for_session(QSessionManager& manager) {
    if (!manager.allowsInteraction()) {
        return;
    }
    if (may_end_()) {
        manager.release();
    } else {
        manager.cancel(); // and no release, with which Qt would say that all is well
    }
}

// The session's last word. Qt would ask the windows to close, which ask the user.
bool Endings::eventFilter(QObject* watched, QEvent* event) {
    if (watched == qApp && event->type() == QEvent::Quit) {
        end(0);
    }
    return false;
}

} // namespace tessit::qt
