// SPDX-License-Identifier: MIT
// A small application for tests of the control layer. Its windows write down what happens to them, and do in an
// event what the test has put there.
#pragma once

#include "platform/application.h"
#include "support/scripted_desktop.h"

#include <functional>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace tessit::testing {

class SmallApplication;

class RecordingWindow : public Window {
public:
    RecordingWindow(SmallApplication& app, const WindowDesign& design);

    void Event_Open() override { happened("Event_Open"); }
    void Event_Activate() override { happened("Event_Activate"); }
    bool Event_CancelClose() override;
    void Event_Close() override { happened("Event_Close"); }
    void Event_EnableMenuItems() override { react("Event_EnableMenuItems"); }

private:
    void happened(const std::string& event);
    void react(const std::string& event); // as the test wants it

    SmallApplication& app_;
};

enum class Kind { main, first, second, panel, notice };

inline WindowDesign design_of(Kind kind) {
    static const WindowDesign designs[] = {
        {.name = "main", .frame = WindowFrame::document, .lifetime = Lifetime::program},
        {.name = "first", .frame = WindowFrame::document, .opening = Opening::shows_itself},
        {.name = "second", .frame = WindowFrame::document, .opening = Opening::shows_itself},
        {.name = "panel"},
        {.name = "notice", .frame = WindowFrame::notice},
    };
    return designs[static_cast<int>(kind)];
}

template <Kind kind> struct SmallWindow : RecordingWindow {
    explicit SmallWindow(SmallApplication& app) : RecordingWindow(app, design_of(kind)) {}
};
using FirstDocument = SmallWindow<Kind::first>;
using Panel = SmallWindow<Kind::panel>;

class SmallApplication : public Application {
public:
    explicit SmallApplication(Desktop& desktop, MenuBar menu_bar = {})
        : Application(desktop, Version{}, std::move(menu_bar)) {}
    ~SmallApplication() override { free_windows(); }

    std::map<std::string, std::function<void()>> on; // by window and event, such as "first.Event_Open"
    std::set<std::string> vetoes;                    // names of windows that do not want to close
    std::vector<std::string> happened;
    int faults_caught = 0;

    ImplicitWindow<SmallApplication, SmallWindow<Kind::main>> main{*this};
    ImplicitWindow<SmallApplication, SmallWindow<Kind::first>> first{*this};
    ImplicitWindow<SmallApplication, SmallWindow<Kind::second>> second{*this};
    ImplicitWindow<SmallApplication, SmallWindow<Kind::panel>> panel{*this};
    ImplicitWindow<SmallApplication, SmallWindow<Kind::notice>> notice{*this};

    // One outermost event; what happened in it, separated by blanks.
    std::string event(const std::function<void()>& body) {
        happened.clear();
        from_user("event", body);
        std::string text;
        for (const std::string& name : happened) {
            text += (text.empty() ? "" : " ") + name;
        }
        return text;
    }

    std::string windows() const { // front to back, hidden ones in brackets
        std::string text;
        for (int i = 0; i < WindowCount(); ++i) {
            const tessit::Window& window = Window(i);
            text += (i == 0 ? "" : " ") + (window.Visible() ? window.name() : "(" + window.name() + ")");
        }
        return text;
    }

protected:
    void show_main_window() override { main->Show(); }
    void fault_caught() override { ++faults_caught; }
};

inline RecordingWindow::RecordingWindow(SmallApplication& app, const WindowDesign& design)
    : Window(app, design), app_(app) {}

inline void RecordingWindow::happened(const std::string& event) {
    app_.happened.push_back(name() + "." + event);
    react(event);
}

inline void RecordingWindow::react(const std::string& event) {
    if (const auto found = app_.on.find(name() + "." + event); found != app_.on.end()) {
        found->second();
    }
}

inline bool RecordingWindow::Event_CancelClose() {
    happened("Event_CancelClose");
    return app_.vetoes.contains(name());
}

} // namespace tessit::testing
