// SPDX-License-Identifier: MIT
#include "platform/application.h"

#include "platform/array.h"

#include <algorithm>
#include <exception>
#include <utility>

namespace tessit {

SerialPort SystemServices::SerialPort(int index) const {
    const auto ports = serial_ports();
    return ports[checked_index(index, ports.size())];
}

Application::Application(Desktop& desktop, const Version& program_version, MenuBar menu_bar)
    : MenuBar1(std::move(menu_bar)), System(desktop), version(program_version), desktop_(desktop),
      last_folder_(desktop.program_folder().path()) {}

void Application::free_windows() {
    while (!windows_.empty()) {
        retire(*windows_.front().window);
    }
    retired_.clear();
}

Window& Application::Window(int index) const {
    return *windows_[checked_index(index, windows_.size())].window;
}

Window* Application::front_window() const {
    const auto found = std::find_if(windows_.begin(), windows_.end(), [](const OpenWindow& open) {
        return open.window->Visible() && open.window->design().frame != WindowFrame::notice;
    });
    return found == windows_.end() ? nullptr : found->window.get();
}

void Application::MsgBox(const std::string& message, DialogIcon icon) {
    ShowModal({.Message = message, .Icon = icon});
}

DialogAnswer Application::ShowModal(const MessageDialog& dialog) {
    return desktop_.show_dialog(dialog);
}

std::optional<FolderItem> Application::GetOpenFolderItem(const FileType& type) {
    auto chosen = chosen_ ? std::exchange(chosen_, std::nullopt)
                          : desktop_.choose_open_file({.type = type, .start_folder = FolderItem(last_folder_)});
    note_chosen(chosen);
    return chosen;
}

std::optional<FolderItem> Application::GetSaveFolderItem(const FileType& type, const std::string& default_name) {
    auto chosen = desktop_.choose_save_file(
        {.type = type, .default_name = default_name, .start_folder = FolderItem(last_folder_)});
    note_chosen(chosen);
    return chosen;
}

void Application::note_chosen(const std::optional<FolderItem>& file) {
    if (file) {
        last_folder_ = file->Parent().path();
        desktop_.file_chosen(*file);
    }
}

FolderItem Application::GetFolderItem(const std::string& name) const {
    return name.empty() ? desktop_.program_folder() : desktop_.program_folder().Child(name);
}

const std::string& Application::Font(int index) const {
    const auto& fonts = desktop_.fonts();
    return fonts[checked_index(index, fonts.size())];
}

void Application::Beep() {
    desktop_.Beep();
}

void Application::Quit() {
    if (quitting_) {
        return;
    }
    struct Attempt { // a veto or a fault ends the quitting
        bool& quitting;
        bool done = false;
        ~Attempt() { quitting = done; }
    } attempt{quitting_};
    quitting_ = true;
    kept_open_ = nullptr;
    std::vector<tessit::Window*> to_close;
    for (const OpenWindow& open : windows_) {
        if (open.window->design().lifetime == Lifetime::until_closed) {
            to_close.push_back(open.window.get());
        }
    }
    for (tessit::Window* window : to_close) {
        const auto is_open = [&] { return find(*window) != windows_.end(); };
        if (is_open()) {
            window->Close();
        }
        if (is_open() || kept_open_ != nullptr) { // this one, or one that was to close with it
            return;
        }
    }
    attempt.done = true;
    desktop_.quit();
}

void Application::raise(const std::string& handler, const std::function<void()>& body) {
    ++depth_;
    struct Leave {
        int& depth;
        ~Leave() { --depth; }
    } leave{depth_};
    try {
        body();
    } catch (Fault& fault) {
        fault.stamp(handler);
        throw;
    } catch (const std::exception& error) {
        Fault fault(FaultKind::internal, error.what());
        fault.stamp(handler);
        throw fault;
    }
}

void Application::guarded(const std::string& handler, const std::function<void()>& body) {
    try {
        raise(handler, body);
    } catch (const Fault& fault) {
        report(fault);
    }
}

void Application::report_soon(const Fault& fault) {
    desktop_.call_soon([this, fault] { from_user(fault.handler(), [&] { throw Fault(fault); }); });
}

void Application::from_user(const std::string& handler, const std::function<void()>& body) {
    ++depth_;
    event_ += depth_ == 1 ? 1 : 0;
    guarded(handler, body);
    if (depth_ == 1) {
        guarded(handler, [this] { end_outermost_event(); });
    }
    --depth_;
    if (depth_ == 0) {
        retired_.clear();
        all_events_ended();
        desktop_.event_ended();
    }
}

void Application::end_outermost_event() {
    tessit::Window* const kept_open = std::exchange(kept_open_, nullptr);
    if (quitting_) {
        return;
    }
    if (kept_open != nullptr && kept_open->Visible() && !in_front(*kept_open)) {
        bring_to_front(*kept_open);
    }
    if (nothing_to_be_seen()) {
        show_main_window();
    }
    tessit::Window* front = front_window(); // another may have come to the front as one was closed or hidden
    if (front != nullptr && front != active_) {
        bring_to_front(*front);
    }
}

void Application::report(const Fault& fault) {
    fault_caught();
    desktop_.show_fault({.kind = fault.kind(), .what = fault.what(), .handler = fault.handler()});
}

bool Application::nothing_to_be_seen() const {
    return std::none_of(windows_.begin(), windows_.end(), [](const auto& open) { return open.window->Visible(); });
}

void Application::enable_menu_items() {
    MenuBar1.restore_auto_enable();
    if (tessit::Window* front = front_window()) {
        ask_rules_of(*front);
    }
}

void Application::ask_rules_of(tessit::Window& window) {
    from_user(window.name() + ".Event_EnableMenuItems", [&window] { window.Event_EnableMenuItems(); });
}

bool Application::takes(tessit::Window& window, const FolderItem& file) {
    const auto entry = opening_entry(file);
    if (entry.empty() || busy() || !window.design().has_menu_bar) {
        return false;
    }
    MenuBar1.restore_auto_enable();
    ask_rules_of(window);
    return MenuBar1.item(entry).Enabled();
}

void Application::choose_menu(std::string_view entry, const FolderItem& chosen) {
    chosen_ = chosen;
    choose_menu(entry);
    chosen_.reset();
}

void Application::choose_menu(std::string_view entry) {
    enable_menu_items();
    MenuItem& item = MenuBar1.item(entry);
    if (item.Enabled()) {
        from_user("_" + item.name() + "_Action", [&] {
            if (!handled_in_front(item.name())) {
                item.run();
            }
        });
    }
}

bool Application::handled_in_front(std::string_view entry) {
    const tessit::Window* front = front_window();
    return front != nullptr && std::any_of(front->controls().begin(), front->controls().end(),
                                           [&](Control* control) { return control->handle_command(entry); });
}

Window& Application::adopt(std::unique_ptr<tessit::Window> window, std::function<void()> on_retired) {
    windows_.push_back({std::move(window), std::move(on_retired)});
    return *windows_.back().window;
}

void Application::open(tessit::Window& window) {
    raise(window.name() + ".Event_Open", [&] { window.Event_Open(); });
    if (window.design().opening == Opening::shows_itself) {
        window.Show();
    }
}

void Application::bring_to_front(tessit::Window& window) {
    const auto found = find(window);
    std::rotate(windows_.begin(), found, found + 1);
    desktop_.window_shown(window);
    if (window.design().frame != WindowFrame::notice && active_ != &window) {
        active_ = &window;
        raise(window.name() + ".Event_Activate", [&] { window.Event_Activate(); });
    }
}

void Application::hidden(tessit::Window& window) {
    desktop_.window_hidden(window);
    if (active_ == &window) {
        active_ = nullptr;
    }
}

void Application::retire(tessit::Window& window) {
    const auto found = find(window);
    window.visible_ = false;
    desktop_.window_closed(window);
    if (active_ == &window) {
        active_ = nullptr;
    }
    if (kept_open_ == &window) {
        kept_open_ = nullptr;
    }
    found->on_retired();
    retired_.push_back(std::move(found->window));
    windows_.erase(found);
}

std::vector<Application::OpenWindow>::iterator Application::find(const tessit::Window& window) {
    return std::find_if(windows_.begin(), windows_.end(),
                        [&](const auto& open) { return open.window.get() == &window; });
}

void Application::set_mouse(int x, int y) {
    System.mouse_x = x;
    System.mouse_y = y;
}

} // namespace tessit
