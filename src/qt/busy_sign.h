// SPDX-License-Identifier: MIT
// What the user sees of a handler that takes longer than a moment: the wait cursor, and the button that was pressed
// stays down. One that waits or paints lets it be seen when the moment is over. One that only computes can't; where it
// works on much text the cursor comes before it begins. Short commands don't touch it: it would flicker.
#pragma once

#include <QAbstractButton>

namespace tessit {
class Window;
}

namespace tessit::qt {

// For as long as a command runs that the user chose in `window`; its events may be several.
class CommandSign {
public:
    explicit CommandSign(const Window& window, QAbstractButton* pressed = nullptr);
    CommandSign(const CommandSign&) = delete;
    CommandSign& operator=(const CommandSign&) = delete;
    ~CommandSign();
};

// For as long as a handler asks the user something: nothing says that it is busy.
class QuestionSign {
public:
    QuestionSign();
    QuestionSign(const QuestionSign&) = delete;
    QuestionSign& operator=(const QuestionSign&) = delete;
    ~QuestionSign();
};

void handler_works_on(qint64 bytes); // from now on
bool handler_has_much_to_do();       // it is going to take longer than a moment
void handler_goes_on();              // it still runs, and the screen is about to be painted
void handler_ended();                // the outermost one

} // namespace tessit::qt
