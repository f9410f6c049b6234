// SPDX-License-Identifier: MIT
#include "qt/dialogs.h"

#include "qt/earlier_input.h"
#include "qt/menu_bar.h"
#include "qt/widget_text.h"

#include <QApplication>
#include <QGridLayout>
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

struct DesignedButton {
    const DialogButton& design;
    QMessageBox::ButtonRole role;
    const char* name;
};

// Null for those that are not to be seen.
std::vector<QPushButton*> add_buttons(QMessageBox& box, std::initializer_list<DesignedButton> buttons) {
    std::vector<std::string> captions;
    for (const DesignedButton& button : buttons) {
        captions.push_back(button.design.Visible ? button.design.Caption : std::string());
    }
    const std::vector<QString> marked = with_mnemonics(captions);
    std::vector<QPushButton*> added;
    for (const DesignedButton& button : buttons) {
        added.push_back(button.design.Visible ? box.addButton(marked[added.size()], button.role) : nullptr);
        if (added.back() != nullptr) {
            added.back()->setObjectName(QLatin1String(button.name));
        }
    }
    return added;
}

// The box leaves room for its title alone, and the window manager's icon and buttons stand beside it.
void set_title(QMessageBox& box) {
    constexpr int room_beside = 12; // in heights of a line
    box.setWindowTitle(QLatin1String(program_title));
    const QFontMetrics metrics(QApplication::font("QMdiSubWindowTitleBar"));
    const int width = metrics.horizontalAdvance(box.windowTitle()) + room_beside * metrics.height();
    if (auto* grid = qobject_cast<QGridLayout*>(box.layout())) {
        grid->addItem(new QSpacerItem(width, 0), grid->rowCount(), 0, 1, grid->columnCount());
    }
}

void set_texts(QMessageBox& box, const std::string& message, const std::string& explanation) {
    box.setText(to_widget(message));
    box.setInformativeText(to_widget(explanation));
    for (auto* label : box.findChildren<QLabel*>()) { // the box's own format would hold for the message alone
        label->setTextFormat(Qt::PlainText);
    }
}

} // namespace

DialogAnswer show_dialog(QWidget* parent, const MessageDialog& dialog) {
    QMessageBox box(parent);
    box.setObjectName(QStringLiteral("message_dialog"));
    box.setIcon(icon_of(dialog.Icon));
    set_texts(box, dialog.Message, dialog.Explanation);
    const auto buttons =
        add_buttons(box, {{dialog.ActionButton, QMessageBox::AcceptRole, "ActionButton"},
                          {dialog.CancelButton, QMessageBox::RejectRole, "CancelButton"},
                          {dialog.AlternateActionButton, QMessageBox::DestructiveRole, "AlternateActionButton"}});
    QPushButton* const action = buttons[0];
    QPushButton* const cancel = buttons[1];
    const QPushButton* const alternate = buttons[2];
    set_title(box);
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
    box.setIcon(QMessageBox::Critical);
    set_texts(box, "The command could not be finished.", report.what + "\r\rOpen documents are kept as they are.");
    const DialogButton ok{"OK", true};
    box.setDefaultButton(add_buttons(box, {{ok, QMessageBox::AcceptRole, "ActionButton"}}).front());
    if (!report.handler.empty()) {
        box.setDetailedText(QStringLiteral("In: ") + to_widget(report.handler));
    }
    set_title(box);
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
