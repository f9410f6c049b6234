// SPDX-License-Identifier: MIT
#include "platform/window.h"

#include "platform/small_application.h"

#include <gtest/gtest.h>

namespace tessit::testing {
namespace {

class Windows : public ::testing::Test {
protected:
    ScriptedDesktop desktop;
    SmallApplication app{desktop};

    void fault() const { throw Fault(FaultKind::internal, "a fault"); }
};

TEST_F(Windows, touching_a_window_makes_and_opens_it_once) {
    EXPECT_FALSE(app.first.exists());
    EXPECT_EQ(app.event([&] { app.first->Title(), app.first->Title(); }), "first.Event_Open first.Event_Activate");
    EXPECT_EQ(app.event([&] { app.panel->Title(); }), "panel.Event_Open");
    EXPECT_EQ(app.windows(), "first (panel)"); // documents show themselves, others wait to be shown
    EXPECT_EQ(desktop.shown, std::vector<std::string>{"first"});
}

TEST_F(Windows, a_closed_window_is_made_anew_when_it_is_touched) {
    app.event([&] { app.first->move_to(5, 5); });
    EXPECT_EQ(app.event([&] { app.first->Close(); }),
              "first.Event_CancelClose first.Event_Close main.Event_Open main.Event_Activate");
    EXPECT_FALSE(app.first.exists());
    app.event([&] { EXPECT_EQ(app.first->Left(), 0); });
    EXPECT_EQ(app.windows(), "first main");
    EXPECT_EQ(app.event([&] { app.second.Close(); }), ""); // no window: nothing to close
    EXPECT_FALSE(app.second.exists());
}

TEST_F(Windows, a_closed_window_lives_until_the_outermost_event_has_ended) {
    app.event([&] {
        FirstDocument& window = app.first.get();
        window.move_to(5, 7);
        window.Close();
        EXPECT_EQ(window.Top(), 7);
        EXPECT_FALSE(window.Visible());
        window.Show(); // does not bring it back
        FirstDocument& another = app.first.get();
        EXPECT_NE(&another, &window);
        EXPECT_EQ(another.Top(), 0);
    });
    EXPECT_EQ(app.WindowCount(), 1);
}

TEST_F(Windows, a_veto_keeps_the_window_open_until_the_next_try) {
    app.event([&] { app.first.get(); });
    app.vetoes = {"first"};
    EXPECT_EQ(app.event([&] { app.first->Close(); }), "first.Event_CancelClose");
    EXPECT_EQ(app.windows(), "first");
    app.vetoes.clear();
    app.happened.clear();
    app.first->close_by_user();
    EXPECT_EQ(app.windows(), "main");
}

TEST_F(Windows, a_fault_in_the_closing_does_not_keep_the_window_open) {
    app.event([&] { app.first.get(); });
    app.on = {{"first.Event_Close", [&] { fault(); }}};
    desktop.expect_fault("first.Event_Close");
    app.first->close_by_user();
    EXPECT_EQ(app.windows(), "main");
}

TEST_F(Windows, the_window_shown_last_is_in_front_and_hears_of_it) {
    app.event([&] { app.main->Show(); });
    app.event([&] { app.first.get(); });
    EXPECT_EQ(app.event([&] { app.second.get(); }), "second.Event_Open second.Event_Activate");
    EXPECT_EQ(app.windows(), "second first main");
    EXPECT_EQ(app.event([&] { app.second->Show(); }), ""); // it was in front
    app.happened.clear();
    app.second->activate();
    EXPECT_TRUE(app.happened.empty());
    app.first->activate();
    EXPECT_EQ(app.windows(), "first second main");
    EXPECT_EQ(app.happened, std::vector<std::string>{"first.Event_Activate"});
    EXPECT_EQ(app.event([&] { app.first->Close(); }),
              "first.Event_CancelClose first.Event_Close second.Event_Activate");
    EXPECT_EQ(app.event([&] { app.second->Hide(); }), "main.Event_Activate");
    app.second->activate(); // nobody can click a hidden window
    EXPECT_EQ(app.front_window(), &app.main.get());
    EXPECT_THROW(app.Window(app.WindowCount()), Fault);
    EXPECT_THROW(app.Window(-1), Fault);
}

TEST_F(Windows, a_notice_is_never_the_window_in_front) {
    app.event([&] { app.first.get(); });
    EXPECT_EQ(app.event([&] { app.notice->Show(); }), "notice.Event_Open");
    EXPECT_EQ(app.windows(), "notice first");
    EXPECT_EQ(app.front_window(), &app.first.get());
    app.event([&] { app.first->Hide(); });
    EXPECT_EQ(app.windows(), "notice (first)"); // something is to be seen
    EXPECT_EQ(app.front_window(), nullptr);
    app.notice->close_by_user();
    EXPECT_EQ(app.windows(), "main (first)");
}

TEST_F(Windows, the_main_window_comes_only_when_the_outermost_event_ends_with_nothing_to_be_seen) {
    app.event([&] { app.first.get(); });
    EXPECT_EQ(app.event([&] {
        app.from_user("inner", [&] { app.first->Hide(); });
        EXPECT_FALSE(app.main.exists());
        app.second.get();
    }),
              "second.Event_Open second.Event_Activate");
    EXPECT_FALSE(app.main.exists());
    desktop.expect_fault("event");
    app.event([&] {
        app.second->Close();
        fault();
    });
    EXPECT_EQ(app.windows(), "main (first)");
}

TEST_F(Windows, quitting_closes_all_others_from_the_front_and_shows_none_again) {
    app.event([&] {
        app.main.get();
        app.first.get();
        app.panel.get();
        app.second.get();
    });
    app.on["second.Event_Close"] = [&] { app.main->Show(); };
    EXPECT_EQ(app.event([&] { app.Quit(); }), "second.Event_CancelClose second.Event_Close first.Event_CancelClose "
                                              "first.Event_Close panel.Event_CancelClose panel.Event_Close");
    EXPECT_TRUE(desktop.has_quit && app.quitting());
    EXPECT_EQ(app.windows(), "(main)");
}

TEST_F(Windows, a_veto_or_a_fault_ends_the_quitting) {
    app.event([&] {
        app.first.get();
        app.second.get();
    });
    app.vetoes = {"first"};
    EXPECT_EQ(app.event([&] { app.Quit(); }),
              "second.Event_CancelClose second.Event_Close first.Event_CancelClose first.Event_Activate");
    EXPECT_FALSE(app.quitting());

    app.vetoes.clear();
    app.on["first.Event_CancelClose"] = [&] { fault(); };
    desktop.expect_fault("first.Event_CancelClose");
    app.event([&] { app.Quit(); });
    EXPECT_FALSE(app.quitting() || desktop.has_quit);
    EXPECT_EQ(app.windows(), "first");
}

} // namespace
} // namespace tessit::testing
