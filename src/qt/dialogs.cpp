// SPDX-License-Identifier: MIT
#include "qt/dialogs.h"

#include "qt/earlier_input.h"
#include "qt/widget_text.h"

#include <QLabel>
#include <QMessageBox>
#include <QPushButton>

namespace tessit::qt {

namespace {

int shown = 0;
constexpr auto program_title = "Tessit Control";

QMessageBox::Icon icon_of(DialogIcon icon) {
    switch (icon) {
    case DialogIcon::note:
        return QMessageBox::Information;
    case DialogIcon::caution:
        return QMessageBox::Warning;
    case DialogIcon::stop:
        return QMessageBox::Critical;
    case DialogIcon::question:
        return QMessageBox::Question;
    default:
        return QMessageBox::NoIcon;
    }
}

QPushButton* add_button(QMessageBox& box, const DialogButton& button, QMessageBox::ButtonRole role, const char* name) {
    if (!button.Visible) {
        return nullptr;
    }
    QPushButton* added = box.addButton(to_caption(button.Caption), role);
    added->setObjectName(QLatin1String(name));
    return added;
}

void set_texts(QMessageBox& box, const std::string& message, const std::string& explanation) {
    box.setTextFormat(Qt::PlainText);
    box.setText(to_widget(message));
    box.setInformativeText(to_widget(explanation));
    for (auto* label : box.findChildren<QLabel*>()) { // the box's own format holds for the message alone
        label->setTextFormat(Qt::PlainText);
    }
}

} // namespace

DialogAnswer show_dialog(QWidget* parent, const MessageDialog& dialog) {
    QMessageBox box(parent);
    box.setObjectName(QStringLiteral("message_dialog"));
    box.setWindowTitle(QLatin1String(program_title));
    box.setIcon(icon_of(dialog.Icon));
    set_texts(box, dialog.Message, dialog.Explanation);
    QPushButton* action = add_button(box, dialog.ActionButton, QMessageBox::AcceptRole, "ActionButton");
    QPushButton* cancel = add_button(box, dialog.CancelButton, QMessageBox::RejectRole, "CancelButton");
    QPushButton* alternate =
        add_button(box, dialog.AlternateActionButton, QMessageBox::DestructiveRole, "AlternateActionButton");
    if (action != nullptr) {
        box.setDefaultButton(action);
    }
    if (cancel != nullptr) {
        box.setEscapeButton(cancel);
    }
    ++shown;
    drop_input_so_far();
    box.exec();
    const QAbstractButton* answer = box.clickedButton();
    if (answer != nullptr && answer == alternate) {
        return DialogAnswer::alternate;
    }
    return answer != nullptr && answer == action ? DialogAnswer::action : DialogAnswer::cancel;
}

void show_fault(QWidget* parent, const FaultReport& report) {
    QMessageBox box(parent);
    box.setObjectName(QStringLiteral("fault_report"));
    box.setWindowTitle(QLatin1String(program_title));
    box.setIcon(QMessageBox::Critical);
    const std::string place = report.handler.empty() ? "" : "\rIn: " + report.handler;
    set_texts(box, "The command could not be finished.",
              report.what + place + "\r\rOpen documents are kept as they are.");
    box.addButton(QMessageBox::Ok);
    ++shown;
    drop_input_so_far();
    box.exec();
}

int dialogs_shown() {
    return shown;
}

void count_dialog() {
    ++shown;
}

} // namespace tessit::qt
