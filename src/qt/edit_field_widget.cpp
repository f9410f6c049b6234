// SPDX-License-Identifier: MIT
#include "qt/edit_field_widget.h"

#include "platform/application.h"
#include "platform/text.h"
#include "qt/dialogs.h"
#include "qt/focus_frame.h"
#include "qt/look.h"
#include "qt/pieced_text_edit.h"
#include "qt/styled_document.h"
#include "qt/widget_text.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFocusEvent>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>
#include <QTimer>
#include <algorithm>

namespace tessit::qt {

namespace {

Qt::Alignment alignment_of(Align align) {
    switch (align) {
    case Align::center:
        return Qt::AlignHCenter;
    case Align::right:
        return Qt::AlignRight;
    default:
        return Qt::AlignLeft;
    }
}

// Shortcuts are no typing: Ctrl+C carries the text "\x03", which is also the keypad's Enter. Where AltGr arrives as
// Ctrl+Alt its characters are typed ones.
bool is_shortcut(const QKeyEvent& event) {
    const auto modifiers = event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    if (modifiers == (Qt::ControlModifier | Qt::AltModifier)) {
        return event.text().isEmpty() || !event.text().front().isPrint();
    }
    return modifiers != Qt::NoModifier;
}

// Held down for another key, or a lock.
bool is_modifier(int key) {
    switch (key) {
    case Qt::Key_Shift:
    case Qt::Key_Control:
    case Qt::Key_Meta:
    case Qt::Key_Alt:
    case Qt::Key_AltGr:
    case Qt::Key_Mode_switch:
    case Qt::Key_Super_L:
    case Qt::Key_Super_R:
    case Qt::Key_Hyper_L:
    case Qt::Key_Hyper_R:
    case Qt::Key_CapsLock:
    case Qt::Key_NumLock:
    case Qt::Key_ScrollLock:
        return true;
    default:
        return false;
    }
}

// The character; empty for a shortcut and for a key that has none.
std::string key_text(const QKeyEvent& event) {
    if (is_shortcut(event)) {
        return "";
    }
    switch (event.key()) {
    case Qt::Key_Return:
        return ChrB(keys::return_);
    case Qt::Key_Enter:
        return ChrB(keys::enter);
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        return "";
    default:
        return event.text().toStdString();
    }
}

// A button that was pressed to leave the field does not see its release when the field's handler showed a dialog.
void release_stuck_buttons(QWidget& window) {
    QTimer::singleShot(0, &window, [&window] {
        if (QGuiApplication::mouseButtons() == Qt::NoButton) {
            for (auto* button : window.findChildren<QAbstractButton*>()) {
                button->setDown(false);
            }
        }
    });
}

// Where lines end inside words, a word of many lines is laid out in time that goes by its length alone; where the end
// of the word is looked for, by its square.
QTextOption::WrapMode wrap_mode_for(QStringView text) {
    constexpr int long_word = 1000;
    int word = 0;
    for (const QChar character : text) {
        word = character.isSpace() ? 0 : word + 1;
        if (word > long_word) {
            return QTextOption::WrapAnywhere;
        }
    }
    return QTextOption::WrapAtWordBoundaryOrAnywhere;
}

// Without a copy of it, however long it is.
int characters_in(QStringView text) {
    auto count = static_cast<int>(text.size());
    for (qsizetype at = 1; at < text.size(); ++at) {
        count -= text[at].isLowSurrogate() && text[at - 1].isHighSurrogate() ? 1 : 0;
    }
    return count;
}

// Texts are pasted and dropped here, before the field knows of them.
class TextEdit : public FocusFrame<PiecedTextEdit> {
public:
    TextEdit(EditField& field, QWidget* parent) : FocusFrame(parent), field_(field) {}

protected:
    void insertFromMimeData(const QMimeData* source) override {
        const QString text = source->text();
        if (text.size() > most_pasted_characters) {
            return field_.window().application().report_soon(
                Fault(FaultKind::read_failed, "The text is longer than " + Str(most_pasted_characters) +
                                                  " characters, which is too long for this field."));
        }
        if (wrap_mode_for(text) == QTextOption::WrapAnywhere) {
            setWordWrapMode(QTextOption::WrapAnywhere);
        }
        PiecedTextEdit::insertFromMimeData(source);
    }

private:
    static constexpr int most_pasted_characters = 4'000'000;

