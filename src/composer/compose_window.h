// SPDX-License-Identifier: MIT
// The protocol composer: the frequencies handed over by the consolidator, entry fields that a click on one of them
// fills, and below the table of the levels composed from them. Its arithmetic is in composition.h.
#pragma once

#include "composer/composition.h"
#include "core/app.h"
#include "core/document_window.h"
#include "level/level_table.h"
#include "level/waves.h"
#include "platform/buttons.h"
#include "platform/choice.h"
#include "platform/edit_field.h"
#include "platform/listbox.h"
#include "platform/static_controls.h"

namespace tessit {

// Columns of freq_listBox.
namespace prime_column {
inline constexpr int prime = 0;
inline constexpr int width = 1;
inline constexpr int center = 2;
inline constexpr int count = 3;
} // namespace prime_column

class ComposeWindow : public DocumentWindow {
public:
    explicit ComposeWindow(App& owner)
        : DocumentWindow(owner, {.name = "composewindow",
                                 .title = "Protocol Composer",
                                 .width = 938,
                                 .height = 490,
                                 .color = {0xFFFFFF},
                                 .frame = WindowFrame::document,
                                 .opening = Opening::shows_itself}),
          app(owner) {}

    StaticText list_caption{*this, {.name = "list_caption", .place = {57, 20, 120, 20}}, {.text = "Frequencies:"}};
    Listbox freq_listBox{
        *this,
        {.name = "freq_listBox",
         .place = {57, 43, 201, 152},
         .label = "Frequencies",
         .help_tag = "Click a prime or a centre to take it into the entry fields"},
        {.columns = prime_column::count,
         .on_cell_click = [this](int row, int column) { return freq_listBox_CellClick(row, column); },
         .on_cell_background_paint = [this](CellGraphics& g, int row,
                                            int column) { freq_listBox_CellBackgroundPaint(g, row, column); },
         .on_cell_text_paint = [this](CellGraphics& g, int row, int column, int x,
                                      int y) { return freq_listBox_CellTextPaint(g, row, column, x, y); }}};
    PushButton allbutton{
        *this,
        {.name = "allbutton", .place = {152, 209, 80, 20}, .help_tag = "Enters every prime with the present settings"},
        {.caption = "Default all", .on_action = [this] { allbutton_Action(); }}};
    StaticText name_caption{*this, {.name = "name_caption", .place = {284, 11, 112, 20}}, {.text = "Protocol Name:"}};
    EditField namefield{*this, {.name = "namefield", .place = {402, 9, 183, 22}, .label = "Protocol Name"}};
    StaticText freq_caption{*this, {.name = "freq_caption", .place = {284, 42, 92, 20}}, {.text = "Base Frequency"}};
    EditField freq_field{*this, {.name = "freq_field", .place = {284, 64, 80, 22}, .label = "Base Frequency"}};
    StaticText wave_caption{*this, {.name = "wave_caption", .place = {380, 42, 137, 20}}, {.text = "Wavetype"}};
    ComboBox wavebox{
        *this,
        {.name = "wavebox", .place = {380, 64, 137, 20}, .label = "Wavetype"},
        {.items = wave_texts(composer_wave_order), .list_index = 0, .on_change = [this] { wavebox_Change(); }}};
    StaticText width_caption{*this, {.name = "width_caption", .place = {545, 42, 60, 20}}, {.text = "Width"}};
    ComboBox widthbox{*this,
                      {.name = "widthbox", .place = {545, 64, 40, 20}, .label = "Width", .enabled = false},
                      {.items = {"0", "1", "2", "3", "4", "5", "6", "7", "8", "9"}, .list_index = 0}};
    StaticText time_caption{*this, {.name = "time_caption", .place = {614, 42, 80, 20}}, {.text = "Time"}};
    EditField timefield{*this, {.name = "timefield", .place = {614, 64, 80, 22}, .label = "Time"}};
    StaticText pulse_caption{*this, {.name = "pulse_caption", .place = {718, 42, 62, 20}}, {.text = "Pulsing"}};
    ComboBox pulsebox{*this,
                      {.name = "pulsebox", .place = {718, 64, 62, 20}, .label = "Pulsing"},
                      {.items = {"ON", "OFF"}, .list_index = 0}};
    StaticText rate_caption{*this, {.name = "rate_caption", .place = {806, 42, 80, 20}}, {.text = "Pulse Rate"}};
    EditField ratebox{*this, {.name = "ratebox", .place = {806, 64, 69, 22}, .label = "Pulse Rate"}};
    StaticText duty_caption{*this, {.name = "duty_caption", .place = {284, 106, 80, 20}}, {.text = "Duty Cycle"}};
    ComboBox dutybox{*this,
                     {.name = "dutybox", .place = {284, 128, 80, 20}, .label = "Duty Cycle"},
                     {.items = {"", "10", "20", "30", "40", "50", "60", "70", "80", "90"}, .list_index = 0}};
    StaticText shape_caption{*this, {.name = "shape_caption", .place = {390, 106, 90, 20}}, {.text = "Wave Shape"}};
    ComboBox shapebox{*this,
                      {.name = "shapebox", .place = {390, 128, 80, 20}, .label = "Wave Shape"},
                      {.items = {"Square", "Sine", "Triangle"}, .list_index = 0}};
    StaticText output_caption{*this, {.name = "output_caption", .place = {498, 106, 102, 20}}, {.text = "Output"}};
    ComboBox outputbox{*this,
                       {.name = "outputbox", .place = {498, 128, 102, 20}, .label = "Output"},
                       {.items = {"Positive", "Negative", "Offset"}, .list_index = 0}};
    StaticText format_caption{*this, {.name = "format_caption", .place = {614, 106, 100, 20}}, {.text = "Time Format"}};
    ComboBox formatbox{*this,
                       {.name = "formatbox", .place = {614, 128, 80, 20}, .label = "Time Format"},
                       {.items = {"Seconds", "MM:SS"}, .list_index = 0, .on_change = [this] { formatbox_Change(); }}};
    PushButton enterbutton{*this,
                           {.name = "enterbutton", .place = {310, 185, 80, 28}},
                           {.caption = "ENTER", .on_action = [this] { enterbutton_Action(); }, .text_size = 14}};
    StaticText totalfreq_caption{
        *this, {.name = "totalfreq_caption", .place = {482, 190, 90, 20}}, {.text = "Total Freqs."}};
    EditField totalfreqfield{
        *this, {.name = "totalfreqfield", .place = {482, 212, 80, 22}, .label = "Total Freqs."}, {.read_only = true}};
    StaticText totaltime_caption{
        *this, {.name = "totaltime_caption", .place = {614, 190, 110, 20}}, {.text = "Total Bank Time"}};
    EditField totaltimefield{*this,
                             {.name = "totaltimefield", .place = {614, 212, 80, 22}, .label = "Total Bank Time"},
                             {.read_only = true}};
    StaticText protocol_caption{*this, {.name = "protocol_caption", .place = {57, 226, 90, 20}}, {.text = "Protocol:"}};
    Listbox compose_displayBox{
        *this,
        {.name = "compose_displayBox", .place = {57, 246, 825, 200}, .label = "Protocol", .grow = Grow::both},
        {.columns = column::count,
         .on_double_click = [this] { compose_displayBox_DoubleClick(); },
         .on_cell_click = [this](int, int) { return compose_displayBox_CellClick(); },
         .row_commands = {"EditDeleteRow", "EditInsertRow"}}};

