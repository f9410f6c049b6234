// SPDX-License-Identifier: MIT
// The desktop that Qt provides: windows, dialogs, clock, serial ports, sockets. Used as
//   qt::GuiApplication gui(argc, argv); qt::QtDesktop desktop; App app(desktop, version); app.start();
//   return desktop.run();
// The desktop must outlive the program's application. It gets to know it when the first window is shown.
#pragma once

#include "platform/desktop.h"
#include "qt/activation.h"
#include "qt/desktop_state.h"
#include "qt/look.h"
#include "qt/printing.h"
#include "qt/qt_clock.h"
#include "qt/qt_serial.h"
#include "qt/qt_socket.h"
#include "qt/recent_files.h"
#include "qt/window_widget.h"

#include <QApplication>
#include <QPointer>
#include <map>
#include <string>
#include <vector>

namespace tessit::qt {

// A net below the borders that catch faults: what still gets here is reported and does not end the event loop.
class GuiApplication : public QApplication {
public:
    using QApplication::QApplication;
    bool notify(QObject* receiver, QEvent* event) override;
};

class QtDesktop : public Desktop {
public:
    QtDesktop();
    ~QtDesktop() override;

    int run(); // the event loop, until `quit`; at once when `quit` has been called before

    Clock& clock() override { return clock_; }
    SerialPorts& serial_ports() override { return serial_ports_; }
    Sockets& sockets() override { return sockets_; }
    FolderItem program_folder() override;                // the user's own, or the executable's where it was built
    std::vector<FolderItem> document_folders() override; // the executable's, then those of an installation

    std::optional<FolderItem> recovery_folder() override; // beside the settings, or with the user's state

    DialogAnswer show_dialog(const MessageDialog& dialog) override;
    std::optional<FolderItem> choose_open_file(const FileRequest& request) override;
    std::optional<FolderItem> choose_save_file(const FileRequest& request) override;
    std::unique_ptr<Graphics> choose_printer() override { return choose_printer_for({}); }
    std::unique_ptr<Graphics> choose_printer_for(const std::string& document) override;
    void file_chosen(const FolderItem& file) override; // its folder is proposed by the next start's dialogs
    void show_fault(const FaultReport& report) override;
    void Beep() override;
    Date current_date() override;
    const std::vector<std::string>& fonts() override;
    std::optional<std::string> clipboard_text() override;
    void set_clipboard_text(const std::string& text) override;
    void call_soon(std::function<void()> call) override;
    void call_later(Microseconds delay, std::function<void()> call) override;

    void window_shown(Window& window) override;
    void window_hidden(Window& window) override;
    void window_closed(Window& window) override;
    void event_ended() override;
    void quit() override;

    virtual QFont desktop_font() { return qt::desktop_font(); } // asked whenever a window is made

    WindowWidget* widget_of(const Window& window) const; // null when it was never shown
    DesktopState& state();                               // of the last starts; read when it is first asked for

private:
    WindowWidget* front_widget(bool (*wanted)(const WindowWidget&)) const; // of those to be seen; null for none
    QWidget* active_widget() const; // what dialogs belong to: the frontmost window to be seen
    bool stands_before(const Window& one, const Window& other) const;
    OpenWindows open_windows(const Window& opening) const;
    void follow_desktop_font();
    WindowWidget& make_widget(Window& window);
    void ask_ports_ahead(); // where the last start asked for them
    void keep_whether_ports_were_asked();
    WindowWidget& ready_widget(Window& window); // made where it was not, a notice in its place
    void put_on_screen(Window& window);
    FileRequest in_last_folder(FileRequest request);
    void put_waiting_on_screen();
    void repaint_uncovered();
    void show_documents();
    void keep_place(const WindowWidget& widget);
    void keep_places(); // of all windows to be seen
    std::optional<KeptPlace> last_place(const WindowWidget& widget);

    std::optional<QFont> followed_font_; // the desktop's
    Activation activation_;
    QtClock clock_;
    QtSerialPorts serial_ports_;
    QtSockets sockets_;
    PrinterChoice printer_choice_;
    RecentFiles recent_files_;
    bool knows_folder_ = false; // of this start's files
    std::unique_ptr<DesktopState> state_;
    std::vector<std::string> fonts_; // once they were asked for
    std::map<const Window*, QPointer<WindowWidget>> widgets_;
    std::vector<Window*> waiting_;               // shown by the running handler, which may hide them again
    std::map<QString, QString> last_places_;     // by the window's name, so that it opens again as it was
    std::vector<QPointer<WindowWidget>> closed_; // until the event loop has deleted them
    Application* application_ = nullptr;
    bool quit_asked_ = false;
};

} // namespace tessit::qt
