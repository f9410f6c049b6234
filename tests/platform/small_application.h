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
    void Event_EnableMenuItems() override;

private:
    void happened(const std::string& event);

    SmallApplication& app_;
};

struct MainPanel : RecordingWindow {
    explicit MainPanel(SmallApplication& app)
        : RecordingWindow(app, {.name = "main", .frame = WindowFrame::document, .lifetime = Lifetime::program}) {}
};

struct FirstDocument : RecordingWindow {
    explicit FirstDocument(SmallApplication& app)
        : RecordingWindow(app, {.name = "first", .frame = WindowFrame::document, .opening = Opening::shows_itself}) {}
};

struct SecondDocument : RecordingWindow {
    explicit SecondDocument(SmallApplication& app)
        : RecordingWindow(app, {.name = "second", .frame = WindowFrame::document, .opening = Opening::shows_itself}) {}
};

struct Panel : RecordingWindow {
    explicit Panel(SmallApplication& app) : RecordingWindow(app, {.name = "panel"}) {}
};

struct Notice : RecordingWindow {
    explicit Notice(SmallApplication& app) : RecordingWindow(app, {.name = "notice", .frame = WindowFrame::notice}) {}
};

class SmallApplication : public Application {
public:
    explicit SmallApplication(Desktop& desktop, MenuBar menu_bar = {})
        : Application(desktop, Version{}, std::move(menu_bar)) {}
    ~SmallApplication() override { free_windows(); }

    std::map<std::string, std::function<void()>> on; // by window and event, such as "first.Event_Open"
    std::set<std::string> vetoes;                    // names of windows that do not want to close
    std::vector<std::string> happened;
    int faults_caught = 0;

    ImplicitWindow<SmallApplication, MainPanel> main{*this};
    ImplicitWindow<SmallApplication, FirstDocument> first{*this};
    ImplicitWindow<SmallApplication, SecondDocument> second{*this};
    ImplicitWindow<SmallApplication, Panel> panel{*this};
    ImplicitWindow<SmallApplication, Notice> notice{*this};

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
    const auto found = app_.on.find(name() + "." + event);
    if (found != app_.on.end()) {
        found->second();
    }
}

inline bool RecordingWindow::Event_CancelClose() {
    happened("Event_CancelClose");
    return app_.vetoes.contains(name());
}

inline void RecordingWindow::Event_EnableMenuItems() {
    const auto found = app_.on.find(name() + ".Event_EnableMenuItems");
    if (found != app_.on.end()) {
        found->second();
    }
}

} // namespace tessit::testing
