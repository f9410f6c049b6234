// SPDX-License-Identifier: MIT
// The module's door, by which the program gets its pages.
#pragma once

#include "qt/pdf_page.h"

#include <QObject>

namespace tessit::qt {

class PdfPlugin : public QObject, public PdfPages {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "example.tessit.Control.PdfPages")
    Q_INTERFACES(tessit::qt::PdfPages)

public:
    PdfPage& make_page(QWidget& parent) override;
};

} // namespace tessit::qt