    EditField& field_;
};

} // namespace

FieldWidget::FieldWidget(EditField& field, QWidget& widget) : ControlWidget(field, widget), field_(field) {
    show_text_size();
    widget.installEventFilter(this);
    show_colors();
    if (field.own().read_only) { // nothing to be typed there; the mouse selects what is to be copied
        widget.setFocusPolicy(Qt::ClickFocus);
    }
}

bool FieldWidget::eventFilter(QObject*, QEvent* event) {
    if (!attached()) {
        return false;
    }
    switch (event->type()) {
    case QEvent::KeyPress:
        return key_used_up(static_cast<const QKeyEvent&>(*event));
    case QEvent::InputMethod:
        return commit_used_up(static_cast<const QInputMethodEvent&>(*event));
    case QEvent::ApplicationPaletteChange:
        show_colors();
        return false;
    case QEvent::FocusIn:
        if (static_cast<QFocusEvent*>(event)->reason() != Qt::MouseFocusReason) {
            entered_by_keyboard();
        }
        return false;
    case QEvent::FocusOut: {
        const auto reason = static_cast<QFocusEvent*>(event)->reason();
        if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason &&
            reason != Qt::MenuBarFocusReason) {
            left();
        }
        return false;
    }
    default:
        return false;
    }
}

bool FieldWidget::key_used_up(const QKeyEvent& event) {
    return !is_modifier(event.key()) && used_up(key_text(event));
}

// Input methods deliver finished text without key presses.
bool FieldWidget::commit_used_up(const QInputMethodEvent& event) {
    bool all_used_up = !event.commitString().isEmpty();
    for (const std::string& character : characters(event.commitString().toStdString())) {
        all_used_up = used_up(character) && all_used_up;
    }
    return all_used_up;
}

bool FieldWidget::used_up(const std::string& key) {
    bool result = false;
    tell([&] { result = field_.key_down(key); });
    return result || !attached();
}

void FieldWidget::left() {
    const int dialogs_before = dialogs_shown();
    tell([this] { field_.leave(); });
    if (dialogs_shown() != dialogs_before) {
        release_stuck_buttons(*widget().window());
    }
}

void FieldWidget::edited(const QString& text) {
    tell([&] { field_.edit(to_model(text)); });
}

void FieldWidget::tell_selection(const QString& text, int start, int end) {
    if (!is_quiet() && attached()) {
        const int before = characters_in(QStringView(text).left(start));
        field_.select({.start = before, .length = characters_in(QStringView(text).mid(start, end - start))});
    }
}

void FieldWidget::show_text_size() {
    if (field_.TextSize() != shown_size_) {
        shown_size_ = field_.TextSize();
        const QWidget& window = *widget().window();
        widget().setFont(with_size(window.font(), scaled(shown_size_, text_scale(window))));
    }
}

void FieldWidget::show_colors() {
    if (field_.own().back_color != EditFieldDesign{}.back_color) {
        widget().setPalette(field_palette(field_.own().back_color));
    } else if (field_.own().read_only) { // a shade of its window, whatever its colour
        constexpr QColor shade(128, 128, 128, 28);
        QPalette palette;
        palette.setColor(QPalette::Base, shade);
        widget().setPalette(palette);
    }
}

LineFieldWidget::LineFieldWidget(EditField& field, QWidget& parent)
    : FieldWidget(field, *new QLineEdit(&parent)), edit_(static_cast<QLineEdit&>(widget())) {
    edit_.setAlignment(alignment_of(field.own().align) | Qt::AlignVCenter);
    edit_.setReadOnly(field.own().read_only);
    if (field.own().limit_text > 0) {
        edit_.setMaxLength(field.own().limit_text);
    }
    connect(&edit_, &QLineEdit::textChanged, this, [this](const QString& text) { edited(text); });
}

int LineFieldWidget::halves_to_the_left() const {
    return 1;
}

// Behind the text, when the line edit has selected it all.
void LineFieldWidget::entered_by_keyboard() {
    if (field().own().typed_behind) {
        QTimer::singleShot(0, &edit_, [this] { edit_.end(false); });
    }
}

void LineFieldWidget::show_values() {
    show_text_size();
    const QString text = to_widget(field().Text());
    if (edit_.text() == text) {
        return;
    }
    if (field().own().limit_text > 0) { // the limit is the user's alone, but the widget would cut the program's text
        edit_.setMaxLength(std::max(field().own().limit_text, static_cast<int>(text.size())));
    }
    edit_.setText(text);
    if (!edit_.hasFocus()) {
        edit_.setCursorPosition(0);
    }
}

