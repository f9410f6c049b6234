// SPDX-License-Identifier: MIT
// Finds and loads the module that shows PDF documents (pdf_page.h). Once loaded it stays until the program's end.
#pragma once

#include <QStringList>
#include <QWidget>

namespace tessit::qt {

class PdfPage;

QStringList pdf_module_folders(); // the executable's, then that of an installation, wherever it was moved to

// In the first of the folders that has the module; its faults say what is missing, or why it can't be used.
PdfPage& make_pdf_page(QWidget& parent, const QStringList& folders);

} // namespace tessit::qt
