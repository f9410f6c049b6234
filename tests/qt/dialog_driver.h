// SPDX-License-Identifier: MIT
// Answers modal dialogs while the code under test waits for them.
#pragma once

#include <QtWidgets>
#include <functional>

namespace tessit::qt {

class DialogDriver {
public:
    // Runs `act` on the next dialog of class D as soon as it is up. `act` may prepare the next answer.
    template <class D> void when_shown(std::function<void(D&)> act) {
        auto* poll = new QTimer(&timers_);
        QObject::connect(poll, &QTimer::timeout, [poll, act] {
            auto* dialog = qobject_cast<D*>(QApplication::activeModalWidget());
            if (dialog != nullptr && dialog->isVisible()) {
                poll->stop();
                poll->deleteLater();
                act(*dialog);
            }
        });
        poll->start(5);
    }

private:
    QObject timers_;
};

} // namespace tessit::qt
