// SPDX-License-Identifier: MIT
// A styled field in its window, edited by keys and buttons, and the keys that press the window's buttons.
#include "dialog_driver.h"
#include "editor/edit_window.h"
#include "folder_desktop.h"
#include "report/page_setup_window.h"
#include "report/qc_window.h"

#include <QPrintDialog>

namespace tessit::qt {

namespace {

class StyledField : public ProgramTest, protected DialogDriver {
protected:
    StyledField() {
        app.choose_menu("FileCreateNewFile");
        app.choose_menu("FilePrint");
        edit = widget(app.pgsetupwindow.get()).findChild<QTextEdit*>("headingfield");
        model().SetText("ab");
        edit->moveCursor(QTextCursor::End);
    }

    EditField& model() { return app.pgsetupwindow->headingfield; }
    QToolButton& bold() { return *edit->window()->findChild<QToolButton*>("Boldbutton1"); }
    std::vector<StyledRun> runs() { return model().StyledText().runs(); }

    QTextEdit* edit = nullptr;
};

TEST_F(StyledField, answers_are_typed_behind_their_prompts) {
    app.from_user("test", [this] { app.qcsetupwindow->Show(); });
    const auto& window = widget(app.qcsetupwindow.get());
    for (const char* name : {"serialfield", "qcfield"}) {
        auto& field = *window.findChild<QLineEdit*>(QLatin1String(name));
        field.setFocus(Qt::TabFocusReason);
        QCoreApplication::processEvents();
        QTest::keyClicks(&field, "42");
    }
    EXPECT_EQ(app.qcsetupwindow->serialfield.Text(), "Zephon Serial#: 42");
    EXPECT_EQ(app.qcsetupwindow->qcfield.Text(), "Qc'd by: 42");
}

constexpr TextStyle bold_style{.bold = true};

TEST_F(StyledField, types_in_the_style_chosen_and_undoes_it) {
    EXPECT_FALSE(bold().isChecked());
    EXPECT_GT(QRegion(bold().icon().pixmap(64, 64).mask()).boundingRect().height(), 32) << "its letter fills it";
    QTest::mouseClick(&bold(), Qt::LeftButton);
    EXPECT_TRUE(edit->hasFocus()) << "a click on a style button leaves the field its focus";
    EXPECT_TRUE(bold().isChecked());
    QTest::keyClicks(edit, "cd");
    EXPECT_EQ(runs(), (std::vector<StyledRun>{{"ab", {}}, {"cd", bold_style}}));
    QTest::mouseClick(&bold(), Qt::LeftButton);
    QTest::keyClicks(edit, "e");
    EXPECT_EQ(runs().back(), (StyledRun{"e", {}}));
    EXPECT_FALSE(bold().isChecked());
    QTest::keyClick(edit, Qt::Key_Left);
    EXPECT_TRUE(bold().isChecked());
    edit->selectAll();
    QTest::mouseClick(&bold(), Qt::LeftButton);
    EXPECT_EQ(runs(), (std::vector<StyledRun>{{"abcde", bold_style}}));
    QTest::keyClick(edit, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(runs().size(), 3U) << "undone in the model too";
    model().SetText("");
    QTest::keyClicks(edit, "x");
    EXPECT_EQ(runs(), (std::vector<StyledRun>{{"x", {}}}));
}

TEST_F(StyledField, takes_pasted_text_in_its_own_style) {
    auto* rich = new QMimeData;
    rich->setHtml("<b>bold</b> <font size=7>large</font>");
    rich->setText("bold large");
    QGuiApplication::clipboard()->setMimeData(rich);
    edit->paste();
    EXPECT_EQ(runs(), (std::vector<StyledRun>{{"abbold large", {}}}));
    QTest::keyClick(edit, Qt::Key_Return);
    EXPECT_EQ(model().Text(), "abbold large\r");
}

TEST_F(StyledField, keys_press_the_buttons_that_they_belong_to) {
    bool asked = false;
    when_shown<QPrintDialog>([&](QPrintDialog& dialog) {
        asked = true;
        dialog.reject();
    });
    QTest::keyClick(&bold(), Qt::Key_Return);
    EXPECT_TRUE(asked && !app.pgsetupwindow->Visible());
    app.choose_menu("FilePrint");
    QTest::keyClick(edit, Qt::Key_Escape);
    EXPECT_FALSE(app.pgsetupwindow.exists());
}

} // namespace

} // namespace tessit::qt
