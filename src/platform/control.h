// SPDX-License-Identifier: MIT
// What all controls share. A control is a set of named values and handlers; a front end shows it through a
// ControlView and hands user input to the control's public doors. Setters that change nothing raise nothing.
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace tessit {

class Archive;
class Window;

struct Place { // in points, relative to the window's content
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;

    bool operator==(const Place&) const = default;
};

struct Color {
    unsigned rgb = 0; // 0xRRGGBB

    bool operator==(const Color&) const = default;
};

enum class Align { standard, left, center, right };

// What a control does when the user makes its window larger than designed.
enum class Grow { none, width, height, both };

// Keys that a field's KeyDown gets as a one-byte text.
namespace keys {
inline constexpr int enter = 3;    // on the keypad
inline constexpr int return_ = 13; // on the main block
} // namespace keys

// The part of a control's design that every class has; the class's own part follows it in a second brace.
struct ControlDesign {
    const char* name = ""; // the name in the code, also the object name for outside tools
    Place place{};
    const char* label = "";    // what assistive technology says where no caption of the control's own tells it
    const char* help_tag = ""; // shown while the mouse rests on the control
    bool enabled = true;
    bool visible = true;
    Grow grow = Grow::none;
};

// What a front end puts behind a control.
class ControlView {
public:
    virtual ~ControlView() = default;
    virtual void refresh() = 0;   // show the control's present values; calling it again changes nothing
    virtual void repaint_now() {} // and have them on the screen before returning
    virtual void take_focus() {}  // keyboard focus
    virtual void select_all() {}  // of its text
};

class Control {
public:
    Control(Window& window, const ControlDesign& design);
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;
    virtual ~Control() = default;

    const ControlDesign& design() const { return design_; }
    std::string name() const { return design_.name; }
    Window& window() const { return window_; }

    bool Enabled() const { return enabled_; }
    void SetEnabled(bool enabled);
    bool Visible() const { return visible_; }
    void SetVisible(bool visible);
    int Left() const { return design_.place.left; }
    int Top() const { return design_.place.top; }

    void SetFocus(); // makes this the window's focus control
    void Refresh();  // on the screen at once, also while a handler runs

    virtual bool holds_input() const { return false; } // that would be lost with its window

    // A menu command that the control sees to itself while its window is in front; false leaves it to the program.
    virtual bool handle_command(std::string_view) { return false; }

    void archive(Archive& archive); // its values, with those of every class; no event is raised

    void attach(ControlView* view) { view_ = view; } // null detaches
    ControlView* view() const { return view_; }

protected:
    virtual void archive_values(Archive&) {}             // those of the own class
    bool usable() const { return enabled_ && visible_; } // user input reaches it
    void show_change();
    // A handler that the program's own setter raises: faults go on to the outermost event.
    void raise(const char* event, const std::function<void()>& handler);
    // A handler that the user raises: an outermost event, never throws.
    void from_user(const char* event, const std::function<void()>& handler);

private:
    Window& window_;
    const ControlDesign design_;
    bool enabled_;
    bool visible_;
    ControlView* view_ = nullptr;
};

} // namespace tessit
