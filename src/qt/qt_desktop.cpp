// SPDX-License-Identifier: MIT
#include "qt/qt_desktop.h"

#include "platform/application.h"
#include "platform/user_folders.h"
#include "qt/busy_sign.h"
#include "qt/desktop_style.h"
#include "qt/dialogs.h"
#include "qt/earlier_input.h"
#include "qt/endings.h"
#include "qt/file_dialogs.h"
#include "qt/logo.h"
#include "qt/look.h"
#include "qt/widget_text.h"

#include <QClipboard>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QFontDatabase>
#include <QIcon>
#include <QMimeData>
#include <QStandardPaths>
#include <QTimer>
#include <algorithm>
#include <chrono>
#include <ctime>
#include <exception>
#include <utility>

namespace tessit::qt {

namespace {

constexpr auto document_folder_key = "folders/documents";
constexpr auto print_folder_key = "folders/print";
constexpr auto asks_ports_key = "start/asks_ports";

FolderItem folder_item(const QString& path) {
    return FolderItem(QFile::encodeName(path).toStdString());
}

qint64 file_size(const FolderItem& file) {
    return QFileInfo(QFile::decodeName(file.path().c_str())).size();
}

bool is_notice(const Window& window) {
    return window.design().frame == WindowFrame::notice;
}

QString place_key(const WindowWidget& widget) {
    return QLatin1String("windows/") + widget.objectName();
}

bool lives_beside_program() { // where it was built
    const QString beside_program = QCoreApplication::applicationDirPath();
    const bool installed = QDir(beside_program).exists(QStringLiteral("../share/tessit-control"));
    return !installed && QFileInfo(beside_program).isWritable();
}

} // namespace

bool GuiApplication::notify(QObject* receiver, QEvent* event) {
    try {
        return QApplication::notify(receiver, event);
    } catch (const std::exception& error) {
        qCritical("An exception reached the event loop: %s", error.what());
    } catch (...) {
        qCritical("An unknown exception reached the event loop.");
    }
    return false;
}

QtDesktop::QtDesktop() : clock_([this] { repaint_uncovered(); }) {
    QApplication::setStyle(new DesktopStyle(QApplication::style()->name()));
    watch_input();
    QApplication::setQuitOnLastWindowClosed(false); // the program decides when it ends
    QApplication::setWindowIcon(QIcon(logo({64, 64}, qApp->devicePixelRatio())));
}

QtDesktop::~QtDesktop() {
    for (const auto& [window, widget] : widgets_) {
        delete widget;
    }
    for (const auto& widget : closed_) {
        delete widget;
    }
}

int QtDesktop::run() {
    const Endings endings(
        [this] {
            if (application_ != nullptr) {
                application_->ended_by_system();
                keep_places();
                state_.reset(); // which writes it
            }
        },
        [this] { return application_ == nullptr || application_->session_may_end(); });
    keep_whether_ports_were_asked();
    return quit_asked_ ? 0 : QApplication::exec();
}

void QtDesktop::ask_ports_ahead() {
    if (state().value(asks_ports_key).toBool()) {
        serial_ports_.ask_ahead();
    }
}

void QtDesktop::keep_whether_ports_were_asked() {
    if (serial_ports_.were_asked() != state().value(asks_ports_key).toBool()) {
        state().set(asks_ports_key, serial_ports_.were_asked());
    }
}

FolderItem QtDesktop::program_folder() {
    if (lives_beside_program()) {
        return folder_item(QCoreApplication::applicationDirPath());
    }
    const QString own = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
    QDir().mkpath(own);
    return folder_item(own);
}

std::optional<FolderItem> QtDesktop::recovery_folder() {
    if (lives_beside_program()) {
        return program_folder().Child("recovery");
    }
    const auto own = user_recovery_folder();
    return own.empty() ? std::nullopt : std::optional(FolderItem(own));
}

std::vector<FolderItem> QtDesktop::document_folders() {
    const QDir beside_program(QCoreApplication::applicationDirPath());
    std::vector<FolderItem> folders;
    for (const char* folder : {".", "../share/tessit-control", "../share/doc/tessit-control"}) {
        folders.push_back(folder_item(QDir::cleanPath(beside_program.absoluteFilePath(QLatin1String(folder)))));
    }
    return folders;
}

DialogAnswer QtDesktop::show_dialog(const MessageDialog& dialog) {
    put_waiting_on_screen();
    const QuestionSign question;
    return qt::show_dialog(active_widget(), dialog);
}

std::optional<FolderItem> QtDesktop::choose_open_file(const FileRequest& request) {
    put_waiting_on_screen();
    auto chosen = [&] {
        const QuestionSign question;
        return qt::choose_open_file(active_widget(), in_last_folder(request));
    }();
    if (chosen) {
        handler_works_on(file_size(*chosen));
    }
    return chosen;
}

std::optional<FolderItem> QtDesktop::choose_save_file(const FileRequest& request) {
    put_waiting_on_screen();
    const QuestionSign question;
    return qt::choose_save_file(active_widget(), in_last_folder(request));
}

// Until a file was chosen, that of the last start.
FileRequest QtDesktop::in_last_folder(FileRequest request) {
    const QString kept = state().value(document_folder_key).toString();
    if (!knows_folder_ && QFileInfo(kept).isDir()) {
        request.start_folder = folder_item(kept);
    }
    return request;
}

void QtDesktop::file_chosen(const FolderItem& file) {
    knows_folder_ = true;
    state().set(document_folder_key, QFile::decodeName(file.Parent().AbsolutePath().c_str()));
    recent_files_.chosen(file.path());
}

std::unique_ptr<Graphics> QtDesktop::choose_printer_for(const std::string& document) {
    put_waiting_on_screen();
    const QuestionSign question;
    auto chosen = printer_choice_.ask(active_widget(), to_widget(document), state().value(print_folder_key).toString());
    if (chosen != nullptr && !printer_choice_.folder().isEmpty()) {
        state().set(print_folder_key, printer_choice_.folder());
    }
    return chosen;
}

void QtDesktop::show_fault(const FaultReport& report) {
    put_waiting_on_screen();
    const QuestionSign question;
    qt::show_fault(active_widget(), report);
}

void QtDesktop::Beep() {
    QApplication::beep();
}

Date QtDesktop::current_date() {
    return local_date(std::time(nullptr));
}

const std::vector<std::string>& QtDesktop::fonts() {
    if (fonts_.empty()) {
        for (const QString& family : QFontDatabase::families()) {
            fonts_.push_back(to_model(family));
        }
    }
    return fonts_;
}

std::optional<std::string> QtDesktop::clipboard_text() {
    const QMimeData* data = QGuiApplication::clipboard()->mimeData();
    return data != nullptr && data->hasText() ? std::optional(to_model(data->text())) : std::nullopt;
}

void QtDesktop::set_clipboard_text(const std::string& text) {
    QGuiApplication::clipboard()->setText(to_widget(text));
}

void QtDesktop::call_soon(std::function<void()> call) {
    QTimer::singleShot(0, qApp, std::move(call));
}

void QtDesktop::call_later(Microseconds delay, std::function<void()> call) {
    QTimer::singleShot(std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::microseconds(delay)), qApp,
                       std::move(call));
}

