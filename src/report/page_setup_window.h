// SPDX-License-Identifier: MIT
// The step before every print: heading and footer of the page with their size and style. "Print" only hides the
// window, since the report reads its fields; the footer is then still there for the next print.
#pragma once

#include "core/app.h"
#include "platform/bevel_button.h"
#include "platform/buttons.h"
#include "platform/choice.h"
#include "platform/edit_field.h"
#include "platform/static_controls.h"

namespace tessit {

inline const std::vector<std::string> point_sizes{"6", "7", "8", "9", "10", "11", "12", "14", "16", "18", "20"};

class PageSetupWindow : public Window {
public:
    explicit PageSetupWindow(App& owner)
        : Window(owner, {.name = "pgsetupwindow", .title = "Page Setup", .width = 624, .height = 372}), app(owner) {}

    // The buttons whose names end in 1 are the heading's, those without are the footer's.
    StaticText StaticText1{
        *this, {.name = "StaticText1", .place = {20, 16, 200, 20}}, {.text = "Header", .bold = true}};
    EditField headingfield{*this,
                           {.name = "headingfield", .place = {20, 40, 584, 62}, .label = "Header", .grow = Grow::width},
                           {.multiline = true, .styled = true, .on_style_change = [this] { show_header_style(); }}};
    StaticText StaticText3{*this, {.name = "StaticText3", .place = {20, 116, 62, 20}}, {.text = "Font Size"}};
    ComboBox headfontBox{*this,
                         {.name = "headfontBox", .place = {84, 114, 64, 24}, .label = "Header Font Size"},
                         {.items = point_sizes, .on_text_change = [this] { headfontBox_Change(); }}};
    StaticText StaticText5{*this, {.name = "StaticText5", .place = {164, 116, 66, 20}}, {.text = "Font Style"}};
    ComboBox HeadstyleBox{*this, {.name = "HeadstyleBox", .place = {232, 114, 200, 24}, .label = "Header Font Style"}};
    StaticText StaticText7{
        *this, {.name = "StaticText7", .place = {434, 116, 76, 20}}, {.text = "Appearance", .align = Align::right}};
    BevelButton Boldbutton1{
        *this,
        {.name = "Boldbutton1", .place = {516, 113, 26, 26}, .label = "Header Bold", .help_tag = "Bold"},
        {.picture = ButtonPicture::bold, .on_action = [this] { Boldbutton1_Action(); }}};
    BevelButton Italicbutton1{
        *this,
        {.name = "Italicbutton1", .place = {547, 113, 26, 26}, .label = "Header Italic", .help_tag = "Italic"},
        {.picture = ButtonPicture::italic, .on_action = [this] { Italicbutton1_Action(); }}};
    BevelButton underlinebutton1{
        *this,
        {.name = "underlinebutton1", .place = {578, 113, 26, 26}, .label = "Header Underline", .help_tag = "Underline"},
        {.picture = ButtonPicture::underline, .on_action = [this] { underlinebutton1_Action(); }}};

    StaticText StaticText2{
        *this, {.name = "StaticText2", .place = {20, 166, 200, 20}}, {.text = "Footer", .bold = true}};
    EditField footerfield{*this,
                          {.name = "footerfield", .place = {20, 190, 584, 62}, .label = "Footer", .grow = Grow::width},
                          {.multiline = true, .styled = true, .on_style_change = [this] { show_footer_style(); }}};
    StaticText StaticText4{*this, {.name = "StaticText4", .place = {17, 266, 65, 20}}, {.text = " Font Size"}};
    ComboBox footfontBox{*this,
                         {.name = "footfontBox", .place = {84, 264, 64, 24}, .label = "Footer Font Size"},
                         {.items = point_sizes, .on_text_change = [this] { footfontBox_Change(); }}};
    StaticText StaticText6{*this, {.name = "StaticText6", .place = {164, 266, 66, 20}}, {.text = "Font Style"}};
    ComboBox footstyleBox{*this, {.name = "footstyleBox", .place = {232, 264, 200, 24}, .label = "Footer Font Style"}};
    StaticText StaticText8{
        *this, {.name = "StaticText8", .place = {434, 266, 76, 20}}, {.text = "Appearance", .align = Align::right}};
    BevelButton Boldbutton{
        *this,
        {.name = "Boldbutton", .place = {516, 263, 26, 26}, .label = "Footer Bold", .help_tag = "Bold"},
        {.picture = ButtonPicture::bold, .on_action = [this] { Boldbutton_Action(); }}};
    BevelButton Italicbutton{
        *this,
        {.name = "Italicbutton", .place = {547, 263, 26, 26}, .label = "Footer Italic", .help_tag = "Italic"},
        {.picture = ButtonPicture::italic, .on_action = [this] { Italicbutton_Action(); }}};
    BevelButton underlinebutton{
        *this,
        {.name = "underlinebutton", .place = {578, 263, 26, 26}, .label = "Footer Underline", .help_tag = "Underline"},
        {.picture = ButtonPicture::underline, .on_action = [this] { underlinebutton_Action(); }}};

    Line Line1{*this, {.name = "Line1", .place = {20, 310, 584, 2}, .grow = Grow::width}};
    PushButton CancelButton{
        *this,
        {.name = "CancelButton", .place = {394, 326, 100, 28}},
        {.caption = "Cancel", .on_action = [this] { CancelButton_Action(); }, .key = ButtonKey::escape}};
    PushButton DoneButton{*this,
                          {.name = "DoneButton", .place = {504, 326, 100, 28}},
                          {.caption = "Print", .on_action = [this] { DoneButton_Action(); }, .key = ButtonKey::enter}};

    void Event_Open() override;
    void Event_Close() override;
    void Event_EnableMenuItems() override;

    void show_header_style(); // of what is selected, by the buttons
    void show_footer_style();
    void headfontBox_Change();
    void footfontBox_Change();
    void Boldbutton1_Action() { headingfield.ToggleSelectionBold(); }
    void Italicbutton1_Action() { headingfield.ToggleSelectionItalic(); }
    void underlinebutton1_Action() { headingfield.ToggleSelectionUnderline(); }
    void Boldbutton_Action() { footerfield.ToggleSelectionBold(); }
    void Italicbutton_Action() { footerfield.ToggleSelectionItalic(); }
    void underlinebutton_Action() { footerfield.ToggleSelectionUnderline(); }
    void CancelButton_Action() { Close(); }
    void DoneButton_Action();

private:
    App& app;
};

} // namespace tessit
