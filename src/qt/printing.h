// SPDX-License-Identifier: MIT
// The print dialog and what prints: a printer of the system or a PDF file. Without any printer there is still the file.
#pragma once

#include "platform/graphics.h"

#include <QWidget>
#include <memory>

class QPrinter;

namespace tessit::qt {

std::unique_ptr<Graphics> system_printer(QPrinter& printer); // prints at once

// Remembers what was chosen last, for as long as the program runs.
class PrinterChoice {
public:
    PrinterChoice();
    ~PrinterChoice();
    std::unique_ptr<Graphics> ask(QWidget* parent); // null: dismissed

private:
    std::unique_ptr<QPrinter> printer_; // made when it is first needed: it looks for the system's printers
};

} // namespace tessit::qt
