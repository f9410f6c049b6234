// SPDX-License-Identifier: MIT
// The frequency consolidator: the frequencies that a protocol is to be composed from, typed one at a time, pasted or
// opened from a file. The text of `freqdisplayfield` is the list; nothing in it is checked.
#pragma once

#include "consolidator/frequency_list.h"
#include "core/app.h"
#include "core/document_window.h"
#include "platform/buttons.h"
#include "platform/edit_field.h"
#include "platform/static_controls.h"

namespace tessit {

class ConsolidatorWindow : public DocumentWindow {
public:
    explicit ConsolidatorWindow(App& owner)
        : DocumentWindow(owner, {.name = "consolidatorWindow",
                                 .title = "Frequency Consolidator",
                                 .width = 765,
                                 .height = 421,
                                 .frame = WindowFrame::document,
                                 .opening = Opening::shows_itself}),
          app(owner) {}

    StaticText StaticText1{*this, {.name = "StaticText1", .place = {20, 16, 250, 20}}, {.text = "Enter Frequencies:"}};
    EditField entryField{*this,
                         {.name = "entryField",
                          .place = {20, 38, 250, 24},
                          .label = "Enter Frequencies",
                          .help_tag = "Type a frequency and press Return to add it to the list"},
                         {.line_end = [this] { return std::string(typed_separator(app.decimal_mark())); },
                          .on_key_down = [this](const std::string& key) { return entryField_KeyDown(key); }}};
    StaticText StaticText19{*this, {.name = "StaticText19", .place = {290, 76, 120, 20}}, {.text = "Frequency List:"}};
    StaticText countText{*this, {.name = "countText", .place = {420, 76, 325, 20}, .derived = true}};
    EditField freqdisplayfield{
        *this,
        {.name = "freqdisplayfield", .place = {290, 98, 455, 303}, .label = "Frequency List", .grow = Grow::both},
        {.multiline = true, .keeps_history = true, .on_text_change = [this] { freqdisplayfield_TextChange(); }}};
    StaticText StaticText2{*this, {.name = "StaticText2", .place = {290, 16, 250, 20}}, {.text = "Protocol Name:"}};
    EditField nameField{
        *this, {.name = "nameField", .place = {290, 38, 270, 24}, .label = "Protocol Name"}, {.text = "untitled"}};
    PushButton SortupButton{
        *this,
        {.name = "SortupButton", .place = {20, 132, 250, 26}},
        {.caption = "Sort Increasing", .on_action = [this] { change_list([this] { app.consolidatorsortup(); }); }}};
    PushButton SortdnButton{
        *this,
        {.name = "SortdnButton", .place = {20, 164, 250, 26}},
        {.caption = "Sort  Decreasing", .on_action = [this] { change_list([this] { app.consolidatorsortdn(); }); }}};
    PushButton RemDupButton{
        *this,
        {.name = "RemDupButton", .place = {20, 196, 250, 26}},
        {.caption = "Remove Duplicates", .on_action = [this] { change_list([this] { app.removeduplicates(); }); }}};
    StaticText StaticText20{*this, {.name = "StaticText20", .place = {20, 238, 250, 20}}, {.text = "Duplicates:"}};
    EditField duplicatefield{
        *this,
        {.name = "duplicatefield", .place = {20, 260, 250, 141}, .label = "Duplicates", .grow = Grow::height},
        {.multiline = true, .shows_end = true}};
    PushButton composebutton{*this,
                             {.name = "composebutton",
                              .place = {580, 37, 165, 26},
                              .help_tag = "Hands the list over to the Protocol Composer"},
                             {.caption = "Compose Protocol", .on_action = [this] { composebutton_Action(); }}};
    RadioButton naDecimal{*this,
                          {.name = "naDecimal", .place = {20, 76, 250, 20}},
                          {.caption = " Use North American Decimal ( . )",
                           .on_action = [this] { change_list([this] { naDecimal_Action(); }); }}};
    RadioButton isoDecimal{
        *this,
        {.name = "isoDecimal", .place = {20, 98, 250, 20}},
        {.caption = "Use ISO Decimal ( , )", .on_action = [this] { change_list([this] { isoDecimal_Action(); }); }}};

    void Event_Open() override;
    void Event_Activate() override;
    bool Event_CancelClose() override;
    void Event_Close() override;
    void Event_EnableMenuItems() override;

    bool entryField_KeyDown(const std::string& key);
    void freqdisplayfield_TextChange();
    void composebutton_Action();
    void naDecimal_Action();
    void isoDecimal_Action();

    EditField& name_field() override { return nameField; }
    const EditField* list() override { return &freqdisplayfield; }
    void save() override;
    bool& change_flag() override { return app.consolidatorchanged; }
    MessageDialog closing_question() const override;
    void archive_document(Archive& archive) override;

    // A command on the list. With its text, undo brings back what else the command changed.
    void change_list(const std::function<void()>& command);
    void forget_list(); // without a word: the fields and what is known of the list

private:
    struct Circumstances { // of a text of the list
        std::string name;
        bool use_euro;
        bool datasort;
        std::int32_t numentries;
    };
    Circumstances circumstances() const;
    void bring_back(const Circumstances& from, const Circumstances& to);
    void add_entry();
    void show_count();

    App& app;
};

} // namespace tessit
