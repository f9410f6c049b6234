// SPDX-License-Identifier: MIT
// The protocol editor: entry fields that describe one level above the table of the levels entered so far. The
// table's texts are the protocol. Level entry itself is App::Update_display (level_entry.cpp).
#pragma once

#include "core/app.h"
#include "core/document_window.h"
#include "editor/level_entry.h"
#include "level/decoder.h"
#include "level/waves.h"
#include "platform/buttons.h"
#include "platform/choice.h"
#include "platform/edit_field.h"
#include "platform/listbox.h"
#include "platform/static_controls.h"

namespace tessit {

class EditWindow : public DocumentWindow {
public:
    explicit EditWindow(App& owner)
        : DocumentWindow(owner, {.name = "editwindow",
                                 .title = "Zephon Protocol Editor",
                                 .width = 890,
                                 .height = 648,
                                 .color = {0xC0C0C0},
                                 .frame = WindowFrame::document,
                                 .opening = Opening::shows_itself}),
          app(owner) {}

    RadioButton naDecimal{*this,
                          {.name = "naDecimal", .place = {96, 13, 258, 20}},
                          {.caption = "Use North American Decimal ( . )", .on_action = [this] { naDecimal_Action(); }}};
    RadioButton isoDecimal{*this,
                           {.name = "isoDecimal", .place = {508, 13, 222, 20}},
                           {.caption = "Use ISO Decimal ( , )", .on_action = [this] { isoDecimal_Action(); }}};
    StaticText editing_caption{
        *this, {.name = "editing_caption", .place = {116, 54, 84, 20}}, {.text = "Editing File:"}};
    EditField namefield{*this,
                        {.name = "namefield", .place = {203, 52, 252, 22}, .label = "Editing File"},
                        {.on_key_down = [this](const std::string& key) { return namefield_KeyDown(key); }}};
    StaticText level_caption{*this, {.name = "level_caption", .place = {22, 96, 88, 20}}, {.text = "Current Level"}};
    EditField level_field{
        *this, {.name = "level_field", .place = {52, 119, 28, 22}, .label = "Current Level"}, {.align = Align::right}};
    StaticText wave_caption{*this, {.name = "wave_caption", .place = {116, 96, 143, 20}}, {.text = "Wave Type"}};
    ComboBox wave_box{
        *this,
        {.name = "wave_box", .place = {116, 118, 143, 23}, .label = "Wave Type"},
        {.items = wave_texts(editor_wave_order), .list_index = 0, .on_change = [this] { wave_box_Change(); }}};
    StaticText width_caption{*this, {.name = "width_caption", .place = {271, 96, 57, 20}}, {.text = "Width"}};
    PopupMenu WidthMenu{*this,
                        {.name = "WidthMenu",
                         .place = {271, 118, 57, 29},
                         .label = "Width",
                         .help_tag = "Select the width of the Wave Packet",
                         .enabled = false},
                        {.items = {"0", "1", "2", "3", "4", "5", "6", "7", "8", "9"},
                         .list_index = 0,
                         .on_change = [this] { WidthMenu_Change(); }}};
    StaticText frequency_caption{
        *this, {.name = "frequency_caption", .place = {361, 88, 110, 20}}, {.text = "Base Frequency"}};
    EditField FreqField{*this,
                        {.name = "FreqField",
                         .place = {361, 110, 94, 22},
                         .label = "Base Frequency",
                         .help_tag = "Enter your desired base frequency here"},
                        {.limit_text = 7, .align = Align::right, .on_key_down = [this](const std::string& key) {
                             return FreqField_KeyDown(key);
                         }}};
    StaticText frequency_unit{*this, {.name = "frequency_unit", .place = {459, 112, 24, 20}}, {.text = "Hz"}};
    StaticText time_caption{*this, {.name = "time_caption", .place = {492, 88, 80, 20}}, {.text = "Time"}};
    EditField time_field{
        *this,
        {.name = "time_field", .place = {492, 110, 80, 22}, .label = "Time"},
        {.align = Align::right, .on_key_down = [this](const std::string& key) { return time_field_KeyDown(key); }}};
    StaticText format_caption{*this, {.name = "format_caption", .place = {492, 140, 80, 20}}, {.text = "Format"}};
    ComboBox format_box{*this,
                        {.name = "format_box", .place = {492, 161, 80, 20}, .label = "Format"},
                        {.items = {"Seconds", "MM:SS"}, .list_index = 0, .on_change = [this] { format_box_Change(); }}};
    StaticText pulse_caption{*this, {.name = "pulse_caption", .place = {618, 88, 60, 20}}, {.text = "Pulsing"}};
    ComboBox PulseMenu{*this,
                       {.name = "PulseMenu", .place = {618, 110, 59, 23}, .label = "Pulsing"},
                       {.items = {"ON", "OFF"}, .list_index = 0, .on_change = [this] { PulseMenu_Change(); }}};
    StaticText rate_caption{*this, {.name = "rate_caption", .place = {691, 88, 80, 20}}, {.text = "Pulse Rate\r"}};
    EditField rate_field{*this,
                         {.name = "rate_field", .place = {691, 110, 64, 22}, .label = "Pulse Rate"},
                         {.on_key_down = [this](const std::string& key) { return rate_field_KeyDown(key); }}};
    StaticText rate_unit{*this, {.name = "rate_unit", .place = {759, 112, 24, 20}}, {.text = "Hz"}};
    StaticText duty_caption{*this, {.name = "duty_caption", .place = {800, 88, 76, 20}}, {.text = "Duty Cycle"}};
    PopupMenu DutyMenu{*this,
                       {.name = "DutyMenu", .place = {806, 110, 52, 22}, .label = "Duty Cycle"},
                       {.items = {"", "10", "20", "30", "40", "50", "60", "70", "80", "90"},
                        .list_index = 7,
                        .on_change = [this] { DutyMenu_Change(); }}};
    StaticText shape_caption{*this, {.name = "shape_caption", .place = {228, 153, 90, 20}}, {.text = "Wave Shape"}};
    ComboBox shape_box{
        *this,
        {.name = "shape_box", .place = {228, 175, 90, 20}, .label = "Wave Shape"},
        {.items = {"Square", "Sine", "Triangle"}, .list_index = 0, .on_change = [this] { shape_box_Change(); }}};
    StaticText output_caption{*this, {.name = "output_caption", .place = {656, 140, 80, 20}}, {.text = "Output"}};
    ComboBox output_box{
        *this,
        {.name = "output_box", .place = {656, 161, 80, 20}, .label = "Output"},
        {.items = {"Positive", "Negative", "Offset"}, .list_index = 0, .on_change = [this] { output_box_Change(); }}};
    PushButton enterbutton{*this,
                           {.name = "enterbutton", .place = {368, 161, 80, 20}},
                           {.caption = "Enter", .on_action = [this] { enterbutton_Action(); }}};
    StaticText freqs_caption{*this, {.name = "freqs_caption", .place = {368, 208, 90, 20}}, {.text = "Total Freqs."}};
    EditField BankFreqField{*this,
                            {.name = "BankFreqField",
                             .place = {384, 231, 48, 22},
                             .label = "Total Freqs.",
                             .help_tag = "Displays the total number of frequencies that will be generated in this "
                                         "'Protocol'"},
                            {.align = Align::center}};
    StaticText bank_time_caption{
        *this, {.name = "bank_time_caption", .place = {480, 208, 110, 20}}, {.text = "Total Bank Time"}};
    EditField BankTimeField{*this,
                            {.name = "BankTimeField",
                             .place = {492, 230, 74, 22},
                             .label = "Total Bank Time",
                             .help_tag = "Displays the total time that this 'Protocol' or bank will run"},
                            {.align = Align::center}};
    EditField changelvlfield{
        *this,
        {.name = "changelvlfield", .place = {33, 175, 167, 39}, .label = "Change Level", .visible = false},
        {.align = Align::center, .read_only = true, .text_size = 18, .back_color = {0xFF0000}}};
    PushButton cancelbutton{
        *this,
        {.name = "cancelbutton", .place = {33, 232, 167, 20}, .visible = false},
        {.caption = "Cancel Change", .on_action = [this] { cancelbutton_Action(); }, .key = ButtonKey::escape}};
    PushButton submitchange{*this,
                            {.name = "submitchange", .place = {228, 232, 126, 20}, .visible = false},
                            {.caption = "Submit Change", .on_action = [this] { submitchange_Action(); }}};
    EditField EditField1{*this, {.name = "EditField1", .place = {-218, 125, 80, 22}}}; // left of the window's edge
    StaticText listing_caption{
        *this, {.name = "listing_caption", .place = {33, 265, 160, 20}}, {.text = "Protocol Listing:"}};
    Listbox edit_displayBox{
        *this,
        {.name = "edit_displayBox", .place = {33, 287, 825, 339}, .label = "Protocol Listing", .grow = Grow::both},
        {.columns = column::count,
         .on_double_click = [this] { edit_displayBox_DoubleClick(); },
         .row_commands = {"EditDeleteRow", "EditInsertRow", "UntitledSeparator2", "EditMakeallSine",
                          "EditMakeallSquare"}}};

