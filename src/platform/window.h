// SPDX-License-Identifier: MIT
// A window: named controls in tab order and handlers. It is made by its ImplicitWindow, lives in its Application
// and is freed when the outermost event after its closing has returned.
#pragma once

#include "platform/control.h"
#include "platform/dialogs.h"

#include <string>
#include <string_view>
#include <vector>

namespace tessit {

class Application;
class Archive;
class MenuItem;

// Document windows have Frame 0; nothing else has.
enum class WindowFrame { document = 0, dialog = 1, notice = 2 };

enum class Opening { hidden, shows_itself }; // what touching a closed window does
enum class Lifetime { until_closed, program };

struct WindowDesign {
    const char* name = ""; // the name in the code
    const char* title = "";
    int width = 0; // of the content, in points
    int height = 0;
    Color color{0xEFEFEF};
    WindowFrame frame = WindowFrame::dialog;
    Opening opening = Opening::hidden;
    Lifetime lifetime = Lifetime::until_closed;
    bool has_menu_bar = true;
};

struct ShownDocument {     // of a window that shows one
    std::string path;      // of its file; empty where it has none
    bool modified = false; // there is unsaved work
};

class Window {
public:
    Window(Application& application, const WindowDesign& design) : application_(application), design_(design) {}
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;
    virtual ~Window() = default;

    const WindowDesign& design() const { return design_; }
    std::string name() const { return design_.name; }
    Application& application() const { return application_; }
    const std::vector<Control*>& controls() const { return controls_; } // in tab order

    std::string Title() const { return design_.title; }
    int Frame() const { return static_cast<int>(design_.frame); }
    // Documents do, and dialogs into which something has been typed.
    bool holds_work() const;
    int Left() const { return left_; } // of the content on the screen, in points
    int Top() const { return top_; }
    bool Visible() const { return visible_; }

    void Show(); // visible and in front
    void Hide();
    void Close(); // Event_CancelClose, then Event_Close; the object lives on until the outermost event has ended

    // Asks the user something about this window, which comes to the front first, also where it was hidden or is
    // closing: what is asked about can be seen, and shared commands work on it.
    DialogAnswer ask(const MessageDialog& question);

    // The control that has the keyboard focus when the window is in front; null before any was given it.
    Control* focus_control() const { return focus_control_; }

    void archive(Archive& archive); // the controls

    // User input: outermost events. `activate` tells that the user brought the window to the front.
    void activate();
    void close_by_user();
    void move_to(int left, int top);

    // For the window system, which may mark the window by it; asked when an outermost event has ended.
    virtual ShownDocument shown_document() { return {}; }

    virtual void Event_Open() {}
    virtual void Event_Activate() {}
    virtual bool Event_CancelClose() { return false; } // true keeps the window open
    virtual void Event_Close() {}
    virtual void Event_EnableMenuItems() {}

protected:
    MenuItem& menu_item(std::string_view entry) const; // of the window's menu bar; Fault nil_object where none is

private:
    friend class Application;
    friend class Control;
    void add(Control& control) { controls_.push_back(&control); }
    void set_focus_control(Control* control) { focus_control_ = control; }
    void raise(const char* event, const std::function<void()>& handler);

    Application& application_;
    const WindowDesign design_;
    std::vector<Control*> controls_;
    Control* focus_control_ = nullptr;
    int left_ = 0;
    int top_ = 0;
    bool visible_ = false;
    bool closing_ = false;
};

} // namespace tessit
