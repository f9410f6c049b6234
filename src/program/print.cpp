// SPDX-License-Identifier: MIT
// Printing the document window at the back of the list: the windows in which a page is set up, and the page itself.
#include "core/app.h"
#include "core/document_window.h"
#include "device/read_window.h"
#include "report/page.h"
#include "report/page_setup_window.h"
#include "report/qc_window.h"

namespace tessit {

namespace {

// A main panel that is visible behind the document is what is found, and then nothing is printed.
DocumentWindow* document_to_print(const App& app) {
    return last_document(app, MainPanel::counts);
}

BlockText block_text(const EditField& field) {
    return {.text = field.StyledText(), .size = field.TextSize()};
}

ReportTable report_table(App& app, const LevelTable& document) {
    const Listbox& table = document.rows;
    if (app.cwidth.count() < table.ColumnCount()) { // no document window has opened its table so far
        throw Fault(FaultKind::out_of_bounds,
                    "There is no table to print yet. Choose a serial port and read a bank first.");
    }
    ReportTable result{.columns = {},
                       .rows = {},
                       .total_frequencies = document.total_frequencies.Text(),
                       .total_time = document.total_time.Text()};
    for (int column = 0; column < table.ColumnCount(); ++column) {
        result.columns.push_back({.heading = table.Heading(column),
                                  .width = truncate(app.strintR(app.cwidth[column])),
                                  .alignment = app.calign[column]});
    }
    for (int row = 0; row < table.ListCount(); ++row) {
        auto& cells = result.rows.emplace_back();
        for (int column = 0; column < table.ColumnCount(); ++column) {
            cells.push_back(table.Cell(row, column));
        }
    }
    return result;
}

// Styled in the field itself, where the size stays.
BlockText sized(EditField& field, int size) {
    StyledText text = field.StyledText();
    const TextRange all = text.Paragraph(1);
    text.SetSize(all.StartPos, all.Length + 1, size);
    field.SetStyledText(text);
    return block_text(field);
}

BlockText sized_and_bold(EditField& field, int size) {
    StyledText text = field.StyledText();
    const TextRange all = text.Paragraph(1);
    text.SetBold(all.StartPos, all.Length + 1, true);
    field.SetStyledText(text);
    return sized(field, size);
}

QcLine qc_line(App& app) {
    QcWindow& window = app.qcsetupwindow.get();
    return {.serial = sized(window.serialfield, 9),
            .assigned = sized(window.assignfield, 9),
            .checked = sized(window.qcfield, 9),
            .date = sized(window.datefield, 9),
            .bank = sized_and_bold(app.ReadZPWindow->bankfield, 12),
            .protocol = sized(window.protocolfield, 10)};
}

std::vector<DrawBlock> blocks_above(App& app, const DocumentWindow& document) {
    if (document.heading() == Heading::quality_line) {
        return qc_blocks(qc_line(app));
    }
    return {heading_block(block_text(app.pgsetupwindow->headingfield))};
}

Page report_page(App& app, DocumentWindow& document, Graphics& graphics) {
    if (const auto table = document.level_table()) {
        return table_page(
            report_table(app, *table), blocks_above(app, document), block_text(app.pgsetupwindow->footerfield),
            [&](const std::string& text, const PageFont& font) { return graphics.StringWidth(text, font); });
    }
    return list_page(block_text(app.pgsetupwindow->headingfield), block_text(*document.list()),
                     block_text(app.pgsetupwindow->footerfield));
}

// What the user knows the page by: a protocol's name without the ending of its file, or the window's title.
std::string name_of_page(DocumentWindow& document) {
    const std::filesystem::path typed = document.name_field().Text();
    const std::string name =
        (typed.is_absolute() ? typed.filename() : typed).string(); // the whole path after some saves
    const bool has_ending = name.ends_with(".zp2") || name.ends_with(".csv");
    return name.empty() ? document.Title() : name.substr(0, name.size() - (has_ending ? 4 : 0));
}

} // namespace

void App::Print() {
    DocumentWindow* document = document_to_print(*this);
    if (document == nullptr) {
        return;
    }
    if (const auto graphics = OpenPrinterDialog(name_of_page(*document))) {
        graphics->print(report_page(*this, *document, *graphics));
    }
}

void App::pagesetup() {
    DocumentWindow* document = document_to_print(*this);
    if (document == nullptr) {
        return;
    }
    if (document->heading() == Heading::quality_line) {
        return qcsetupwindow->Show();
    }
    pgsetupwindow->headingfield.SetText(document->name_field().Text());
    pgsetupwindow->Show();
}

bool App::_FilePageSetup_Action() {
    pagesetup();
    return true;
}

bool App::_FilePrint_Action() {
    pagesetup();
    return true;
}

} // namespace tessit
