// SPDX-License-Identifier: MIT
#include "report/page_setup_window.h"

#include "core/enable_rules.h"
#include "platform/text.h"

namespace tessit {

namespace {

const EnableRules rules{.enables = {"FilePrint"}, .disables = {}};

} // namespace

void PageSetupWindow::Event_Open() {
    for (int index = 1; index < app.FontCount(); ++index) { // the first font is left out
        HeadstyleBox.AddRow(app.Font(index));
        footstyleBox.AddRow(app.Font(index));
    }
    headingfield.SetTextSize(app.headerfont);
    footerfield.SetTextSize(app.footerfont);
}

void PageSetupWindow::show_header_style() {
    Boldbutton1.SetValue(headingfield.SelectionHas(&TextStyle::bold));
    Italicbutton1.SetValue(headingfield.SelectionHas(&TextStyle::italic));
    underlinebutton1.SetValue(headingfield.SelectionHas(&TextStyle::underline));
}

void PageSetupWindow::show_footer_style() {
    Boldbutton.SetValue(footerfield.SelectionHas(&TextStyle::bold));
    Italicbutton.SetValue(footerfield.SelectionHas(&TextStyle::italic));
    underlinebutton.SetValue(footerfield.SelectionHas(&TextStyle::underline));
}

void PageSetupWindow::headfontBox_Change() {
    app.headerfont = truncate(app.strintR(headfontBox.Text()));
    headingfield.SetTextSize(app.headerfont);
}

void PageSetupWindow::footfontBox_Change() {
    app.footerfont = truncate(app.strintR(footfontBox.Text()));
    footerfield.SetTextSize(app.footerfont);
}

void PageSetupWindow::DoneButton_Action() {
    app.heading = headingfield.Text();
    app.footer = footerfield.Text();
    Hide();
    app.Print();
}

void PageSetupWindow::Event_Close() {
    app.footer = footerfield.Text();
    app.heading = headingfield.Text();
    app.enable_menu_items();
}

void PageSetupWindow::Event_EnableMenuItems() {
    rules.apply(app.MenuBar1);
}

} // namespace tessit
