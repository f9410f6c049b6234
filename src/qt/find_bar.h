// SPDX-License-Identifier: MIT
// The line below a document in which a text is typed that is looked for.
#pragma once

#include "qt/found_place.h"

#include <QLabel>
#include <QLineEdit>
#include <QWidget>
#include <functional>

namespace tessit::qt {

class FindBar : public QWidget {
public:
    explicit FindBar(QWidget& parent);

    void open(); // shown, with the focus, its old text selected
    void shut();
    QString text() const { return edit_.text(); }
    void tell(const FoundPlace& place);
    void tell_nothing();

    std::function<void()> on_typed{};
    std::function<void(bool backward)> on_find{};
    std::function<void()> on_shut{};

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    QLineEdit& edit_;
    QLabel& result_;
};

} // namespace tessit::qt
