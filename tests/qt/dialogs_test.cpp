// SPDX-License-Identifier: MIT
#include "dialog_driver.h"
#include "fixture.h"

#include "qt/dialogs.h"

#include <QFile>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>

namespace tessit::qt {

namespace {

class Dialogs : public SampleTest, protected DialogDriver {
protected:
    QTemporaryDir folder;
    QPoint on_button;
};

TEST_F(Dialogs, EachButtonIsItsAnswer) {
    const MessageDialog question{.Message = "Save?",
                                 .ActionButton = {"Save", true},
                                 .CancelButton = {"Cancel", true},
                                 .AlternateActionButton = {"Don't Save", true}};
    const MessageDialog note{.Message = "Done"};
    struct Case {
        MessageDialog dialog;
        std::function<void(QMessageBox&)> user;
        DialogAnswer answer;
    };
    const auto click = [](const char* name) {
        return [name](QMessageBox& box) { box.findChild<QPushButton*>(QLatin1String(name))->click(); };
    };
    const auto press = [](Qt::Key key) { return [key](QMessageBox& box) { QTest::keyClick(&box, key); }; };
    const auto close = [](QMessageBox& box) { box.close(); };
    const Case cases[] = {
        {question, click("ActionButton"), DialogAnswer::action},
        {question, click("CancelButton"), DialogAnswer::cancel},
        {question, click("AlternateActionButton"), DialogAnswer::alternate},
        {question, press(Qt::Key_Escape), DialogAnswer::cancel},
        {question, press(Qt::Key_Return), DialogAnswer::action},
        {question, close, DialogAnswer::cancel},
        {note, press(Qt::Key_Escape), DialogAnswer::action},
        {note, close, DialogAnswer::action},
    };
    for (const Case& test : cases) {
        when_shown<QMessageBox>(test.user);
        EXPECT_EQ(desktop.show_dialog(test.dialog), test.answer) << (&test - cases);
    }
}

TEST_F(Dialogs, TextsAreShownAsTheyAre) {
    when_shown<QMessageBox>([](QMessageBox& box) {
        EXPECT_EQ(box.text(), "<b>a</b>\nb");
        for (const QLabel* label : box.findChildren<QLabel*>()) {
            EXPECT_EQ(label->textFormat(), Qt::PlainText) << label->objectName().toStdString();
        }
        box.accept();
    });
    desktop.show_dialog({.Message = "<b>a</b>\rb", .Explanation = "<i>c</i>"});
}

TEST_F(Dialogs, SaveProposesABareNameAndAddsTheExtension) {
    const FileRequest request{.type = {"Zephon File/zp2", "zp2", ".zp2"},
                              .default_name = "a/b.zp2",
                              .start_folder = FolderItem(folder.path().toStdString())};
    when_shown<QFileDialog>([](QFileDialog& dialog) {
        auto* name = dialog.findChild<QLineEdit*>("fileNameEdit");
        EXPECT_EQ(name->text(), "a-b.zp2");
        EXPECT_EQ(dialog.nameFilters(), QStringList("Zephon File/zp2 (*.zp2)"));
        name->setText("c");
        QTest::keyClick(name, Qt::Key_Return);
    });
    const auto chosen = desktop.choose_save_file(request);
    ASSERT_TRUE(chosen.has_value());
    EXPECT_EQ(chosen->AbsolutePath(), folder.filePath("c.zp2").toStdString());
}

TEST_F(Dialogs, OpenGivesTheFileAndNothingWhenDismissed) {
    QFile file(folder.filePath("a.zp2"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.close();
    const FileRequest request{.type = {"Zephon File", "zp2", ".zp2"},
                              .start_folder = FolderItem(folder.path().toStdString())};
    when_shown<QFileDialog>([](QFileDialog& dialog) {
        auto* name = dialog.findChild<QLineEdit*>("fileNameEdit");
        name->setText("a.zp2");
        QTest::keyClick(name, Qt::Key_Return);
    });
    const auto chosen = desktop.choose_open_file(request);
    ASSERT_TRUE(chosen.has_value());
    EXPECT_EQ(chosen->DisplayName(), "a.zp2");
    when_shown<QFileDialog>([](QFileDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
    EXPECT_FALSE(desktop.choose_open_file(request).has_value());
}

TEST(FileNames, AreMadeHarmless) {
    const std::pair<const char*, const char*> cases[] = {
        {"Untitled.zp2", "Untitled.zp2"},
        {"a/b.zp2", "a-b.zp2"},
        {"../x.zp2", "..-x.zp2"},
        {"two\rlines", "two-lines"},
    };
    for (const auto& [name, harmless] : cases) {
        EXPECT_EQ(harmless_file_name(name).toStdString(), harmless);
    }
}

TEST_F(Dialogs, ShownWhileLeavingAFieldLeavesNoButtonDown) {
    window().lost_focus = [this] {
        when_shown<QMessageBox>([this](QMessageBox& box) {
            QTest::mouseRelease(widget->windowHandle(), Qt::LeftButton, Qt::NoModifier, on_button);
            box.accept();
        });
        app.MsgBox("Leaving");
    };
    auto& button = find<QPushButton>("button");
    on_button = button.mapTo(widget, QPoint(10, 10));
    find<QLineEdit>("field").setFocus();
    QTest::mousePress(widget->windowHandle(), Qt::LeftButton, Qt::NoModifier, on_button);
    EXPECT_TRUE(eventually([&] { return !button.isDown(); }));
    EXPECT_TRUE(app.log.empty());
}

} // namespace

} // namespace tessit::qt