TextFieldWidget::TextFieldWidget(EditField& field, QWidget& parent, int pieces_of)
    : FieldWidget(field, *new TextEdit(field, &parent)), edit_(static_cast<PiecedTextEdit&>(widget())) {
    edit_.setTabChangesFocus(true);
    edit_.setReadOnly(field.own().read_only);
    QTextOption option = edit_.document()->defaultTextOption();
    option.setAlignment(alignment_of(field.own().align));
    option.setTextDirection(Qt::LayoutDirectionAuto);
    edit_.document()->setDefaultTextOption(option);
    if (field.own().keeps_history) {
        keep_history(pieces_of);
    }
    connect(&edit_, &QPlainTextEdit::textChanged, this, [this] {
        if (!is_quiet()) {
            edited(edit_.text());
            tell_selection(); // the cursor moved before the text was told
        }
    });
    connect(&edit_, &QPlainTextEdit::selectionChanged, this, &TextFieldWidget::tell_selection);
    connect(&edit_, &QPlainTextEdit::cursorPositionChanged, this, &TextFieldWidget::tell_selection);
}

void TextFieldWidget::tell_selection() {
    if (!is_quiet()) {
        FieldWidget::tell_selection(edit_.text(), edit_.selection_start(), edit_.selection_end());
    }
}

// The model's instead of the widget's own, which a text from the program would end.
void TextFieldWidget::keep_history(int pieces_of) {
    edit_.setUndoRedoEnabled(false);
    edit_.set_piece_length(pieces_of);
    edit_.setContextMenuPolicy(Qt::CustomContextMenu);
    connect(&edit_, &QPlainTextEdit::customContextMenuRequested, this, &TextFieldWidget::show_menu);
}

bool TextFieldWidget::eventFilter(QObject* watched, QEvent* event) {
    return FieldWidget::eventFilter(watched, event) ||
           (event->type() == QEvent::KeyPress && is_step(*static_cast<QKeyEvent*>(event)));
}

bool TextFieldWidget::is_step(const QKeyEvent& key) {
    if (!attached() || !field().own().keeps_history) {
        return false;
    }
    for (const auto& [keys, step] :
         {std::pair(QKeySequence::Undo, &EditField::undo), {QKeySequence::Redo, &EditField::redo}}) {
        if (key.matches(keys)) {
            go(step);
            return true;
        }
    }
    return false;
}

void TextFieldWidget::show_menu(const QPoint& place) {
    if (!attached()) {
        return;
    }
    QMenu* menu = edit_.createStandardContextMenu();
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const auto serve = [&](const char* name, bool enabled, void (EditField::*step)()) {
        if (auto* action = menu->findChild<QAction*>(QLatin1String(name))) {
            action->disconnect();
            action->setEnabled(enabled);
            connect(action, &QAction::triggered, this, [this, step] { go(step); });
        }
    };
    serve("edit-undo", field().can_undo(), &EditField::undo);
    serve("edit-redo", field().can_redo(), &EditField::redo);
    menu->popup(edit_.viewport()->mapToGlobal(place));
}

void TextFieldWidget::go(void (EditField::*step)()) {
    tell([&] { (field().*step)(); });
    if (attached()) {
        quietly([this] {
            const auto units_to = [this](int place) {
                return static_cast<int>(to_widget(Mid(field().Text(), 0, place)).size());
            };
            edit_.select(units_to(field().SelStart()), units_to(field().SelStart() + field().SelLength()));
        });
    }
}

void TextFieldWidget::show_values() {
    show_text_size();
    pending_ = field().window().application().busy();
    if (!pending_) {
        show_text();
    }
}

void TextFieldWidget::show_pending() {
    if (pending_ && attached()) {
        pending_ = false;
        quietly([this] { show_text(); });
    }
}

// A long list of numbers is laid out twice as fast without what other scripts need.
void TextFieldWidget::choose_layout(const QString& text) {
    if (const auto mode = wrap_mode_for(text); mode != edit_.wordWrapMode()) {
        edit_.clear(); // or the old text would be laid out anew
        edit_.setWordWrapMode(mode);
    }
    constexpr int long_text = 10000;
    const bool simple = text.size() > long_text && is_ascii(text);
    QTextOption option = edit_.document()->defaultTextOption();
    const Qt::LayoutDirection direction = simple ? Qt::LeftToRight : Qt::LayoutDirectionAuto;
    if (option.textDirection() != direction) {
        edit_.clear();
        option.setTextDirection(direction);
        edit_.document()->setDefaultTextOption(option);
        QFont font = edit_.font();
        font.setStyleStrategy(simple ? QFont::PreferNoShaping : QFont::PreferDefault);
        edit_.setFont(font);
    }
}

void TextFieldWidget::show_text() {
    const QString text = to_widget(field().Text());
    if (edit_.text() != text) {
        const int start = edit_.selection_start();
        choose_layout(text);
        edit_.set_text(text);
        const auto end = static_cast<int>(text.size());
        const int place = field().own().shows_end ? end : std::min(start, end);
        edit_.select(place, place);
    }
}

} // namespace tessit::qt
