// SPDX-License-Identifier: MIT
// The print dialog and what prints: a printer of the system or a PDF file. Without any printer there is still the file.
#pragma once

#include "platform/graphics.h"

#include <QString>
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
    // `document` names the page: in the dialog's title, in the printer's list of jobs, in the PDF and for its file,
    // which is proposed where the last one was made, or else in `last_folder`. Null: dismissed.
    std::unique_ptr<Graphics> ask(QWidget* parent, const QString& document, const QString& last_folder);
    QString folder() const; // of the PDF file that was chosen last; empty where none was

private:
    std::unique_ptr<QPrinter> printer_; // made when it is first needed: it looks for the system's printers
};

} // namespace tessit::qt
