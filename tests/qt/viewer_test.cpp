// SPDX-License-Identifier: MIT
// The help window with small documents: links, finding, zoom, keys, copying, and documents that are missing.
#include "folder_desktop.h"
#include "qt/module.h"
#include "qt/pdf_page.h"
#include "support/help_window.h"

#include <sys/stat.h>

namespace tessit::qt {

namespace {

const QByteArray help_text = R"(<html><head><meta charset="utf-8"></head><body><h1>Help</h1>
<p><a href="#end">end</a> <a href="second.html">second</a> <a href="manual.pdf">manual</a>
<a href="https://www.example/x">outside</a> <a href="../secret.html">above</a> <a href="absent.html">absent</a></p>
<p>a Generator &eacute;</p><pre>)" +
                             QByteArray(50, '\n') +
                             R"(</pre><h2><a name="end">End</a></h2><p>another generator</p></body></html>)";

void write_text(const QString& path, const QByteArray& text) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(text);
}

void write_pdf(const QString& path) {
    QPdfWriter writer(path);
    writer.setPageSize(QPageSize(QPageSize::A4));
    writer.setResolution(72);
    QPainter painter(&writer);
    painter.drawText(72, 72, "first generator");
    painter.drawText(72, 700, "second generator");
    writer.newPage();
    painter.drawText(72, 72, "nothing here");
    writer.newPage();
    painter.drawText(72, 400, "third generator");
}

// Two pages, and a chapter with one section in the middle of the second.
constexpr const char* listed_pdf = R"(%PDF-1.4
1 0 obj <</Type /Catalog /Pages 2 0 R /Outlines 5 0 R>> endobj
2 0 obj <</Type /Pages /Kids [3 0 R 4 0 R] /Count 2>> endobj
3 0 obj <</Type /Page /Parent 2 0 R /MediaBox [0 0 595 842]>> endobj
4 0 obj <</Type /Page /Parent 2 0 R /MediaBox [0 0 595 842]>> endobj
5 0 obj <</First 6 0 R /Last 6 0 R /Count 1>> endobj
6 0 obj <</Title (Keys & ports) /Parent 5 0 R /First 7 0 R /Last 7 0 R /Count 1 /Dest [3 0 R /XYZ 0 842 0]>> endobj
7 0 obj <</Title (Ports) /Parent 6 0 R /Dest [4 0 R /XYZ 0 442 0]>> endobj
trailer <</Root 1 0 R /Size 8>>
%%EOF
)";

class Viewer : public ProgramTest {
protected:
    Viewer() {
        write_text(desktop.folder.filePath("HELP.html"), help_text);
        write_text(desktop.folder.filePath("second.html"), "<p>second page</p>");
        write_pdf(desktop.folder.filePath("manual.pdf"));
        open("HelpOpenHelpFile");
        widget(app.helpWindow.get());
    }

    void open(const char* command) { app.choose_menu(command); }
    template <class W> W& find(const char* name) { return ProgramTest::find<W>(app.helpWindow.get(), name); }
    QWidget* focus() { return desktop.widget_of(app.helpWindow.get())->focusWidget(); }
    QTextBrowser& html() { return find<QTextBrowser>("HTMLV_html"); }
    QAbstractScrollArea& pdf() { return find<QAbstractScrollArea>("HTMLV_pdf"); }
    double pdf_zoom() { return pdf().property("zoomFactor").toDouble(); }
    bool pdf_fits_width() { return pdf().property("zoomMode").toInt() == 1; }
    std::string told() { return find<QLabel>("HTMLV_notice").text().toStdString(); }
    void follow(const char* link) { Q_EMIT html().anchorClicked(QUrl(QLatin1String(link))); }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(focus(), key, modifiers);
    }
    static void turn_wheel(QAbstractScrollArea& page, int angle) { // with Ctrl held
        QWidget* viewport = page.viewport();
        const QPointF middle = viewport->rect().center();
        QWheelEvent event(middle, viewport->mapToGlobal(middle), {}, {0, angle}, Qt::NoButton, Qt::ControlModifier,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(viewport, &event);
    }
    void type(const char* text) { QTest::keyClicks(focus(), QLatin1String(text)); }
};