// A handler may show a window and hide it again, as closing one document window to open the next one does, and most
// handlers are done before a notice could be read. So windows wait for the handler's end, or for the moment at which it
// shows a dialog or begins to wait itself. The very first window is shown at once, and so is the notice of long work.
void QtDesktop::window_shown(Window& window) {
    application_ = &window.application();
    std::erase(waiting_, &window);
    waiting_.push_back(&window);
    if (!application_->busy() || widgets_.empty() || (is_notice(window) && handler_has_much_to_do())) {
        put_waiting_on_screen();
    }
}

WindowWidget& QtDesktop::ready_widget(Window& window) {
    WindowWidget* widget = widget_of(window);
    if (widget == nullptr) {
        widget = &make_widget(window);
    } else if (widget->is_notice() && !widget->isVisible()) {
        widget->place_on_screen(open_windows(window)); // another window may be the active one now
    }
    widget->show_pending();
    return *widget;
}

void QtDesktop::put_on_screen(Window& window) {
    activation_.bring_to_front(ready_widget(window));
}

// Widgets have the windows' font from their beginning on: another one would have to be loaded.
void QtDesktop::follow_desktop_font() {
    const QFont font = desktop_font();
    if (followed_font_ != font) {
        followed_font_ = font;
        QApplication::setFont(window_font(font));
        QApplication::setFont(font, "QMessageBox"); // also those of Qt's own dialogs
    }
}

WindowWidget& QtDesktop::make_widget(Window& window) {
    follow_desktop_font();
    if (widgets_.empty()) {
        ask_ports_ahead(); // the settings are read with the first window on the screen
    }
    auto* widget = new WindowWidget(window, activation_);
    widgets_[&window] = widget;
    widget->place_on_screen(open_windows(window));
    if (const auto last = last_place(*widget)) {
        widget->place_on_screen_again(*last);
    }
    return *widget;
}

