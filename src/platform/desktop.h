// SPDX-License-Identifier: MIT
// What the program needs of the place where it runs. There are two desktops: the Qt one (src/qt), and the scripted
// one of the tests (tests/support).
#pragma once

#include "platform/clock.h"
#include "platform/date.h"
#include "platform/dialogs.h"
#include "platform/fault.h"
#include "platform/graphics.h"
#include "platform/serial.h"
#include "platform/socket.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tessit {

class Application;
class Window;

class Desktop {
public:
    virtual ~Desktop() = default;

    virtual Clock& clock() = 0;
    virtual SerialPorts& serial_ports() = 0;
    virtual Sockets& sockets() = 0;
    virtual FolderItem program_folder() = 0; // settings, the transfer file and the help documents are there
    virtual std::vector<FolderItem> document_folders() { return {}; }  // where documents lie that are not there
    virtual std::optional<FolderItem> recovery_folder() { return {}; } // of unsaved work; none: it is not kept

    // Modal; each returns when the user has answered. No value: dismissed.
    virtual DialogAnswer show_dialog(const MessageDialog& dialog) = 0;
    virtual std::optional<FolderItem> choose_open_file(const FileRequest& request) = 0;
    virtual std::optional<FolderItem> choose_save_file(const FileRequest& request) = 0;
    virtual std::unique_ptr<Graphics> choose_printer() = 0; // null: dismissed
    // The same, for a page that is known by a name; a desktop shows it where the user may look for it.
    virtual std::unique_ptr<Graphics> choose_printer_for(const std::string&) { return choose_printer(); }
    virtual void file_chosen(const FolderItem&) {} // to be opened or saved, by a dialog or without one
    virtual void show_fault(const FaultReport& report) = 0;
    virtual void Beep() = 0;
    virtual Date current_date() = 0;
    virtual const std::vector<std::string>& fonts() = 0;     // names of font families
    virtual std::optional<std::string> clipboard_text() = 0; // none where the clipboard holds no text
    virtual void set_clipboard_text(const std::string& text) = 0;
    virtual void call_soon(std::function<void()> call) = 0;         // from the event loop, when nothing else runs
    virtual void call_later(Microseconds, std::function<void()>) {} // after so long, also while a dialog is shown

    // Windows. A window is made known when it is shown for the first time and forgotten before it is freed.
    virtual void window_shown(Window& window) = 0; // now visible and in front
    virtual void window_hidden(Window& window) = 0;
    virtual void window_closed(Window& window) = 0;
    virtual void event_ended() {} // an outermost event has returned
    virtual void quit() = 0;      // end the event loop
};

} // namespace tessit