TEST_F(Viewer, follows_links_inside_and_goes_back) {
    EXPECT_TRUE(html().hasFocus());
    QScrollBar& bar = *html().verticalScrollBar();
    EXPECT_EQ(bar.value(), 0);
    follow("#end");
    EXPECT_GT(bar.value(), 0);
    follow("second.html");
    EXPECT_NE(html().toPlainText().indexOf("second page"), -1);
    press(Qt::Key_Left, Qt::AltModifier);
    EXPECT_NE(html().toPlainText().indexOf("another generator"), -1);
    press(Qt::Key_Right, Qt::AltModifier);
    EXPECT_NE(html().toPlainText().indexOf("second page"), -1);
    follow("manual.pdf");
    EXPECT_TRUE(pdf().isVisible() && pdf().hasFocus());
    press(Qt::Key_Left, Qt::AltModifier);
    EXPECT_TRUE(html().isVisible() && html().hasFocus());
}

TEST_F(Viewer, opens_nothing_outside) {
    const std::string sibling = "../" + QDir(desktop.folder.path()).dirName().toStdString() + "-more/secret.html";
    const char* const links[] = {"https://www.example/x", "mailto:a@b.example", "../secret.html", "file:///etc/passwd",
                                 sibling.c_str()};
    for (const char* link : links) {
        follow(link);
        EXPECT_EQ(told().find("This link leads out of the document and is not opened: "), 0U) << link;
        EXPECT_TRUE(html().source().toString().endsWith("HELP.html"));
    }
    follow("absent.html");
    EXPECT_EQ(told().find("The file that this link leads to is not there: "), 0U);
    press(Qt::Key_Escape);
    EXPECT_FALSE(find<QLabel>("HTMLV_notice").isVisible());
}

TEST_F(Viewer, finds_in_html_around_the_end) {
    press(Qt::Key_F, Qt::ControlModifier);
    EXPECT_TRUE(find<QLineEdit>("find_text").hasFocus());
    type("generator");
    const int first = html().textCursor().selectionStart();
    EXPECT_EQ(html().textCursor().selectedText(), "Generator");
    press(Qt::Key_F3);
    const int second = html().textCursor().selectionStart();
    EXPECT_GT(second, first);
    press(Qt::Key_Return);
    EXPECT_EQ(html().textCursor().selectionStart(), first);
    press(Qt::Key_F3, Qt::ShiftModifier);
    EXPECT_EQ(html().textCursor().selectionStart(), second);
    EXPECT_EQ(find<QLabel>("find_result").text(), "2 of 2");
    type("x");
    EXPECT_EQ(find<QLabel>("find_result").text(), "Not found");
    press(Qt::Key_Escape);
    EXPECT_TRUE(html().hasFocus() && !find<QLineEdit>("find_text").isVisible());
}

TEST_F(Viewer, finds_in_pdf_around_the_end) {
    open("HelpDisplayManual");
    QScrollBar& bar = *pdf().verticalScrollBar();
    EXPECT_EQ(find<QLabel>("page_number").text(), "Page 1 of 3");
    press(Qt::Key_F, Qt::ControlModifier);
    type("generator");
    const auto told_place = [this](const char* place) {
        return QTest::qWaitFor([&] { return find<QLabel>("find_result").text() == QLatin1String(place); });
    };
    EXPECT_TRUE(told_place("1 of 3"));
    EXPECT_EQ(bar.value(), 0);
    press(Qt::Key_F3);
    const int second = bar.value();
    EXPECT_GT(second, 0);
    press(Qt::Key_F3);
    EXPECT_TRUE(told_place("3 of 3"));
    const int third = bar.value();
    EXPECT_GT(third, second);
    EXPECT_EQ(find<QLabel>("page_number").text(), "Page 3 of 3");
    press(Qt::Key_F3);
    EXPECT_LT(bar.value(), second);
    press(Qt::Key_F3, Qt::ShiftModifier);
    EXPECT_EQ(bar.value(), third);
    press(Qt::Key_F3, Qt::ShiftModifier);
    EXPECT_EQ(bar.value(), second);
    type("x");
    EXPECT_EQ(find<QLabel>("find_result").text(), "Not found");
    open("HelpDisplayManual");
    EXPECT_EQ(find<QLabel>("find_result").text(), "");
    EXPECT_TRUE(find<QLineEdit>("find_text").hasFocus());
    press(Qt::Key_Escape);
    EXPECT_TRUE(pdf().hasFocus());
}

// Where the page is marked, by the colour.
QRect marked_in(const QImage& image) {
    QRect marked;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor color = image.pixelColor(x, y);
            if (color.saturation() > 100 && color.lightness() > 120) {
                marked |= QRect(x, y, 1, 1);
            }
        }
    }
    return marked;
}

