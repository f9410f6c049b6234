// SPDX-License-Identifier: MIT
// From the window to the paper: prints to PDF files and reads back with another program what stands where.
#include "dialog_driver.h"
#include "editor/edit_window.h"
#include "folder_desktop.h"
#include "level/level_table.h"
#include "platform/text.h"
#include "qt/printing.h"
#include "report/page_setup_window.h"
#include "support/full_disk.h"
#include "support/scripted_desktop.h"

#include <QPrintDialog>
#include <QPrinter>
#include <algorithm>
#include <cmath>

namespace tessit::qt {

namespace {

struct Word {
    QString text;
    double left, top, right, bottom; // in points
};

QString output_of(const QString& program, const QStringList& arguments) {
    QProcess process;
    process.start(program, arguments);
    EXPECT_TRUE(process.waitForFinished()) << program.toStdString();
    EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
    return QString::fromUtf8(process.readAllStandardOutput());
}

std::vector<Word> words_of(const QString& file) {
    static const QRegularExpression pattern(
        R"re(<word xMin="([\d.-]+)" yMin="([\d.-]+)" xMax="([\d.-]+)" yMax="([\d.-]+)">(.*)</word>)re");
    std::vector<Word> words;
    for (auto at = pattern.globalMatch(output_of("pdftotext", {"-bbox", file, "-"})); at.hasNext();) {
        const auto match = at.next();
        words.push_back({match.captured(5), match.captured(1).toDouble(), match.captured(2).toDouble(),
                         match.captured(3).toDouble(), match.captured(4).toDouble()});
    }
    return words;
}

class Printing : public ProgramTest, protected DialogDriver {
protected:
    Printing() { app.choose_menu("FileCreateNewFile"); }

    QString file(const char* name = "report.pdf") { return desktop.folder.filePath(name); }
    EditWindow& editor() { return app.editwindow.get(); }
    PageSetupWindow& setup() { return app.pgsetupwindow.get(); }

    // What lies in the folder, finished or not.
    QStringList printed() {
        return QDir(desktop.folder.path()).entryList({"*.pdf", ".tessit*"}, QDir::Files | QDir::Hidden);
    }

    void add_level(const std::string& frequency) {
        editor().FreqField.SetText(frequency);
        app.from_user("level", [this] { app.Update_display(); });
    }

