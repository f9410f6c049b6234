// SPDX-License-Identifier: MIT
#include "qt/control_factory.h"

#include "platform/fault.h"
#include "qt/bevel_button_widget.h"
#include "qt/button_widgets.h"
#include "qt/choice_widgets.h"
#include "qt/edit_field_widget.h"
#include "qt/html_viewer_widget.h"
#include "qt/listbox_widget.h"
#include "qt/static_widgets.h"
#include "qt/styled_field_widget.h"

#include <QLineEdit>
#include <QPlainTextEdit>

namespace tessit::qt {

namespace {

template <class Adapter, class Model>
bool make_if(Control& control, QWidget& parent, std::unique_ptr<ControlWidget>& made) {
    auto* model = dynamic_cast<Model*>(&control);
    if (model != nullptr && made == nullptr) {
        made = std::make_unique<Adapter>(*model, parent);
    }
    return made != nullptr;
}

std::unique_ptr<ControlWidget> make_field(EditField& field, QWidget& parent) {
    if (field.own().styled) {
        return std::make_unique<StyledFieldWidget>(field, parent);
    }
    if (field.own().multiline) {
        return std::make_unique<TextFieldWidget>(field, parent);
    }
    return std::make_unique<LineFieldWidget>(field, parent);
}

void set_buddy(QComboBox& box, const QString& name) {
    auto* label = new QLabel(name, box.parentWidget());
    label->setObjectName(box.objectName() + QLatin1String("_label"));
    label->setTextFormat(Qt::PlainText);
    label->setBuddy(&box);
    label->hide();
    if (box.lineEdit() != nullptr) {
        box.lineEdit()->setAccessibleName(name);
    }
}

} // namespace

std::unique_ptr<ControlWidget> make_control_widget(Control& control, QWidget& parent) {
    if (auto* field = dynamic_cast<EditField*>(&control)) {
        return make_field(*field, parent);
    }
    std::unique_ptr<ControlWidget> made;
    if (make_if<ComboBoxWidget, ComboBox>(control, parent, made) ||
        make_if<PopupMenuWidget, PopupMenu>(control, parent, made) ||
        make_if<PushButtonWidget, PushButton>(control, parent, made) ||
        make_if<RadioButtonWidget, RadioButton>(control, parent, made) ||
        make_if<BevelButtonWidget, BevelButton>(control, parent, made) ||
        make_if<LineWidget, Line>(control, parent, made) || make_if<ListboxWidget, Listbox>(control, parent, made) ||
        make_if<StaticTextWidget, StaticText>(control, parent, made) ||
        make_if<GroupBoxWidget, GroupBox>(control, parent, made) ||
        make_if<ProgressBarWidget, ProgressBar>(control, parent, made) ||
        make_if<ImageWellWidget, ImageWell>(control, parent, made) ||
        make_if<HTMLViewerWidget, HTMLViewer>(control, parent, made)) {
        return made;
    }
    throw Fault(FaultKind::internal, "No widget shows the control \"" + control.name() + "\".");
}

void give_accessible_names(const std::vector<std::unique_ptr<ControlWidget>>& controls) {
    for (const auto& control : controls) {
        QWidget& widget = control->widget();
        const bool has_no_caption =
            qobject_cast<QLineEdit*>(&widget) != nullptr || qobject_cast<QPlainTextEdit*>(&widget) != nullptr ||
            qobject_cast<QAbstractItemView*>(&widget) != nullptr || qobject_cast<QComboBox*>(&widget) != nullptr;
        if (has_no_caption && widget.accessibleName().isEmpty()) {
            widget.setAccessibleName(widget.objectName());
        }
        if (auto* box = qobject_cast<QComboBox*>(&widget)) {
            set_buddy(*box, widget.accessibleName());
        }
    }
}

} // namespace tessit::qt
