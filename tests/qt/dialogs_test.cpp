// SPDX-License-Identifier: MIT
#include "dialog_driver.h"
#include "fixture.h"

#include "qt/file_dialogs.h"

namespace tessit::qt {

namespace {

class Dialogs : public SampleTest, protected DialogDriver {
protected:
    FileRequest request(const std::string& default_name = "") {
        return {.type = {"Zephon File/zp2", "zp2", ".zp2"},
                .default_name = default_name,
                .start_folder = FolderItem(folder.path().toStdString())};
    }
    void write_file(const char* name) { EXPECT_TRUE(QFile(folder.filePath(name)).open(QIODevice::WriteOnly)); }

    QTemporaryDir folder;
    QPoint on_button;
};

TEST_F(Dialogs, each_button_is_its_answer) {
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
    const auto press = [](Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        return [=](QMessageBox& box) {
            EXPECT_TRUE(QTest::qWaitForWindowActive(&box));
            QTest::keyClick(&box, key, modifiers);
        };
    };
    const auto close = [](QMessageBox& box) { box.close(); };
    const Case cases[] = {
        {question, click("ActionButton"), DialogAnswer::action},
        {question, click("CancelButton"), DialogAnswer::cancel},
        {question, click("AlternateActionButton"), DialogAnswer::alternate},
        {question, press(Qt::Key_Escape), DialogAnswer::cancel},
        {question, press(Qt::Key_Return), DialogAnswer::action},
        {question, press(Qt::Key_D, Qt::AltModifier), DialogAnswer::alternate},
        {question, close, DialogAnswer::cancel},
        {note, press(Qt::Key_Escape), DialogAnswer::action},
        {note, close, DialogAnswer::action},
        {note, [](QMessageBox& box) { box.done(0); }, DialogAnswer::cancel}, // ended without a button
    };
    for (const Case& test : cases) {
        when_shown<QMessageBox>(test.user);
        EXPECT_EQ(desktop.show_dialog(test.dialog), test.answer) << (&test - cases);
    }
}

TEST_F(Dialogs, texts_are_shown_as_they_are) {
    when_shown<QMessageBox>([](QMessageBox& box) {
        EXPECT_EQ(box.text(), "<b>a</b>\nb");
        for (const QLabel* label : box.findChildren<QLabel*>()) {
            EXPECT_EQ(label->textFormat(), Qt::PlainText) << label->objectName().toStdString();
        }
        box.accept();
    });
    desktop.show_dialog({.Message = "<b>a</b>\rb", .Explanation = "<i>c</i>"});
}

// What the save dialog does with a typed name.
struct Typed {
    std::string name;
    std::string proposed_again; // where the dialog told something: the name that stands in it then
    const char* told;
    const char* chosen;
};

TEST_F(Dialogs, save_adds_the_extension_and_refuses_what_cannot_be_created) {
    write_file("there.zp2");
    write_file("read-only.zp2");
    QFile::setPermissions(folder.filePath("read-only.zp2"), QFile::ReadOwner);
    QDir(folder.path()).mkdir("folder.zp2");
    QDir(folder.path()).mkdir("inner");
    const std::string long_name(300, 'a');
    const Typed cases[] = {
        {"c", "", nullptr, "c.zp2"},
        {"Night 7.83", "", nullptr, "Night 7.83.zp2"},
        {"Night.ZP2", "", nullptr, "Night.ZP2"},
        {"inner/a.b", "", nullptr, "inner/a.b.zp2"},
        {"there", "there.zp2", "there.zp2 already exists.", "there.zp2"},
        {"read-only", "read-only", "could not be created: Permission denied.", nullptr},
        {"missing/c", "missing/c", "could not be created: No such file or directory.", nullptr},
        {"folder", "folder", "could not be created: Is a folder.", nullptr},
        {long_name, long_name, "could not be created: File name too long.", nullptr},
    };
    for (const Typed& typed : cases) {
        when_shown<QFileDialog>([&](QFileDialog& dialog) {
            auto* name = dialog.findChild<QLineEdit*>("fileNameEdit");
            name->setFocus();
            name->setText(QString::fromStdString(typed.name));
            if (typed.told != nullptr) {
                when_shown<QMessageBox>([&](QMessageBox& box) {
                    EXPECT_TRUE(box.text().contains(QLatin1String(typed.told))) << box.text().toStdString();
                    EXPECT_EQ(name->text().toStdString(), typed.proposed_again);
                    box.buttons().front()->click(); // Yes, or OK
                    QTimer::singleShot(0, &dialog, &QDialog::reject);
                });
            }
            QTest::keyClick(name, Qt::Key_Return);
        });
        const auto chosen = desktop.choose_save_file(request("a.zp2"));
        EXPECT_EQ(chosen ? chosen->AbsolutePath() : "nothing",
                  typed.chosen == nullptr ? "nothing" : folder.filePath(typed.chosen).toStdString());
    }
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden), QStringList({"read-only.zp2", "there.zp2"}));
}

