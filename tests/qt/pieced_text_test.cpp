// SPDX-License-Identifier: MIT
// A field whose text is in pieces beside one that shows the same text in one paragraph: whatever the user does to both,
// they are the same.
#include "fixture.h"
#include "platform/text.h"
#include "qt/edit_field_widget.h"
#include "qt/pieced_text_edit.h"
#include "qt/widget_text.h"

#include <rapidcheck.h>

namespace tessit::qt {

namespace {

class TwoFields : public Window {
public:
    explicit TwoFields(Application& application)
        : Window(application, {.name = "two", .title = "Two", .width = 400, .height = 320}) {}

    EditField pieced{*this, {.name = "pieced"}, design(pieced)};
    EditField whole{*this, {.name = "whole"}, design(whole)};

private:
    static EditFieldDesign design(EditField& field) {
        return {.multiline = true, .keeps_history = true, .on_text_change = [&field] {
                    field.SetText(ReplaceAll(field.Text(), ", ,", ","));
                }};
    }
};

using Key = std::pair<Qt::Key, Qt::KeyboardModifiers>;

rc::Gen<Key> keys() {
    static const std::vector<Key> all = [] {
        std::vector<Key> each{{Qt::Key_Z, Qt::ControlModifier}, {Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier}};
        for (const auto typed : {Qt::Key_7, Qt::Key_Comma, Qt::Key_Space, Qt::Key_Period, Qt::Key_Return}) {
            each.emplace_back(typed, Qt::NoModifier);
        }
        for (const auto key : {Qt::Key_Left, Qt::Key_Right, Qt::Key_Backspace, Qt::Key_Delete}) {
            each.emplace_back(key, Qt::NoModifier);
            each.emplace_back(key, Qt::ControlModifier);
        }
        for (const auto key : {Qt::Key_Left, Qt::Key_Right}) {
            each.emplace_back(key, Qt::ShiftModifier);
            each.emplace_back(key, Qt::ShiftModifier | Qt::ControlModifier);
        }
        return each;
    }();
    return rc::gen::elementOf(all);
}

// The edit takes what the field's widget leaves of a key.
struct Shown {
    Shown(EditField& model, QWidget& parent, int piece_length) : field(model), adapter(model, parent, piece_length) {
        edit.setLineWrapMode(QPlainTextEdit::NoWrap); // lines end elsewhere where there are pieces
    }
    void press(const Key& key) { QTest::keyClick(&edit, key.first, key.second); }
    void drop(const QString& text) {
        QMimeData data;
        data.setText(text);
        QDropEvent event({4, 4}, Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(edit.viewport(), &event);
    }
    std::string state() {
        edit.copy();
        return joined(field.Text(), field.SelStart(), field.SelLength(), edit.text() == to_widget(field.Text()),
                      edit.selection_start(), edit.selection_end(), QGuiApplication::clipboard()->text());
    }

    EditField& field;
    TextFieldWidget adapter;
    PiecedTextEdit& edit = static_cast<PiecedTextEdit&>(adapter.widget());
};

TEST(PiecedText, is_edited_like_one_paragraph) {
    SampleDesktop desktop;
    SampleApp app(desktop);
    int cut = 0;
    EXPECT_TRUE(rc::check([&] {
        TwoFields window(app);
        QWidget parent;
        Shown pieced(window.pieced, parent, *rc::gen::inRange(4, 12));
        Shown whole(window.whole, parent, 0);
        const auto both = [&](const std::function<void(Shown&)>& change) {
            change(pieced);
            change(whole);
        };
        std::string text;
        for (const int entry : *rc::gen::container<std::vector<int>>(rc::gen::inRange(1, 2000))) {
            text += Str(entry) + (entry % 50 == 0 ? "\r" : ", ");
        }
        both([&](Shown& shown) { shown.field.SetText(text); });
        cut += pieced.edit.blockCount() > whole.edit.blockCount() ? 1 : 0;
        for (int step = *rc::gen::inRange(0, 8); step >= 0; --step) {
            const int length = Len(window.whole.Text());
            const int start = *rc::gen::inRange(0, length + 1);
            const int end = *rc::gen::oneOf(rc::gen::just(start), rc::gen::inRange(0, length + 1));
            both([&](Shown& shown) { shown.edit.select(start, end); });
            switch (*rc::gen::inRange(0, 6)) {
            case 0:
                QGuiApplication::clipboard()->setText(
                    *rc::gen::element<QString>("5, ", "1, 22, 333, 4444, 55, ", "\n"));
                both([](Shown& shown) { shown.edit.paste(); });
                break;
            case 1:
                both([](Shown& shown) { shown.drop("6, 77, 888, 9999, "); });
                break;
            default:
                break;
            }
            for (const Key& key : *rc::gen::scale(0.4, rc::gen::container<std::vector<Key>>(keys()))) {
                both([&](Shown& shown) { shown.press(key); });
            }
            RC_ASSERT(pieced.state() == whole.state());
        }
    }));
    EXPECT_GT(cut, 0);
}

TEST(PiecedText, lines_and_paragraphs_are_those_of_the_text) {
    PiecedTextEdit edit(nullptr);
    edit.set_piece_length(40);
    QString text;
    for (int entry = 10; entry < 60; ++entry) {
        text += QString::number(entry) + QLatin1String(", ");
    }
    edit.set_text(text);
    edit.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&edit));
    QTest::keyClick(&edit, Qt::Key_End); // in front of the blank at which a line is broken
    EXPECT_EQ(edit.selection_end(), 39);
    const auto press = [&edit] { QTest::mousePress(edit.viewport(), Qt::LeftButton, Qt::NoModifier, {8, 10}); };
    press();
    QTest::mouseDClick(edit.viewport(), Qt::LeftButton, Qt::NoModifier, {8, 10});
    EXPECT_EQ(edit.selection_end() - edit.selection_start(), 2);
    press();
    EXPECT_EQ(edit.selection_end() - edit.selection_start(), text.size());
}

} // namespace

} // namespace tessit::qt
