// SPDX-License-Identifier: MIT
// Controls that show and take no input: captions, group frames, progress bars, pictures.
#pragma once

#include "platform/archive.h"
#include "platform/control.h"

#include <algorithm>
#include <string>
#include <string_view>

namespace tessit {

struct StaticTextDesign {
    const char* text = "";
    Align align = Align::standard;
    int text_size = 0; // in points; 0 for the system's size
    bool bold = false;
};

class StaticText : public Control {
public:
    StaticText(Window& window, const ControlDesign& design, StaticTextDesign own = {})
        : Control(window, design), own_(own), text_(own.text) {}

    const std::string& Text() const { return text_; }
    void SetText(std::string_view text) {
        if (text != text_) {
            text_ = text;
            show_change();
        }
    }
    const StaticTextDesign& own() const { return own_; }

protected:
    void archive_values(Archive& archive) override { archive.text("text", text_); }

private:
    const StaticTextDesign own_;
    std::string text_;
};

class Line : public Control { // a separator
public:
    using Control::Control;
};

class GroupBox : public Control {
public:
    GroupBox(Window& window, const ControlDesign& design, const char* caption)
        : Control(window, design), caption_(caption) {}

    const std::string& Caption() const { return caption_; }

private:
    std::string caption_;
};

class ProgressBar : public Control {
public:
    ProgressBar(Window& window, const ControlDesign& design, int maximum)
        : Control(window, design), maximum_(maximum) {}

    int Maximum() const { return maximum_; }
    int Value() const { return value_; }
    void SetValue(int value) { // kept between 0 and the maximum
        value = std::clamp(value, 0, maximum_);
        if (value != value_) {
            value_ = value;
            show_change();
        }
    }

private:
    const int maximum_;
    int value_ = 0;
};

// A picture from the program's own resources, named without folder or ending.
class ImageWell : public Control {
public:
    ImageWell(Window& window, const ControlDesign& design, const char* picture)
        : Control(window, design), picture_(picture) {}

    const std::string& picture() const { return picture_; }

private:
    std::string picture_;
};

} // namespace tessit