TEST_F(Viewer, marks_where_the_text_is_at_every_zoom_until_finding_ends) {
    open("HelpDisplayManual");
    press(Qt::Key_F, Qt::ControlModifier);
    type("third");
    for (const Qt::Key step : {Qt::Key_0, Qt::Key_Plus, Qt::Key_Minus, Qt::Key_Minus, Qt::Key_Minus}) {
        press(step, Qt::ControlModifier);
        press(Qt::Key_F3);
        EXPECT_TRUE(QTest::qWaitFor([&] {
            const QImage image = pdf().viewport()->grab().toImage();
            const QRect marked = marked_in(image);
            int ink = 0; // the text under the mark
            for (int y = marked.top(); y < marked.bottom(); ++y) {
                for (int x = marked.left(); x < marked.right(); ++x) {
                    ink += image.pixelColor(x, y).lightness() < 60 ? 1 : 0;
                }
            }
            return marked.width() > 8 && ink > 10;
        })) << step;
    }
    press(Qt::Key_Escape);
    EXPECT_TRUE(QTest::qWaitFor([&] { return marked_in(pdf().viewport()->grab().toImage()).isEmpty(); }));
}

TEST_F(Viewer, lists_the_pdfs_headings_and_goes_to_them) {
    auto& contents = find<QToolButton>("contents");
    EXPECT_FALSE(contents.isVisible()); // of the help, which has its own links
    open("HelpDisplayManual");
    EXPECT_FALSE(contents.isVisible()); // it lists none
    write_text(desktop.folder.filePath("manual.pdf"), listed_pdf);
    open("HelpDisplayManual");
    EXPECT_TRUE(contents.isVisible());
    const QList<QAction*> chapters = contents.menu()->actions();
    ASSERT_EQ(chapters.size(), 1);
    EXPECT_EQ(chapters[0]->text(), "Keys && ports");
    const QList<QAction*> sections = chapters[0]->menu()->actions();
    ASSERT_EQ(sections.size(), 2); // the chapter itself first
    sections[1]->trigger();
    EXPECT_EQ(find<QLabel>("page_number").text(), "Page 2 of 2");
    const int at_section = pdf().verticalScrollBar()->value();
    sections[0]->trigger();
    EXPECT_EQ(find<QLabel>("page_number").text(), "Page 1 of 2");
    EXPECT_GT(at_section, pdf().verticalScrollBar()->value() + pdf().viewport()->height());
    open("HelpOpenHelpFile");
    EXPECT_FALSE(contents.isVisible());
}

TEST_F(Viewer, scrolls_zooms_and_copies_by_keys) {
    HTMLViewer& model = app.helpWindow->HTMLV;
    const double size = html().fontMetrics().height();
    press(Qt::Key_Plus, Qt::ControlModifier);
    EXPECT_GT(html().fontMetrics().height(), size);
    press(Qt::Key_0, Qt::ControlModifier);
    EXPECT_EQ(html().fontMetrics().height(), size);
    turn_wheel(html(), -120);
    EXPECT_LT(html().fontMetrics().height(), size);
    turn_wheel(html(), 120);
    EXPECT_EQ(html().fontMetrics().height(), size);
    press(Qt::Key_PageDown);
    EXPECT_GT(html().verticalScrollBar()->value(), 0);
    model.on_edit(EditCommand::select_all);
    model.on_edit(EditCommand::copy);
    EXPECT_NE(QGuiApplication::clipboard()->text().indexOf("another generator"), -1);

    open("HelpDisplayManual");
    QScrollBar& bar = *pdf().verticalScrollBar();
    press(Qt::Key_Space);
    const int a_page_down = bar.value();
    EXPECT_GT(a_page_down, 0);
    press(Qt::Key_End);
    EXPECT_EQ(bar.value(), bar.maximum());
    press(Qt::Key_Home);
    EXPECT_EQ(bar.value(), 0);
    const double factor = pdf_zoom();
    press(Qt::Key_Plus, Qt::ControlModifier);
    press(Qt::Key_Plus, Qt::ControlModifier);
    EXPECT_GT(pdf_zoom(), factor);
    press(Qt::Key_0, Qt::ControlModifier);
    EXPECT_TRUE(pdf_fits_width());
    turn_wheel(pdf(), 120);
    EXPECT_FALSE(pdf_fits_width());
    press(Qt::Key_A, Qt::ControlModifier);
    press(Qt::Key_C, Qt::ControlModifier);
    const QString copied = QGuiApplication::clipboard()->text();
    EXPECT_NE(copied.indexOf("first generator"), -1) << copied.toStdString();
    EXPECT_NE(copied.indexOf("third generator"), -1);
    QGuiApplication::clipboard()->setText("before");
    QTest::mouseClick(pdf().viewport(), Qt::LeftButton); // nothing is selected any more
    press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "before");
    model.on_edit(EditCommand::paste); // a document is only read
    model.on_edit(EditCommand::cut);
}

