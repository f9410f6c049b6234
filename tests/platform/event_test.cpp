// SPDX-License-Identifier: MIT
// Events, faults on their way out, and the menu.
#include "platform/buttons.h"
#include "platform/small_application.h"

#include <gtest/gtest.h>
#include <new>
#include <stdexcept>

namespace tessit::testing {
namespace {

class Events : public ::testing::Test {
protected:
    ScriptedDesktop desktop;
    SmallApplication app{desktop};

    static void fault() { throw Fault(FaultKind::out_of_bounds, "a fault"); }
};

TEST_F(Events, a_fault_is_reported_once_with_the_innermost_handler) {
    desktop.expect_fault("inner");
    bool went_on = false;
    app.from_user("outer", [&] {
        app.raise("middle", [&] { app.raise("inner", fault); });
        went_on = true;
    });
    EXPECT_FALSE(went_on);
    EXPECT_EQ(desktop.faults, (std::vector<FaultReport>{{FaultKind::out_of_bounds, "a fault", "inner"}}));
    EXPECT_EQ(app.faults_caught, 1);
    EXPECT_FALSE(app.busy());
}

TEST_F(Events, an_event_inside_an_event_keeps_its_fault_to_itself) {
    desktop.expect_fault("inner");
    desktop.expect_fault("outer");
    bool went_on = false;
    app.from_user("outer", [&] {
        app.from_user("inner", fault);
        EXPECT_TRUE(app.busy());
        went_on = true;
        fault();
    });
    EXPECT_TRUE(went_on);
    EXPECT_EQ(app.faults_caught, 2);
}

TEST_F(Events, no_exception_of_the_library_gets_out) {
    desktop.expect_fault("low");
    desktop.expect_fault("event");
    app.from_user("event", [&] { app.raise("low", [] { throw std::bad_alloc(); }); });
    app.from_user("event", [] { throw std::out_of_range("no such thing"); });
    EXPECT_EQ(desktop.faults[0].kind, FaultKind::internal);
    EXPECT_EQ(desktop.faults[1], (FaultReport{FaultKind::internal, "no such thing", "event"}));
}

TEST_F(Events, a_fault_in_what_follows_an_event_is_reported_too) {
    app.on["main.Event_Open"] = fault; // main comes by itself, as nothing is to be seen
    desktop.expect_fault("main.Event_Open");
    EXPECT_NO_THROW(app.from_user("event", [] {}));
    app.on.clear();
    EXPECT_EQ(app.event([] {}), "main.Event_Activate");
}

TEST_F(Events, a_button_acts_unless_the_press_was_used_up_or_cannot_reach_it) {
    Panel window(app);
    std::string log;
    bool use_up = false;
    const auto press = [&] {
        log += "M";
        return use_up;
    };
    PushButton button(window, {.name = "button"}, {.on_action = [&] { log += "A"; }, .on_mouse_down = press});
    button.click();
    use_up = true;
    button.click();
    EXPECT_EQ(log, "MAM");
    button.SetEnabled(false);
    button.click();
    button.SetEnabled(true);
    button.SetVisible(false);
    button.click();
    EXPECT_EQ(log, "MAM");
}

TEST(MenuEvents, a_fault_in_an_action_bears_the_commands_name) {
    ScriptedDesktop desktop;
    SmallApplication app(desktop, MenuBar({{"FileMenu", "File", {MenuItem("Open", "Open", false)}}}));
    app.event([&] { app.first.get(); });
    app.MenuBar1.item("Open").bind([]() -> bool { throw Fault(FaultKind::nil_object, "a fault"); });
    app.on["first.Event_EnableMenuItems"] = [&] { app.MenuBar1.item("Open").Enable(); };
    desktop.expect_fault("_Open_Action");
    app.choose_menu("Open");
    app.on["first.Event_EnableMenuItems"] = [] { throw Fault(FaultKind::nil_object, "a fault"); };
    desktop.expect_fault("first.Event_EnableMenuItems");
    app.choose_menu("Open"); // what may not be enabled does not run
}

TEST_F(Events, file_dialogs_begin_where_the_last_one_ended) {
    const FileType type{.Name = "Zephon File", .MacType = "zp2", .Extensions = ".zp2"};
    std::filesystem::create_directory(desktop.folder / "elsewhere");
    desktop.choose_file(desktop.folder / "elsewhere/a.zp2");
    desktop.dismiss_file_dialog();
    desktop.dismiss_file_dialog();
    EXPECT_EQ(app.GetOpenFolderItem(type)->DisplayName(), "a.zp2");
    EXPECT_FALSE(app.GetSaveFolderItem(type, "b.zp2").has_value() || app.GetOpenFolderItem(type).has_value());
    ASSERT_EQ(desktop.file_requests.size(), 3U);
    EXPECT_EQ(desktop.file_requests[0].start_folder.path(), desktop.folder.path());
    EXPECT_EQ(desktop.file_requests[1].start_folder.path(), desktop.folder / "elsewhere");
    EXPECT_EQ(desktop.file_requests[1].default_name, "b.zp2");
    EXPECT_EQ(desktop.file_requests[2].start_folder.path(), desktop.folder / "elsewhere");
    EXPECT_EQ(app.GetFolderItem("").path(), desktop.folder.path());
    EXPECT_EQ(app.GetFolderItem("a.zp2").path(), desktop.folder / "a.zp2");
}

} // namespace
} // namespace tessit::testing