    // The running total of the table.
    std::int32_t totalminutes = 0;
    std::int32_t totalseconds = 0;
    std::int32_t totalhours = 0;

    void Event_Open() override;
    void Event_Activate() override;
    bool Event_CancelClose() override;
    void Event_Close() override;
    void Event_EnableMenuItems() override;

    bool freq_listBox_CellClick(int row, int column);
    bool freq_listBox_CellTextPaint(CellGraphics& g, int row, int column, int x, int y);
    void freq_listBox_CellBackgroundPaint(CellGraphics& g, int row, int column);
    void wavebox_Change();
    void formatbox_Change();
    void compose_displayBox_DoubleClick();
    bool compose_displayBox_CellClick();
    void enterbutton_Action();
    void allbutton_Action();

    EditField& name_field() override { return namefield; }
    std::optional<LevelTable> level_table() override;
    const Listbox* table_to_export() override { return &compose_displayBox; }
    void save() override;
    bool& change_flag() override { return app.composechanged; }
    MessageDialog closing_question() const override;
    void archive_document(Archive& archive) override;
    void delete_selected_level() override;
    Insertion insert_level() override;

private:
    void show_time(TimeForm form); // the remembered one of the present wave
    void remember_time();
    void enter_new_row();
    void enter_changed_row();
    bool refuse_full_table();
    ClockTime fill_row(int row, const std::string& frequency, RowCarry carry);
    float frequencies_of(int row);
    std::int32_t row_seconds(int row);
    std::vector<std::string> total_times();
    void show_frequencies(std::int32_t start, int last_row);
    void keep_total(const ClockTime& total);
    void show_full_total();
    void show_minutes_total();
    void grey_used_cell();

    App& app;
};

} // namespace tessit