void QtDesktop::put_waiting_on_screen() {
    auto windows = std::exchange(waiting_, {});
    const auto notices =
        std::stable_partition(windows.begin(), windows.end(), [](const Window* window) { return !is_notice(*window); });
    for (auto window = windows.begin(); window != windows.end(); ++window) {
        if (notices - window > 1) { // the last document comes to the front
            activation_.show_behind(ready_widget(**window));
        } else {
            put_on_screen(**window);
        }
    }
    for (const auto& [window, widget] : widgets_) {
        if (widget != nullptr && widget->isVisible()) { // a hidden one's texts wait until it is shown
            widget->show_pending();
        }
    }
}

void QtDesktop::window_hidden(Window& window) {
    std::erase(waiting_, &window);
    if (WindowWidget* widget = widget_of(window)) {
        keep_place(*widget);
        widget->hide();
    }
}

void QtDesktop::window_closed(Window& window) {
    std::erase(waiting_, &window);
    if (WindowWidget* widget = widget_of(window)) {
        keep_place(*widget);
        widget->forget_model();
        std::erase(closed_, nullptr);
        closed_.emplace_back(widget);
    }
    widgets_.erase(&window);
}

void QtDesktop::event_ended() {
    recent_files_.note();
    put_waiting_on_screen();
    show_documents();
    handler_ended();
    activation_.event_ended();
}

// QApplication::quit would ask the windows, which never close by themselves.
void QtDesktop::quit() {
    quit_asked_ = true;
    keep_places();
    QCoreApplication::exit(0);
}

WindowWidget* QtDesktop::widget_of(const Window& window) const {
    const auto found = widgets_.find(&window);
    return found == widgets_.end() ? nullptr : found->second.data();
}

DesktopState& QtDesktop::state() {
    if (state_ == nullptr) {
        state_ = std::make_unique<DesktopState>(lives_beside_program() ? program_folder().path() : user_state_folder());
    }
    return *state_;
}

WindowWidget* QtDesktop::front_widget(bool (*wanted)(const WindowWidget&)) const {
    for (int index = 0; application_ != nullptr && index < application_->WindowCount(); ++index) {
        WindowWidget* widget = widget_of(application_->Window(index));
        if (widget != nullptr && widget->isVisible() && wanted(*widget)) {
            return widget;
        }
    }
    return nullptr;
}

QWidget* QtDesktop::active_widget() const {
    return front_widget([](const WindowWidget& widget) { return !widget.is_notice(); });
}

bool QtDesktop::stands_before(const Window& one, const Window& other) const {
    for (int index = 0; index < application_->WindowCount(); ++index) {
        const Window* window = &application_->Window(index);
        if (window == &one || window == &other) {
            return window == &one;
        }
    }
    return false;
}

OpenWindows QtDesktop::open_windows(const Window& opening) const {
    const WindowWidget* document = front_widget([](const WindowWidget& widget) { return widget.is_document(); });
    const bool behind = document != nullptr && stands_before(*document->model(), opening);
    return {.active = active_widget(), .document = document, .steps_to_document = behind ? 1 : -1};
}

void QtDesktop::keep_place(const WindowWidget& widget) {
    if (widget.isVisible() && !widget.is_notice()) {
        const QString place = text_of(widget.kept_place());
        last_places_[widget.objectName()] = place;
        state().set(place_key(widget), place);
    }
}

void QtDesktop::keep_places() {
    for (const auto& [window, widget] : widgets_) {
        if (widget != nullptr) {
            keep_place(*widget);
        }
    }
}

std::optional<KeptPlace> QtDesktop::last_place(const WindowWidget& widget) {
    if (widget.is_notice()) {
        return std::nullopt;
    }
    const auto known = last_places_.find(widget.objectName());
    return kept_place(known != last_places_.end() ? known->second : state().value(place_key(widget)).toString());
}

void QtDesktop::show_documents() {
    for (const auto& [window, widget] : widgets_) {
        if (widget != nullptr && widget->is_document() && widget->model() != nullptr) {
            widget->show_document(widget->model()->shown_document());
        }
    }
}

// A handler that waits for a device keeps the event loop waiting; windows that get uncovered meanwhile are painted.
void QtDesktop::repaint_uncovered() {
    if (application_ != nullptr && application_->busy()) {
        drop_input_so_far();
        put_waiting_on_screen();
        handler_goes_on();
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents | QEventLoop::ExcludeSocketNotifiers);
    }
}

} // namespace tessit::qt
