// SPDX-License-Identifier: MIT
// Lists to choose from, text fields, radio buttons, progress bars.
#include "platform/buttons.h"
#include "platform/choice.h"
#include "platform/edit_field.h"
#include "platform/small_application.h"
#include "platform/static_controls.h"
#include "platform/text.h"

#include <gtest/gtest.h>

namespace tessit::testing {
namespace {

class Controls : public ::testing::Test {
protected:
    ScriptedDesktop desktop;
    SmallApplication app{desktop};
    Panel window{app};
    int changes = 0;

    ChoiceDesign waves(int index) {
        return {.items = {"Square", "Sine", "Triangle"}, .list_index = index, .on_change = [this] { ++changes; }};
    }
    int changes_since_last() { return std::exchange(changes, 0); }
};

TEST_F(Controls, an_index_raises_change_only_when_it_really_changes) {
    const std::tuple<int, int, int, int, const char*> cases[] = {
        {0, 0, 0, 0, "Square"},  {0, 2, 2, 1, "Triangle"}, {0, 3, 0, 0, "Square"}, // beyond the list: all stays
        {0, -2, 0, 0, "Square"}, {0, -1, -1, 1, ""},       {-1, -1, -1, 0, ""},    {-1, 0, 0, 1, "Square"},
    };
    for (const auto& [from, to, after, raised, text] : cases) {
        PopupMenu by_program(window, {.name = "by_program"}, waves(from));
        by_program.SetListIndex(to);
        EXPECT_EQ(changes_since_last(), raised) << from << " to " << to;
        ComboBox by_user(window, {.name = "by_user"}, waves(from));
        by_user.choose(to);
        EXPECT_EQ(changes_since_last(), raised) << from << " to " << to;
        EXPECT_EQ(by_program.ListIndex(), after);
        EXPECT_EQ(by_user.ListIndex(), after);
        EXPECT_EQ(by_program.Text(), text);
        EXPECT_EQ(by_user.Text(), text);
    }
}

TEST_F(Controls, a_typed_text_is_of_the_list_or_of_none) {
    ComboBox box(window, {.name = "box"}, waves(1));
    const std::tuple<const char*, int, int> cases[] = {
        {"Sine", 1, 0},     {"Sin", -1, 1},     {"Sinus", -1, 0}, // from none to none
        {"", -1, 0},        {"triangle", 2, 1},                   // in either case
        {"Triangle", 2, 0}, {"Square", 0, 1},
    };
    for (const auto& [typed, index, raised] : cases) {
        box.edit(typed);
        EXPECT_EQ(box.ListIndex(), index) << typed;
        EXPECT_EQ(box.Text(), typed);
        EXPECT_EQ(changes_since_last(), raised) << typed;
    }
    box.SetText("Sawtooth");
    box.SetListIndex(-1); // from a typed text to none at all
    EXPECT_EQ(joined(box.Text(), changes_since_last()), "|1");
}

TEST_F(Controls, a_new_list_keeps_the_chosen_text_and_raises_nothing) {
    PopupMenu menu(window, {.name = "menu"}, waves(1));
    menu.ReplaceRows({"Sine", "Square"});
    EXPECT_EQ(joined(menu.ListIndex(), menu.Text()), "0|Sine");
    menu.AddRow("Triangle");
    EXPECT_EQ(menu.List(2), "Triangle");
    EXPECT_THROW(menu.List(3), Fault);
    menu.ReplaceRows({"Square"});
    EXPECT_EQ(menu.ListIndex(), -1);
    menu.ReplaceRows({});
    EXPECT_EQ(joined(menu.ListCount(), changes), "0|0");
}

TEST_F(Controls, user_input_does_not_reach_what_is_disabled_or_hidden) {
    ComboBox box(window, {.name = "box", .enabled = false}, waves(0));
    EditField field(window, {.name = "field", .visible = false}, {.text = "old"});
    RadioButton radio(window, {.name = "radio", .enabled = false});
    box.choose(1);
    box.edit("Sine");
    field.type("new");
    field.edit("new");
    radio.click();
    EXPECT_EQ(joined(box.ListIndex(), field.Text()), "0|old");
    EXPECT_FALSE(radio.Value());
    box.SetListIndex(1); // but the program's setters do
    field.SetText("new");
    EXPECT_EQ(joined(box.ListIndex(), field.Text()), "1|new");
}

TEST_F(Controls, a_fault_of_a_handler_goes_to_whoever_set_the_value) {
    PopupMenu menu(window, {.name = "menu"},
                   {.items = {"a", "b"}, .on_change = [] { throw Fault(FaultKind::internal, "a fault"); }});
    EXPECT_THROW(menu.SetListIndex(0), Fault);
    desktop.expect_fault("panel.menu_Change");
    menu.choose(1);
    EXPECT_EQ(menu.ListIndex(), 1);
}

TEST_F(Controls, a_field_knows_one_line_end_or_none) {
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {"a\nb", "a\rb", "a b"},
        {"a\r\nb", "a\rb", "a b"},
        {"\na\rb\r", "\ra\rb\r", "a b"},
        {"a\r\n\nb", "a\r\rb", "a b"},
        {"a\r\r\nb\n\r", "a\r\rb\r\r", "a b"},
    };
    for (const auto& [text, multiline, single_line] : cases) {
        EditField many(window, {.name = "many"}, {.multiline = true});
        EditField one(window, {.name = "one"}, {.text = text});
        EXPECT_EQ(one.Text(), single_line);
        one.SetText("");
        many.edit(text);
        one.edit(text);
        EXPECT_EQ(many.Text(), multiline);
        EXPECT_EQ(one.Text(), single_line);
        one.SetText("");
        one.SetText(text);
        EXPECT_EQ(one.Text(), single_line);
    }
    EditField many(window, {.name = "many"}, {.text = "a", .multiline = true});
    EditField one(window, {.name = "one"}, {.text = "a"});
    for (EditField* field : {&many, &one}) {
        field->press(keys::return_);
        field->press(keys::enter);
        field->type("b");
    }
    EXPECT_EQ(joined(many.Text(), one.Text()), "a\rb|ab");
}

TEST_F(Controls, a_text_raises_change_only_when_it_differs) {
    int edits = 0;
    EditField field(window, {.name = "field"},
                    {.text = "a", .on_text_change = [this] { ++changes; }, .on_edit = [&] { ++edits; }});
    field.SetText("a");
    field.edit("a\n"); // no line end comes in
    EXPECT_EQ(joined(changes_since_last(), edits), "0|0");
    field.SetText("b");
    field.edit("c");
    field.type("de");
    EXPECT_EQ(changes_since_last(), 4);
    EXPECT_EQ(edits, 3) << "the user's alone";
    EXPECT_EQ(field.Text(), "cde");
}

TEST_F(Controls, the_limit_is_the_users_alone_and_counts_characters) {
    EditField field(window, {.name = "field"}, {.limit_text = 4});
    field.type("12345");
    EXPECT_EQ(field.Text(), "1234");
    field.edit("123456"); // pasted
    EXPECT_EQ(field.Text(), "1234");
    field.edit("\xE2\x82\xAC\xE2\x82\xAC\xE2\x82\xAC\xE2\x82\xAC");
    EXPECT_EQ(Len(field.Text()), 4);
    field.SetText("1234567");
    EXPECT_EQ(field.Text(), "1234567");
    field.edit("123456"); // may be shortened, and not made longer
    field.edit("123456x");
    EXPECT_EQ(field.Text(), "123456");
}

TEST_F(Controls, a_read_only_field_takes_no_text) {
    EditField fixed(window, {.name = "fixed"}, {.text = "a", .read_only = true});
    fixed.type("b");
    fixed.edit("c");
    EXPECT_EQ(fixed.Text(), "a");
}

TEST_F(Controls, one_button_of_a_group_is_on_at_most) {
    int actions = 0;
    RadioButton comma(window, {.name = "comma"}, {.group = 0, .on_action = [&] { ++actions; }});
    RadioButton point(window, {.name = "point"}, {.group = 0, .value = true, .on_action = [&] { ++actions; }});
    RadioButton other(window, {.name = "other"}, {.group = 1, .value = true});
    comma.SetValue(true);
    EXPECT_TRUE(comma.Value() && !point.Value() && other.Value());
    EXPECT_EQ(actions, 0);
    point.click();
    point.click(); // the one that is on acts too
    EXPECT_TRUE(point.Value() && !comma.Value() && other.Value());
    EXPECT_EQ(actions, 2);
    point.SetValue(false);
    EXPECT_FALSE(comma.Value() || point.Value());
}

} // namespace
} // namespace tessit::testing
