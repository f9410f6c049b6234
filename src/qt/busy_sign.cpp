// SPDX-License-Identifier: MIT
#include "qt/busy_sign.h"

#include "platform/edit_field.h"
#include "platform/window.h"

#include <QElapsedTimer>
#include <QGuiApplication>
#include <QPointer>

namespace tessit::qt {

namespace {

constexpr int moment = 200;           // milliseconds
constexpr qint64 much_text = 200'000; // bytes; no command on less takes longer than a moment

struct Sign {
    bool in_command = false;
    bool much_to_do = false;
    bool cursor_shown = false;
    QPointer<QAbstractButton> button; // that the user pressed
    QElapsedTimer since_seen;         // at work
};

Sign sign; // the application's one

void show_cursor() {
    if (!sign.cursor_shown) {
        sign.cursor_shown = true;
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    }
}

void show_idle() {
    sign.since_seen.invalidate();
    if (sign.button != nullptr) {
        sign.button->setDown(false);
    }
    if (sign.cursor_shown) {
        sign.cursor_shown = false;
        QGuiApplication::restoreOverrideCursor();
    }
}

qint64 text_in(const Window& window) {
    qint64 bytes = 0;
    for (const Control* control : window.controls()) {
        const auto* field = dynamic_cast<const EditField*>(control);
        bytes += field == nullptr ? 0 : static_cast<qint64>(field->Text().size());
    }
    return bytes;
}

} // namespace

CommandSign::CommandSign(const Window& window, QAbstractButton* pressed) {
    sign.in_command = true;
    sign.button = pressed;
    handler_works_on(text_in(window));
}

CommandSign::~CommandSign() {
    show_idle();
    sign = {};
}

QuestionSign::QuestionSign() {
    show_idle();
}

QuestionSign::~QuestionSign() {
    if (sign.much_to_do) {
        show_cursor();
    }
}

void handler_works_on(qint64 bytes) {
    if (sign.in_command && bytes >= much_text) {
        sign.much_to_do = true;
        show_cursor();
    }
}

bool handler_has_much_to_do() {
    return sign.much_to_do;
}

void handler_goes_on() {
    if (sign.button != nullptr) {
        sign.button->setDown(true);
    }
    if (!sign.since_seen.isValid()) {
        sign.since_seen.start();
    } else if (sign.since_seen.hasExpired(moment)) {
        show_cursor();
    }
}

void handler_ended() {
    if (!sign.in_command) { // else another of its handlers may follow
        show_idle();
    }
}

} // namespace tessit::qt
