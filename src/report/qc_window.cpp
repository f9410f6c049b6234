// SPDX-License-Identifier: MIT
#include "report/qc_window.h"

#include "device/read_window.h"
#include "report/page_setup_window.h"

namespace tessit {

namespace {

const std::string& stored_or(const std::string& stored, const std::string& prompt) {
    return stored.empty() ? prompt : stored;
}

} // namespace

void QcWindow::Event_Open() {
    const Date today = app.current_date();
    serialfield.SetText(stored_or(app.zpserial, "Zephon Serial#: "));
    assignfield.SetText(stored_or(app.assigned, "Assigned to: "));
    protocolfield.SetText(stored_or(protocolfield.Text(), "untitled"));
    qcfield.SetText(stored_or(app.qc, "Qc'd by: "));
    datefield.SetText(today.SQLDate());
    bankfield.SetText(app.ReadZPWindow->bankfield.Text());
}

// What was typed is kept and the windows close also when the print dialog is dismissed.
void QcWindow::PushButton1_Action() {
    app.zpserial = serialfield.Text();
    app.assigned = assignfield.Text();
    app.qc = qcfield.Text();
    app.Print();
    app.qcsetupwindow.Close();
    app.pgsetupwindow.Close();
}

} // namespace tessit
