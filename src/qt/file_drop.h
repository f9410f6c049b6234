// SPDX-License-Identifier: MIT
// Files dragged onto a window: taken where the window's menu could open them, and opened as if chosen there.
#pragma once

#include <QObject>

namespace tessit::qt {

class WindowWidget;

class FileDrop : public QObject {
public:
    explicit FileDrop(WindowWidget& window); // once it has all of its widgets

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    WindowWidget& window_;
};

} // namespace tessit::qt