TEST_F(Viewer, opens_no_pipe_and_no_device_and_lays_out_nothing_out_of_bounds) {
    const auto pipe = [this](const char* name) {
        const QByteArray path = QFile::encodeName(desktop.folder.filePath(name));
        QFile::remove(path);
        EXPECT_EQ(mkfifo(path, 0600), 0);
    };
    const std::pair<QByteArray, const char*> pages[] = {
        {R"(<head><link rel="stylesheet" href="pipe"></head><body><img src="pipe"><img src="/dev/zero">shown)",
         "shown"},
        {QByteArray("<table><tr><td>").repeated(6), "too deeply nested"},
        {QByteArray("<b></i>").repeated(51), "too deeply nested"},
        {"<b>" + QByteArray("</b>").repeated(60) + QByteArray("<b>").repeated(51), "too deeply nested"},
        {"<table>" + QByteArray("<tr>").repeated(100) + "<td colspan=\"60\">", "its tables are too large"},
        {QByteArray(2001, 'x'), "too deeply nested"},
        {QByteArray(100'001, ' '), "It is longer than 100000 bytes"},
    };
    pipe("pipe");
    for (const auto& [page, text] : pages) {
        write_text(desktop.folder.filePath("HELP.html"), page);
        open("HelpOpenHelpFile");
        EXPECT_NE(html().toPlainText().indexOf(text), -1) << text;
    }
    for (const char* name : {"HELP.html", "manual.pdf"}) {
        pipe(name);
        open(QLatin1String(name) == "HELP.html" ? "HelpOpenHelpFile" : "HelpDisplayManual");
        EXPECT_NE(html().toPlainText().indexOf("Is a pipe"), -1) << name;
    }
}

TEST_F(Viewer, tells_where_it_looked_for_a_missing_document) {
    for (const char* name : {"HELP.html", "manual.pdf"}) {
        ASSERT_TRUE(QFile::remove(desktop.folder.filePath(name)));
        open(QLatin1String(name).endsWith(QLatin1String("pdf")) ? "HelpDisplayManual" : "HelpOpenHelpFile");
        const QString text = html().toPlainText();
        EXPECT_TRUE(html().isVisible());
        EXPECT_NE(text.indexOf(desktop.folder.filePath(name)), -1) << text.toStdString();
        EXPECT_NE(text.indexOf(desktop.installed.filePath(name)), -1);
    }
    write_text(desktop.installed.filePath("HELP.html"), "<p>installed help</p>");
    open("HelpOpenHelpFile");
    EXPECT_NE(html().toPlainText().indexOf("installed help"), -1);
    write_text(desktop.folder.filePath("manual.pdf"), "no PDF at all");
    open("HelpDisplayManual");
    EXPECT_NE(html().toPlainText().indexOf("can't be shown"), -1);
    write_pdf(desktop.folder.filePath("manual.pdf"));
    open("HelpDisplayManual"); // loaded again, it is there
    EXPECT_TRUE(pdf().isVisible());
    app.helpWindow->close_by_user();
    EXPECT_FALSE(app.helpWindow.exists());
}

TEST_F(Viewer, tells_what_is_wrong_with_the_module_that_shows_pdfs) {
    const QDir folder(desktop.folder.path());
    const QString module = folder.filePath("tessit-control-pdf.so");
    const auto told_of = [&](const QString& file) {
        QFile::remove(module);
        QFile::link(file, module);
        try {
            load_as<PdfPages>({"shows PDF documents", "tessit-control-pdf.so", {folder.path()}}).make_page(html());
        } catch (const Fault& fault) {
            return QString(fault.what());
        }
        return QString("nothing");
    };
    EXPECT_TRUE(told_of("nowhere").endsWith("It was not found here: " + folder.path()));
    EXPECT_TRUE(told_of(folder.filePath("HELP.html")).contains(QRegularExpression("It can't be used: .*HELP.html")));
    const QString another = QLibraryInfo::path(QLibraryInfo::PluginsPath) + "/platforms/libqoffscreen.so";
    EXPECT_TRUE(told_of(another).endsWith("It belongs to another version of the program."));
    EXPECT_EQ(told_of(QCoreApplication::applicationDirPath() + "/tessit-control-pdf.so"), "nothing");
}

} // namespace

} // namespace tessit::qt