    void print_to(const QString& target) {
        app.choose_menu("FilePrint");
        finish_to(target);
    }
    static void accept(QPrintDialog& dialog, const QString& target) {
        auto* printers = dialog.findChild<QComboBox*>("printers");
        printers->setCurrentIndex(printers->findText("Print to File (PDF)"));
        dialog.findChild<QLineEdit*>("filename")->setText(target);
        dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->click();
    }
    void finish_to(const QString& target) {
        when_shown<QPrintDialog>([target](QPrintDialog& dialog) { accept(dialog, target); });
        setup().DoneButton.click();
    }
};

Word word_in(const std::vector<Word>& words, const char* text) {
    const auto found = std::find_if(words.begin(), words.end(), [&](const Word& word) { return word.text == text; });
    return found == words.end() ? Word{} : *found;
}

// The words that stand on one baseline, from left to right. A line of 9 points reaches from 8.1 above it to 1.9 below.
std::vector<Word> line_at(const std::vector<Word>& words, double baseline) {
    std::vector<Word> line;
    for (const Word& word : words) {
        if (std::abs(word.bottom - 1.9 - baseline) < 0.5) {
            line.push_back(word);
        }
    }
    std::sort(line.begin(), line.end(), [](const Word& a, const Word& b) { return a.left < b.left; });
    return line;
}

TEST_F(Printing, a_full_bank_stands_where_it_is_told) {
    for (int level = 1; level <= most_levels; ++level) {
        add_level(std::to_string(100 + level) + ".25");
    }
    app.choose_menu("FilePrint");
    setup().footerfield.SetText("Foot");
    finish_to(file());
    const auto words = words_of(file());
    EXPECT_TRUE(output_of("pdfinfo", {file()}).contains(QRegularExpression("Pages: +1\n")));
    for (int level = 1; level <= most_levels; ++level) {
        const auto line = line_at(words, 79 + 10 * level);
        ASSERT_GE(line.size(), 4U) << level;
        EXPECT_EQ(line[0].text, QString::number(level));
        EXPECT_NEAR((line[0].left + line[0].right) / 2, 50, 1) << level; // in the middle of 35 to 65
        EXPECT_EQ(line[1].text, "Single");
        EXPECT_NEAR(line[1].left, 65, 0.1);
        EXPECT_EQ(line[3].text, QString::number(100 + level) + ".25");
        EXPECT_NEAR(line[3].right, 195 - 15, 1) << level; // flush right but for the inset
    }
    const auto totals = line_at(words, 599);
    ASSERT_GE(totals.size(), 7U);
    EXPECT_NEAR(totals[0].left, 200, 0.1);
    EXPECT_EQ(joined(totals[3].text, totals[6].text), "50|02:30:00");
    const Word foot = word_in(words, "Foot");
    EXPECT_NEAR(foot.left, 35, 0.1);
    EXPECT_NEAR(foot.top, 639, 1);
    EXPECT_NEAR(foot.bottom - foot.top, 12 * 1.117, 0.5) << "12 points high";
}

TEST_F(Printing, styles_of_the_window_are_those_of_the_page) {
    editor().namefield.SetText("Plain Thick");
    app.choose_menu("FilePrint");
    auto& field = find<QTextEdit>(setup(), "headingfield");
    QTextCursor cursor = field.textCursor();
    cursor.setPosition(6);
    cursor.setPosition(11, QTextCursor::KeepAnchor);
    field.setTextCursor(cursor);
    EXPECT_EQ(setup().headingfield.SelText(), "Thick");
    QTest::mouseClick(&find<QToolButton>(setup(), "Boldbutton1"), Qt::LeftButton);
    QTest::mouseClick(&find<QToolButton>(setup(), "Italicbutton1"), Qt::LeftButton);
    QTest::mouseClick(&find<QToolButton>(setup(), "underlinebutton1"), Qt::LeftButton);
    EXPECT_EQ(field.textCursor().selectedText(), "Thick");
    EXPECT_EQ(field.currentCharFormat().fontWeight(), QFont::Bold);
    EXPECT_TRUE(field.currentCharFormat().fontItalic() && field.currentCharFormat().fontUnderline());
    const int usual = field.document()->defaultFont().pixelSize();
    setup().headfontBox.choose(10); // 20 points
    EXPECT_EQ(field.document()->defaultFont().pixelSize(), 20);
    setup().headfontBox.edit("");
    EXPECT_EQ(field.document()->defaultFont().pixelSize(), usual);
    setup().headfontBox.choose(10);
    finish_to(file());
    const QString fonts = output_of("pdffonts", {file()});
    EXPECT_TRUE(fonts.contains("LiberationSans-BoldItalic")) << fonts.toStdString();
    const auto words = words_of(file());
    const Word thick = word_in(words, "Thick");
    EXPECT_NEAR(thick.bottom - thick.top, 20 * 1.117, 0.7);
    EXPECT_NEAR(thick.top, 36, 1.5);
}

TEST_F(Printing, a_full_disk_is_told_and_the_old_file_stays) {
    add_level("7.83");
    print_to(file());
    const std::string before = testing::file_bytes(file().toStdString());
    const auto overwrite = [](QMessageBox& box) { box.button(QMessageBox::Yes)->click(); };
    when_shown<QMessageBox>(overwrite);
    {
        const tessit::testing::FullDisk full;
        print_to(file());
    }
    ASSERT_EQ(desktop.faults.size(), 1U);
    EXPECT_EQ(desktop.faults[0].kind, FaultKind::write_failed);
    EXPECT_EQ(desktop.faults[0].handler, "pgsetupwindow.DoneButton_Action");
    EXPECT_NE(desktop.faults[0].what.find(file().toStdString()), std::string::npos);
    EXPECT_EQ(printed(), QStringList("report.pdf"));
    EXPECT_EQ(testing::file_bytes(file().toStdString()), before);
    EXPECT_EQ(editor().edit_displayBox.ListCount(), 2);
    desktop.faults.clear();
}

TEST_F(Printing, the_page_is_known_by_its_documents_name_and_a_dismissed_dialog_leaves_nothing) {
    struct Case {
        const char* name;
        const char* title;
        QString proposed;
        Qt::Key answer;
    };
    const Case cases[] = {
        {"Rain / wind", "Rain / wind", QDir::homePath() + "/Rain - wind.pdf", Qt::Key_Escape},
        {"/far/Rain 7.83.zp2", "Rain 7.83", QDir::homePath() + "/Rain 7.83.pdf", Qt::Key_Return},
        {"Rain 7.83", "Rain 7.83", file(), Qt::Key_Escape},
        {"", "Zephon Protocol Editor", file("Zephon Protocol Editor.pdf"), Qt::Key_Escape},
    };
    for (const Case& test : cases) {
        editor().namefield.SetText(test.name);
        app.choose_menu("FilePrint");
        when_shown<QPrintDialog>([&](QPrintDialog& dialog) {
            EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Print \"%1\"").arg(test.title));
            EXPECT_EQ(dialog.findChild<QLineEdit*>("filename")->text(), test.proposed);
            test.answer == Qt::Key_Return ? accept(dialog, file()) : QTest::keyClick(&dialog, test.answer);
        });
        setup().DoneButton.click();
        EXPECT_EQ(printed(), &test == cases ? QStringList() : QStringList("report.pdf"));
    }
    EXPECT_TRUE(output_of("pdfinfo", {file()}).contains(QRegularExpression("Title: +Rain 7.83\n")));
}

