// SPDX-License-Identifier: MIT
// The line below a document in which a text is typed that is looked for.
#pragma once

#include <QLabel>
#include <QLineEdit>
#include <QWidget>
#include <functional>

namespace tessit::qt {

// Which of the places where a text stands is shown, counted from 1 in the document's order. 0 of 0: it stands nowhere.
struct FoundPlace {
    int number = 0;
    int count = 0;
};

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
