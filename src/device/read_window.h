// SPDX-License-Identifier: MIT
// Reads a bank from the generator and shows it. The transfer is App::getdata, the table App::showzephon.
#pragma once

#include "core/app.h"
#include "core/document_window.h"
#include "level/level_table.h"
#include "platform/buttons.h"
#include "platform/edit_field.h"
#include "platform/listbox.h"
#include "platform/static_controls.h"

namespace tessit {

class ReadWindow : public DocumentWindow {
public:
    explicit ReadWindow(App& owner)
        : DocumentWindow(owner, {.name = "ReadZPWindow",
                                 .title = "Read Zephon Data",
                                 .width = 890,
                                 .height = 560,
                                 .frame = WindowFrame::document,
                                 .opening = Opening::shows_itself}),
          app(owner) {}

    StaticText messagebox{*this, {.name = "messagebox", .place = {33, 14, 520, 58}}};
    PushButton Readbutton{*this,
                          {.name = "Readbutton", .place = {738, 20, 120, 28}},
                          {.caption = "Read", .on_action = [this] { Readbutton_Action(); }, .key = ButtonKey::enter}};
    RadioButton naDecimal{*this,
                          {.name = "naDecimal", .place = {33, 80, 258, 20}},
                          {.caption = "Use North American Decimal ( . )", .on_action = [this] { naDecimal_Action(); }}};
    RadioButton isoDecimal{*this,
                           {.name = "isoDecimal", .place = {300, 80, 222, 20}},
                           {.caption = "Use ISO Decimal ( , )", .on_action = [this] { isoDecimal_Action(); }}};
    EditField connectfield{
        *this, {.name = "connectfield", .place = {540, 78, 318, 24}, .label = "Status"}, {.read_only = true}};
    StaticText bank_caption{*this, {.name = "bank_caption", .place = {33, 116, 50, 20}}, {.text = "Bank:"}};
    EditField bankfield{*this, {.name = "bankfield", .place = {84, 114, 160, 22}, .label = "Bank"}};
    StaticText frequencies_caption{
        *this, {.name = "frequencies_caption", .place = {290, 116, 118, 20}}, {.text = "Total Frequencies:"}};
    EditField BankFreqField{*this,
                            {.name = "BankFreqField", .place = {410, 114, 70, 22}, .label = "Total Frequencies"},
                            {.align = Align::center}};
    StaticText time_caption{*this, {.name = "time_caption", .place = {510, 116, 80, 20}}, {.text = "Total Time:"}};
    EditField BankTimeField{
        *this, {.name = "BankTimeField", .place = {592, 114, 80, 22}, .label = "Total Time"}, {.align = Align::center}};
    Listbox displaybox{
        *this,
        {.name = "displaybox", .place = {33, 150, 825, 386}, .label = "Bank Listing", .grow = Grow::both},
        {.columns = column::count, .row_commands = {"EditEditProtocol"}}};
    void Event_Open() override;
    void Event_Activate() override;
    bool Event_CancelClose() override;
    void Event_Close() override;
    void Event_EnableMenuItems() override;

    void Readbutton_Action();
    void naDecimal_Action();
    void isoDecimal_Action();

    EditField& name_field() override { return bankfield; }
    std::optional<LevelTable> level_table() override;
    Heading heading() const override { return Heading::quality_line; }
    void save() override;
    bool& change_flag() override { return app.readchanged; }
    MessageDialog closing_question() const override;
    void archive_document(Archive& archive) override;

private:
    App& app;
};

} // namespace tessit