    // Running totals of displaydata; level entry and the row commands rebuild the fields from the cells instead.
    std::int32_t totalseconds = 0;
    std::int32_t totalminutes = 0;
    std::int32_t totalhours = 0;
    std::int32_t totalfreqs = 0;
    std::string fhexword;

    void Event_Open() override;
    void Event_Activate() override;
    bool Event_CancelClose() override;
    void Event_Close() override;
    void Event_EnableMenuItems() override;

    void wave_box_Change();
    void format_box_Change();
    void WidthMenu_Change() { FreqField.SetFocus(); }
    void PulseMenu_Change() { FreqField.SetFocus(); }
    void DutyMenu_Change();
    void shape_box_Change() { FreqField.SetFocus(); }
    void output_box_Change() { FreqField.SetFocus(); }
    void naDecimal_Action();
    void isoDecimal_Action();
    bool FreqField_KeyDown(const std::string& key);
    bool namefield_KeyDown(const std::string& key);
    bool time_field_KeyDown(const std::string& key);
    bool rate_field_KeyDown(const std::string& key) { return time_field_KeyDown(key); }
    void enterbutton_Action();
    void submitchange_Action();
    void cancelbutton_Action();
    void edit_displayBox_DoubleClick();

    void add_to_totals(const DecodedLevel& decoded); // the running ones
    // Both total fields anew from the table's cells. A fault leaves the time empty.
    void add_up_cells(std::int32_t frequencies_from, PlainSeconds plain_seconds);

    bool refuses_another_level(); // tells the user of a full table

    EditField& name_field() override { return namefield; }
    std::optional<LevelTable> level_table() override;
    const Listbox* table_to_export() override { return &edit_displayBox; }
    void save() override;
    bool& change_flag() override { return app.editchanged; }
    MessageDialog closing_question() const override;
    void archive_document(Archive& archive) override;
    void delete_selected_level() override;
    Insertion insert_level() override;

private:
    const std::string& remembered_time(TimeForm form) const; // of the present wave
    void remember_time();
    void enter_level();
    void save_before_closing();

    App& app;
};

} // namespace tessit
