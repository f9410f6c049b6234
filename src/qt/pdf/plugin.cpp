// SPDX-License-Identifier: MIT
#include "qt/pdf/plugin.h"

#include "qt/pdf/pdf_view.h"

namespace tessit::qt {

PdfPage& PdfPlugin::make_page(QWidget& parent) {
    return *new PdfView(parent);
}

} // namespace tessit::qt
