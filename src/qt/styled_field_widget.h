// SPDX-License-Identifier: MIT
// A styled EditField. The widget edits text and styles together and tells both, so that undo covers styles too; what
// is pasted or dropped arrives as plain text.
#pragma once

#include "qt/edit_field_widget.h"

#include <QTextEdit>

namespace tessit::qt {

class StyledFieldWidget : public FieldWidget {
public:
    StyledFieldWidget(EditField& field, QWidget& parent);
    QSize needed_size() const override { return {}; } // long and large texts scroll

private:
    void show_values() override;
    void show_document();

    QTextEdit& edit_;
};

} // namespace tessit::qt
