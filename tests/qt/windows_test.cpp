// SPDX-License-Identifier: MIT
#include "dialog_driver.h"
#include "editor/edit_window.h"
#include "fixture.h"
#include "folder_desktop.h"

#include "qt/menu_bar.h"

#include <QDeadlineTimer>
#include <QDropEvent>
#include <QMimeData>
#include <set>

namespace tessit::qt {

namespace {

class Windows : public SampleTest, protected DialogDriver {
protected:
    QMenu& file_menu() { return find<QMenu>("FileMenu"); }
    QAction& entry(const char* name) {
        for (QAction* action : file_menu().actions()) {
            if (action->objectName() == QLatin1String(name)) {
                return *action;
            }
        }
        throw std::runtime_error(name);
    }
};

TEST_F(Windows, menu_asks_anew_each_time_it_opens) {
    EXPECT_TRUE(eventually([&] { return !entry("FileSave").isEnabled(); })) << "before a menu opens";
    const auto open = [&] { Q_EMIT file_menu().aboutToShow(); };
    open();
    EXPECT_TRUE(entry("FileOpen").isEnabled() && !entry("FileSave").isEnabled());
    EXPECT_FALSE(entry("FileSaveAs").isEnabled()) << "nothing is bound to it";
    app.can_save = true;
    open();
    EXPECT_TRUE(entry("FileSave").isEnabled());
    entry("FileSave").trigger();
    app.can_save = false;
    entry("FileSave").trigger(); // still shown as enabled; the program has the last word
    EXPECT_EQ(app.log, Log{"FileSave"});
}

TEST_F(Windows, menu_opens_by_its_letter) {
    EXPECT_EQ(file_menu().title(), "&File");
    QTest::keyClick(widget, Qt::Key_F, Qt::AltModifier);
    EXPECT_TRUE(eventually([&] { return file_menu().isVisible(); }));
    QTest::keyClick(&file_menu(), Qt::Key_O);
    EXPECT_EQ(app.log, Log{"FileOpen"});
}

TEST(Mnemonics, are_unique_and_leave_the_caption_as_it_is) {
    const std::vector<std::string> captions{"Create New File", "Open",        "Save",        "Export",
                                            "Page Setup",      "Print",       "Quit Editor", "",
                                            "Exit Program",    "Save & Send", "Cc",          "C"};
    std::set<QChar> letters;
    const auto marked = with_mnemonics(captions);
    for (std::size_t at = 0; at < captions.size(); ++at) {
        QString shown = marked[at];
        shown.replace("&&", "\x01");
        const qsizetype mark = shown.indexOf('&');
        if (mark >= 0) {
            EXPECT_TRUE(letters.insert(shown[mark + 1].toLower()).second) << captions[at];
        }
        EXPECT_EQ(shown.remove('&').replace("\x01", "&").toStdString(), captions[at]);
    }
    EXPECT_EQ(letters.size(), 9U);
}

TEST_F(Windows, closing_is_the_programs_decision) {
    QPointer<WindowWidget> shown(widget);
    app.keeps_open = true;
    widget->close();
    EXPECT_TRUE(widget->isVisible());
    app.keeps_open = false;
    widget->close();
    EXPECT_FALSE(app.window.exists());
    EXPECT_TRUE(eventually([&] { return shown == nullptr; }));
    EXPECT_EQ(app.log, (Log{"cancel close", "cancel close"}));
}

TEST_F(Windows, opens_as_it_was_at_the_last_start) {
    const QString key = "windows/" + widget->objectName(); // both windows are of one class
    desktop.state().set(key, "70 90 40 30 normal");
    app.second->Show();
    WindowWidget* second = desktop.widget_of(app.second.get());
    EXPECT_EQ(second->geometry().topLeft(), QPoint(70, 90));
    EXPECT_EQ(second->size(), widget->size() + QSize(40, 30));
    second->setGeometry({{100, 120}, second->size()});
    app.second.Close();
    EXPECT_EQ(desktop.state().value(key).toString().toStdString(), "100 120 40 30 normal");
}

TEST(KeptPlaces, are_read_and_never_lead_off_the_screen) {
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    for (const char* text : {"-9000 50 0 0 normal", "50 99999 -50 100000 maximized", "1 2 100000 0 normal"}) {
        const auto kept = kept_place(text);
        ASSERT_TRUE(kept) << text;
        EXPECT_EQ(text_of(*kept), text);
        EXPECT_TRUE(screen.contains(place_again(*kept, {300, 200}))) << text;
    }
    for (const char* text : {"", "1 2 3 4", "1 2 x 4 normal", "1 2 3 100001 normal", "1 2 3 4 5 normal"}) {
        EXPECT_FALSE(kept_place(text)) << text;
    }
}

TEST(Cascade, steps_behind_the_last_document_and_begins_anew_at_the_edge) {
    QWidget last;
    const QRect area = QGuiApplication::primaryScreen()->availableGeometry();
    last.setGeometry(100, 120, 50, 50);
    OpenWindows open{.active = &last, .document = &last, .steps_to_document = 1};
    EXPECT_EQ(place_for_window({300, 200}, WindowFrame::document, open), QRect(72, 92, 300, 200)); // its title shows
    open.steps_to_document = -1;
    EXPECT_EQ(place_for_window({300, 200}, WindowFrame::document, open), QRect(128, 148, 300, 200));
    const QRect anew = place_for_window({area.width() - 120, 200}, WindowFrame::document, open);
    EXPECT_TRUE(anew.left() < 10 && anew.top() < 40);
}

using Documents = ProgramTest;

TEST_F(Documents, are_told_to_the_window_system_and_leave_the_title) {
    QFile two_levels(desktop.folder.filePath("a.zp2"));
    ASSERT_TRUE(two_levels.open(QIODevice::WriteOnly));
    two_levels.write(QByteArray::fromHex("001e96080003150700000124").repeated(2));
    two_levels.close();
    const FolderItem file(two_levels.fileName().toStdString());
    const auto open = [&] {
        app.choose_menu("FileOpen", file);
        return widget(app.editwindow.get()).windowFilePath().toStdString();
    };
    EXPECT_EQ(open(), file.AbsolutePath());
    const WindowWidget& editor = widget(app.editwindow.get());
    EXPECT_TRUE(editor.isWindowModified());
    EXPECT_EQ(editor.windowHandle()->title(), "Zephon Protocol Editor");
    app.from_user("test", [this] { app.editchanged = false; });
    EXPECT_FALSE(editor.isWindowModified());
    EXPECT_EQ(open(), "") << "there are the levels of another file too";
}

TEST_F(Windows, opens_again_as_it_was_and_where_there_is_a_screen) {
    const QRect screen = widget->screen()->availableGeometry();
    const QRect place(70, 90, 420, 390);
    const auto reopen = [&] {
        app.window.Close();
        app.window->Show();
        widget = desktop.widget_of(app.window.get());
    };
    widget->setGeometry(place);
    reopen();
    EXPECT_EQ(widget->geometry(), place);
    widget->showMaximized();
    reopen();
    EXPECT_TRUE(widget->isMaximized());
    widget->showNormal();
    EXPECT_TRUE(eventually([&] { return widget->geometry() == place; }));
    widget->move(screen.bottomRight() * 5); // a screen that is taken away
    reopen();
    EXPECT_TRUE(screen.contains(widget->geometry()));
}

TEST_F(Windows, while_a_handler_runs_closing_is_refused) {
    window().on_button = [this] { widget->close(); };
    QTest::mouseClick(&find<QPushButton>("button"), Qt::LeftButton);
    EXPECT_TRUE(app.window.exists() && app.log.empty());
}

TEST_F(Windows, files_dropped_on_a_window_are_opened_where_its_menu_would) {
    auto& field = find<QLineEdit>("field");
    const auto drag = [&](QEvent::Type type, const char* url) {
        QMimeData data;
        data.setUrls({QUrl(QLatin1String(url))});
        data.setText(QLatin1String(url)); // as file managers do; the field takes text
        QDragEnterEvent enter({5, 5}, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&field, &enter);
        QDropEvent drop({5, 5}, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
        if (type == QEvent::Drop) {
            QApplication::sendEvent(&field, &drop);
            EXPECT_EQ(drop.dropAction(), Qt::CopyAction);
        }
        return enter.isAccepted();
    };
    EXPECT_FALSE(drag(QEvent::DragEnter, "file:///list.csv")) << "Save is not enabled";
    EXPECT_FALSE(drag(QEvent::DragEnter, "file:///picture.png"));
    EXPECT_FALSE(drag(QEvent::DragEnter, "https://tessit.example/a.zp2"));
    app.from_user("handler", [&] { EXPECT_FALSE(drag(QEvent::DragEnter, "file:///a.zp2")); });
    app.can_save = true;
    EXPECT_TRUE(drag(QEvent::Drop, "file:///list.csv"));
    EXPECT_TRUE(drag(QEvent::Drop, "file:///a.zp2"));
    EXPECT_TRUE(eventually([&] { return app.log == Log{"FileSave", "FileOpen"}; }));
    EXPECT_EQ(field.text(), "");
}

TEST_F(Windows, order_follows_the_window_system_once_the_handler_has_ended) {
    app.second->Show();
    WindowWidget* second = desktop.widget_of(app.second.get());
    ASSERT_TRUE(QTest::qWaitForWindowActive(second));
    app.from_user("event", [] {});
    EXPECT_TRUE(app.in_front(app.second.get()));
    app.from_user("handler", [&] {
        widget->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(widget));
        EXPECT_TRUE(app.in_front(app.second.get()));
    });
    EXPECT_TRUE(eventually([&] { return app.in_front(window()); }));
    EXPECT_NE(second->pos(), widget->pos());
}

TEST_F(Windows, focus_given_before_the_first_show_is_there_afterwards) {
    app.second->button.SetFocus();
    app.second->Show();
    WindowWidget* second = desktop.widget_of(app.second.get());
    ASSERT_TRUE(QTest::qWaitForWindowActive(second));
    EXPECT_TRUE(eventually([&] { return QApplication::focusWidget() == second->findChild<QPushButton*>("button"); }));
    EXPECT_TRUE(find<QLineEdit>("field").window()->focusWidget() == &find<QLineEdit>("field"));
    app.second->field.SetFocus();
    EXPECT_EQ(QApplication::focusWidget(), second->findChild<QLineEdit*>("field"));
}

TEST_F(Windows, content_place_is_told) {
    widget->move(120, 90);
    const QPoint corner = widget->centralWidget()->mapToGlobal(QPoint(0, 0));
    EXPECT_TRUE(eventually([&] { return window().Left() == corner.x() && window().Top() == corner.y(); }));
    EXPECT_GE(window().Top(), 90 + find<QTableView>("table").fontMetrics().height()) << "below the menu bar";
}

TEST_F(Windows, table_grows_with_the_window_and_a_small_window_scrolls) {
    auto& table = find<QTableView>("table");
    const QSize designed = table.size();
    const QSize start = widget->size();
    EXPECT_EQ(designed, QSize(360, 140));
    widget->resize(start + QSize(100, 60));
    EXPECT_TRUE(eventually([&] { return table.size() == designed + QSize(100, 60); }));
    widget->resize(260, 200);
    EXPECT_TRUE(eventually([&] { return table.size() == designed; }));
    auto* area = qobject_cast<QScrollArea*>(widget->centralWidget());
    EXPECT_GT(area->verticalScrollBar()->maximum(), 0);
    widget->resize(start);
    EXPECT_TRUE(eventually([&] { return area->verticalScrollBar()->maximum() == 0; }));
}

struct Painted : QObject {
    int count = 0;
    bool eventFilter(QObject*, QEvent* event) override {
        count += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
};

TEST_F(Windows, notice_comes_up_when_the_handler_waits) {
    app.from_user("transfer", [&] {
        app.notice->bar.SetValue(90);
        app.notice->Show();
        app.notice->bar.Refresh();
        EXPECT_EQ(desktop.widget_of(app.notice.get()), nullptr); // most handlers are done before it could be read
        app.wait(5'000);
        WindowWidget* notice = desktop.widget_of(app.notice.get());
        EXPECT_TRUE(notice->windowHandle()->isExposed() && notice->testAttribute(Qt::WA_ShowWithoutActivating));
        EXPECT_EQ(notice->findChild<QProgressBar*>("bar")->value(), 90);
        EXPECT_EQ(app.front_window(), &window());
    });
}

TEST_F(Windows, refresh_paints_while_the_handler_runs) {
    auto& button = find<QPushButton>("button");
    Painted painted;
    button.installEventFilter(&painted);
    app.from_user("work", [&] {
        button.update();
        EXPECT_EQ(painted.count, 0);
        window().button.Refresh();
        EXPECT_EQ(painted.count, 1);
    });
}

TEST_F(Windows, long_wait_repaints_shows_itself_and_lets_no_input_in) {
    Painted painted;
    auto& button = find<QPushButton>("button");
    button.installEventFilter(&painted);
    const auto is_busy = [&] {
        const QCursor* cursor = QGuiApplication::overrideCursor();
        return button.isDown() && cursor != nullptr && cursor->shape() == Qt::WaitCursor;
    };
    const auto is_idle = [&] { return !button.isDown() && QGuiApplication::overrideCursor() == nullptr; };
    window().on_button = [&] {
        for (const QDeadlineTimer end(10'000); !is_busy() && !end.hasExpired();) {
            button.update();
            app.wait(5'000);
        }
        EXPECT_TRUE(is_busy());
        when_shown<QMessageBox>([&](QMessageBox& box) {
            EXPECT_TRUE(is_idle());
            box.accept();
        });
        app.MsgBox("Go on?");
    };
    QTest::keyClick(&button, Qt::Key_Space);
    EXPECT_TRUE(is_idle());
    EXPECT_GT(painted.count, 0);
    EXPECT_TRUE(app.log.empty());
}

} // namespace

} // namespace tessit::qt