TEST_F(Printing, the_systems_printer_gets_the_page_or_the_fault_is_told) {
    QPrinter printer;
    printer.setResolution(72);
    printer.setFullPage(true);
    printer.setOutputFormat(QPrinter::PdfFormat);
    const Page page{DrawString{"Here", 200, 100, {"arial", 12, false}}};
    printer.setOutputFileName(file("no such folder/report.pdf"));
    EXPECT_EQ(testing::fault_of([&] { system_printer(printer)->print(page); })->kind(), FaultKind::write_failed);
    printer.setOutputFileName(file());
    system_printer(printer)->print(page);
    EXPECT_NEAR(word_in(words_of(file()), "Here").left, 200, 0.1);
}

TEST_F(Printing, a_folder_taken_away_behind_the_dialog_is_told) {
    QDir(desktop.folder.path()).mkdir("stick");
    when_shown<QPrintDialog>([this](QPrintDialog& dialog) { accept(dialog, file("stick/report.pdf")); });
    const auto graphics = desktop.choose_printer();
    QDir(file("stick")).removeRecursively();
    EXPECT_EQ(testing::fault_of([&] { graphics->print({}); })->kind(), FaultKind::write_failed);
}

TEST_F(Printing, a_block_ends_with_a_whole_line) {
    std::string list = "1";
    for (int line = 2; line <= 100; ++line) {
        list += "\r" + std::to_string(line);
    }
    when_shown<QPrintDialog>([this](QPrintDialog& dialog) { accept(dialog, file()); });
    const auto graphics = desktop.choose_printer();
    ASSERT_NE(graphics, nullptr);
    graphics->print(
        {DrawBlock{.text = StyledText(list), .x = 35, .y = 86, .width = 540, .height = 720, .font = {}},
         DrawBlock{
             .text = StyledText("giant"), .x = 0, .y = 0, .width = 540, .height = 720, .font = {.TextSize = 999}}});
    const auto words = words_of(file());
    EXPECT_NEAR(word_in(words, "51").bottom, 86 + 51 * 14, 1); // lines of 12 points lie 14 apart
    EXPECT_EQ(word_in(words, "52").text, "");
}

} // namespace

} // namespace tessit::qt
