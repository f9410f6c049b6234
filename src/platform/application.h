// SPDX-License-Identifier: MIT
// The application object: open windows in front-to-back order, the menu bar, the event border and the services of
// the desktop under the names that the program uses.
#pragma once

#include "platform/desktop.h"
#include "platform/menu.h"
#include "platform/window.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tessit {

enum class Stage { development = 0, alpha = 1, beta = 2, final = 3 };

struct Version {
    Stage StageCode = Stage::development;
    int MajorVersion = 0;
    int MinorVersion = 0;
    int BugVersion = 0;
};

// Ports, clock and mouse under the runtime's name `System`.
class SystemServices {
public:
    explicit SystemServices(Desktop& desktop) : desktop_(desktop) {}

    std::vector<tessit::SerialPort> serial_ports() const { return desktop_.serial_ports().list(); }
    int SerialPortCount() const { return static_cast<int>(serial_ports().size()); }
    tessit::SerialPort SerialPort(int index) const; // Fault out_of_bounds beyond the list
    int MouseX() const { return mouse_x; }          // on the screen, in points
    int MouseY() const { return mouse_y; }

    int mouse_x = 0;
    int mouse_y = 0;

private:
    Desktop& desktop_;
};

class Application {
public:
    Application(Desktop& desktop, const Version& program_version, MenuBar menu_bar);
    Application(const Application&) = delete;
    Application& operator=(const Application&) = delete;
    virtual ~Application() = default;

    MenuBar MenuBar1;
    SystemServices System;
    const Version version;

    // Open windows, 0 in front. Made windows that were never shown are among them.
    int WindowCount() const { return static_cast<int>(windows_.size()); }
    tessit::Window& Window(int index) const; // Fault out_of_bounds
    // The active one: in front of all visible windows but notices, which never are. Null when none is to be seen.
    tessit::Window* front_window() const;
    bool in_front(const tessit::Window& window) const { return active_ == &window; }

    void MsgBox(const std::string& message, DialogIcon icon = DialogIcon::caution); // most of them tell of a failure
    DialogAnswer ShowModal(const MessageDialog& dialog);
    std::optional<FolderItem> GetOpenFolderItem(const FileType& type); // none: dismissed
    std::optional<FolderItem> GetSaveFolderItem(const FileType& type, const std::string& default_name);
    FolderItem GetFolderItem(const std::string& name) const; // in the program's folder; itself for an empty name
    std::unique_ptr<Graphics> OpenPrinterDialog(const std::string& document) { // null: dismissed
        return desktop_.choose_printer_for(document);
    }
    int FontCount() const { return static_cast<int>(desktop_.fonts().size()); }
    const std::string& Font(int index) const; // Fault out_of_bounds beyond the list
    Date current_date() const { return desktop_.current_date(); }
    void Beep();
    Microseconds now() { return desktop_.clock().now(); }
    void wait(Microseconds duration) { tessit::wait(desktop_.clock(), duration); }
    Desktop& desktop() const { return desktop_; }

    // Asks every window but those that live as long as the program to close; one that stays open ends the quitting.
    void Quit();
    bool quitting() const { return quitting_; }

    // Events. A handler runs to its end; a fault stops it. `raise` passes the fault on, stamped with the handler's
    // name. `from_user` is the border to everything outside: it never throws, reports a fault once and, when the
    // outermost event has returned, frees closed windows and sees to it that a window can be seen.
    void raise(const std::string& handler, const std::function<void()>& body);
    void from_user(const std::string& handler, const std::function<void()>& body);
    bool busy() const { return depth_ > 0; } // a handler is running
    long event() const { return event_; }    // the number of the outermost event that runs, or ran last; from 1 on
    // Runs a step whose fault must not keep the rest of a handler from running: reported at once.
    void guarded(const std::string& handler, const std::function<void()>& body);
    // Reported as soon as the event loop runs again: for faults that come while a window is being painted.
    void report_soon(const Fault& fault);

    // Menu. `enable_menu_items` asks the window in front; `choose_menu` is user input and does nothing on a
    // disabled entry.
    void enable_menu_items();
    void choose_menu(std::string_view entry);

    // User input: the user wants help with a window.
    virtual void show_help_on(const tessit::Window&) {}

    // Files that come from outside, dropped on a window or given at the start. They are opened by the menu entry that
    // would open them, as if they had been chosen in its dialog.
    virtual std::string_view opening_entry(const FolderItem&) const { return {}; } // empty: none is meant for it
    bool takes(tessit::Window& window, const FolderItem& file); // the window's menu has the entry, and it is enabled
    void choose_menu(std::string_view entry, const FolderItem& chosen);

    // The system ends the program, at once and perhaps while a handler runs: what can be kept is kept, nothing is
    // asked.
    virtual void ended_by_system() {}
    // The user's session is to end: asks about unsaved work. False: the user wants to go on.
    virtual bool session_may_end() { return true; }

    // For Window, Control and ImplicitWindow.
    tessit::Window& adopt(std::unique_ptr<tessit::Window> window, std::function<void()> on_retired);
    void open(tessit::Window& window);
    void bring_to_front(tessit::Window& window); // and active, which raises Event_Activate where it was not
    void hidden(tessit::Window& window);
    void kept_open(tessit::Window& window) { kept_open_ = &window; } // by its own answer to being closed
    void retire(tessit::Window& window);
    void set_mouse(int x, int y);

protected:
    void free_windows();                 // by the destructor of the class that has the windows' instances
    virtual void show_main_window() = 0; // when an event ends with no window to be seen
    virtual void fault_caught() {}       // before the report is shown
    virtual void all_events_ended() {}   // the outermost event has returned

private:
    struct OpenWindow {
        std::unique_ptr<tessit::Window> window;
        std::function<void()> on_retired;
    };

    void ask_rules_of(tessit::Window& window);
    void end_outermost_event();
    bool handled_in_front(std::string_view entry);
    void note_chosen(const std::optional<FolderItem>& file);
    void report(const Fault& fault);
    bool nothing_to_be_seen() const;
    std::vector<OpenWindow>::iterator find(const tessit::Window& window);

    Desktop& desktop_;
    std::vector<OpenWindow> windows_; // front to back
    std::vector<std::unique_ptr<tessit::Window>> retired_;
    tessit::Window* active_ = nullptr;    // the one whose Event_Activate ran last
    tessit::Window* kept_open_ = nullptr; // the last one in this outermost event that did not let itself be closed
    std::filesystem::path last_folder_;   // of the file dialogs
    std::optional<FolderItem> chosen_;    // the answer of the next open dialog, which is then not shown
    int depth_ = 0;
    long event_ = 0;
    bool quitting_ = false;
};

// The one instance of a window class, a member of its application: made and opened when it is first touched, and
// again when it is touched after it was closed.
template <class App, class W> class ImplicitWindow {
public:
    explicit ImplicitWindow(App& app) : app_(app) {}

    W* operator->() { return &get(); }
    W& get() {
        if (window_ != nullptr) {
            return *window_;
        }
        auto made = std::make_unique<W>(app_);
        W& window = *made;
        window_ = &window;
        app_.open(app_.adopt(std::move(made), [this] { window_ = nullptr; }));
        return window; // Event_Open may have closed it again; it then lives until the outermost event has ended
    }
    bool exists() const { return window_ != nullptr; }
    void Close() { // nothing where no window is
        if (window_ != nullptr) {
            window_->Close();
        }
    }

private:
    App& app_;
    W* window_ = nullptr;
};

} // namespace tessit