TEST_F(Dialogs, save_goes_into_a_folder_whose_name_is_typed) {
    QDir(folder.path()).mkdir("inner");
    when_shown<QFileDialog>([this](QFileDialog& dialog) {
        auto* name = dialog.findChild<QLineEdit*>("fileNameEdit");
        EXPECT_EQ(name->text(), "a-b.zp2");
        EXPECT_EQ(dialog.nameFilters(), QStringList("Zephon File/zp2 (*.zp2)"));
        name->setText("inner");
        QTest::keyClick(name, Qt::Key_Return);
        EXPECT_TRUE(dialog.isVisible());
        EXPECT_EQ(dialog.directory().path(), folder.filePath("inner"));
        name->setText("a");
        QTest::keyClick(name, Qt::Key_Return);
    });
    const auto chosen = desktop.choose_save_file(request("a/b.zp2"));
    ASSERT_TRUE(chosen.has_value());
    EXPECT_EQ(chosen->AbsolutePath(), folder.filePath("inner/a.zp2").toStdString());
}

TEST_F(Dialogs, what_is_made_of_a_saved_file_is_proposed_beside_it) {
    QDir(folder.path()).mkdir("inner");
    write_file("inner/kept.zp2");
    const std::string saved = folder.filePath("inner/kept.zp2").toStdString();
    const std::pair<std::string, std::string> cases[] = {
        {saved, saved + ".zp2"},
        {"/gone/kept.zp2", folder.filePath("-gone-kept.zp2.zp2").toStdString()},
    };
    for (const auto& [name, chosen] : cases) {
        when_shown<QFileDialog>(
            [](QFileDialog& dialog) { QTest::keyClick(dialog.findChild<QLineEdit*>("fileNameEdit"), Qt::Key_Return); });
        EXPECT_EQ(desktop.choose_save_file(request(name + ".zp2"))->AbsolutePath(), chosen);
    }
}

TEST_F(Dialogs, open_gives_the_file_and_nothing_when_dismissed) {
    write_file("Night 7.83.zp2");
    for (const char* typed : {"Night 7.83.zp2", "Night 7.83"}) {
        when_shown<QFileDialog>([typed](QFileDialog& dialog) {
            auto* name = dialog.findChild<QLineEdit*>("fileNameEdit");
            name->setText(typed);
            QTest::keyClick(name, Qt::Key_Return);
        });
        const auto chosen = desktop.choose_open_file(request());
        ASSERT_TRUE(chosen.has_value());
        EXPECT_EQ(chosen->DisplayName(), "Night 7.83.zp2");
    }
    when_shown<QFileDialog>([](QFileDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
    EXPECT_FALSE(desktop.choose_open_file(request()).has_value());
}

TEST_F(Dialogs, begin_where_the_last_start_chose_a_file) {
    class NextStart : public QtDesktop {
    public:
        explicit NextStart(FolderItem place) : place_(std::move(place)) {}
        FolderItem program_folder() override { return place_; }

    private:
        FolderItem place_;
    };
    write_file("night.zp2");
    when_shown<QFileDialog>([this](QFileDialog& dialog) {
        EXPECT_EQ(dialog.directory().path().toStdString(), desktop.program_folder().AbsolutePath());
        auto* name = dialog.findChild<QLineEdit*>("fileNameEdit");
        name->setText(folder.filePath("night.zp2"));
        QTest::keyClick(name, Qt::Key_Return);
    });
    app.GetOpenFolderItem(request().type);
    when_shown<QFileDialog>([this](QFileDialog& dialog) {
        EXPECT_EQ(dialog.directory().path(), folder.path());
        dialog.reject();
    });
    FileRequest next = request();
    next.start_folder = desktop.program_folder();
    NextStart(desktop.program_folder()).choose_open_file(next);
}

TEST(FileNames, are_made_harmless_and_short_enough) {
    std::string long_name;
    for (int i = 0; i < 100; ++i) {
        long_name += "\xE2\x82\xAC"; // three bytes each
    }
    const std::pair<std::string, std::string> cases[] = {
        {"Untitled.zp2", "Untitled.zp2"}, {"a/b.zp2", "a-b.zp2"},
        {"../x.zp2", "..-x.zp2"},         {"two\rlines", "two-lines.zp2"},
        {"a \"b\".zp2", "a -b-.zp2"},     {long_name + ".zp2", long_name.substr(0, 83UL * 3) + ".zp2"},
    };
    for (const auto& [name, proposed] : cases) {
        EXPECT_EQ(proposed_name(name, ".zp2").toStdString(), proposed);
    }
}

TEST_F(Dialogs, shown_while_leaving_a_field_leaves_no_button_down) {
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
