// SPDX-License-Identifier: MIT
// The ways in which the system ends the program: SIGTERM, SIGINT and SIGHUP, and the end of the user's session.
#pragma once

#include <QObject>
#include <atomic>
#include <functional>
#include <thread>

class QSessionManager;

namespace tessit::qt {

// While it lives, a signal or the session's last word runs `keep` in the thread of the windows, at once or where a
// handler waits, and ends the process: with 128 + the signal's number, or 0. Where `keep` can't be run or takes longer
// than most of a second, the process ends without it. There is one at a time.
class Endings : public QObject {
public:
    // `may_end` asks the user about unsaved work; false keeps the session.
    Endings(std::function<void()> keep, std::function<bool()> may_end);
    ~Endings() override;

private:
    void watch();
    void end(int status);
    void ask_for_session(QSessionManager& manager);
    bool eventFilter(QObject* watched, QEvent* event) override;

    const std::function<void()> keep_;
    const std::function<bool()> may_end_;
    std::thread watcher_;
};

} // namespace tessit::qt
