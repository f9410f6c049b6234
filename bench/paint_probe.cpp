// SPDX-License-Identifier: MIT
// Loaded into an unchanged Qt program by LD_PRELOAD: ends it as soon as a window is painted and prints one line,
//   painted WINDOW NANOSECONDS KILOBYTES MICROSECONDS
// with the object name (or class) of the window, the steady clock, the peak of resident memory since the program's
// start, and the processor time that it has used. The first window counts, or that with the object name
// PAINT_PROBE_WINDOW, as soon as its table has PAINT_PROBE_ROWS rows.
//
// Painted means: a widget of the window was painted while the window was exposed, the program waits for events, what
// it had to paint went to the X server, and the server has answered a request that was sent after it.
#include <QApplication>
#include <QFile>
#include <QTableView>
#include <QThread>
#include <QTimer>
#include <QWidget>
#include <QWindow>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <sys/resource.h>
#include <unistd.h>
#include <xcb/xcb.h>

namespace {

void wait_for_x_server() {
    if (const auto* x11 = qApp->nativeInterface<QNativeInterface::QX11Application>()) {
        xcb_connection_t* connection = x11->connection();
        std::free(xcb_get_input_focus_reply(connection, xcb_get_input_focus(connection), nullptr));
    }
}

long long nanoseconds() {
    timespec time{};
    clock_gettime(CLOCK_MONOTONIC, &time);
    return static_cast<long long>(time.tv_sec) * 1'000'000'000 + time.tv_nsec;
}

int peak_kilobytes() {
    QFile status(QStringLiteral("/proc/self/status"));
    status.open(QIODevice::ReadOnly);
    for (const QByteArray& line : status.readAll().split('\n')) {
        if (line.startsWith("VmHWM:")) {
            return line.simplified().split(' ').value(1).toInt();
        }
    }
    return 0;
}

long processor_microseconds() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return (usage.ru_utime.tv_sec + usage.ru_stime.tv_sec) * 1'000'000 + usage.ru_utime.tv_usec +
           usage.ru_stime.tv_usec;
}

class PaintProbe : public QObject {
public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Paint && !painted_ && watched->isWidgetType()) {
            const QWidget& window = *static_cast<QWidget*>(watched)->window();
            if (is_wanted(window) && window.windowHandle() != nullptr && window.windowHandle()->isExposed()) {
                painted_ = true;
                name_ = name_of(window);
                QTimer::singleShot(0, Qt::PreciseTimer, this, [this] { when_painted(); }); // behind the whole painting
            }
        }
        return false;
    }

private:
    static QByteArray name_of(const QWidget& window) {
        const QByteArray name = window.objectName().toUtf8();
        return name.isEmpty() ? QByteArray(window.metaObject()->className()) : name;
    }

    static bool is_wanted(const QWidget& window) {
        const QByteArray wanted = qgetenv("PAINT_PROBE_WINDOW");
        return (wanted.isEmpty() || wanted == window.objectName().toUtf8()) &&
               rows_of(window) >= qEnvironmentVariableIntValue("PAINT_PROBE_ROWS");
    }

    static int rows_of(const QWidget& window) {
        const auto* table = window.findChild<QTableView*>();
        return table == nullptr ? 0 : table->model()->rowCount();
    }

    // Without an event loop a handler has only looked at what waits; what it still changes is to be painted too.
    void when_painted() {
        const bool waits_for_events = QThread::currentThread()->loopLevel() > 0;
        if (waits_for_events && behind_the_handler_) {
            report();
        }
        behind_the_handler_ = waits_for_events;
        QTimer::singleShot(0, Qt::PreciseTimer, this, [this] { when_painted(); });
    }

    [[noreturn]] void report() {
        wait_for_x_server();
        const long long now = nanoseconds();
        const long used = processor_microseconds();
        std::printf("painted %s %lld %d %ld\n", name_.constData(), now, peak_kilobytes(), used);
        std::fflush(stdout);
        _exit(0);
    }

    bool painted_ = false;
    bool behind_the_handler_ = false;
    QByteArray name_;
};

void watch() {
    qApp->installEventFilter(new PaintProbe(qApp));
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(watch)
