// SPDX-License-Identifier: MIT
#include "qt/menu_bar.h"

#include "platform/application.h"
#include "qt/busy_sign.h"
#include "qt/look.h"
#include "qt/widget_text.h"

#include <QEvent>
#include <QSet>
#include <QTimer>

namespace tessit::qt {

namespace {

// Places of letters in the order in which they are preferred.
std::vector<qsizetype> candidates(const QString& caption) {
    std::vector<qsizetype> starts;
    std::vector<qsizetype> others;
    for (qsizetype at = 0; at < caption.size(); ++at) {
        if (caption[at].isLetterOrNumber()) {
            const bool starts_word = at == 0 || caption[at - 1].isSpace();
            (starts_word ? starts : others).push_back(at);
        }
    }
    starts.insert(starts.end(), others.begin(), others.end());
    return starts;
}

using Items = std::vector<const MenuItem*>;

std::vector<std::string> captions_of(const Items& items) {
    std::vector<std::string> result;
    for (const MenuItem* item : items) {
        result.push_back(item->is_separator() ? std::string() : item->caption());
    }
    return result;
}

void show_enabled(const QMenu& menu, MenuBar& bar) {
    for (QAction* action : menu.actions()) {
        if (!action->isSeparator()) {
            action->setEnabled(bar.item(action->objectName().toStdString()).Enabled());
        }
    }
}

void ask_and_show_enabled(const QMenu& menu, Window& window) {
    window.activate();
    window.application().enable_menu_items();
    show_enabled(menu, window.application().MenuBar1);
}

// What is enabled goes by the window alone, so that one look when it first comes up shows it before a menu opens.
class FirstLook : public QObject {
public:
    FirstLook(QMenuBar& bar, Window*& window) : QObject(&bar), bar_(bar), window_(window) {
        bar.window()->installEventFilter(this);
    }

    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::WindowActivate) {
            look_in(0);
        }
        return false;
    }

private:
    void look_in(int milliseconds) {
        QTimer::singleShot(milliseconds, this, [this] { look(); });
    }

    void look() {
        if (window_ == nullptr || !bar_.window()->isActiveWindow()) {
            return; // it is activated again
        }
        Application& application = window_->application();
        if (application.busy() || !application.in_front(*window_)) {
            return look_in(100);
        }
        application.enable_menu_items();
        for (const QAction* menu : bar_.actions()) {
            show_enabled(*menu->menu(), application.MenuBar1);
        }
        deleteLater();
    }

    QMenuBar& bar_;
    Window*& window_;
};

void fill_menu(QMenu& widget, const Items& items, Window*& window) {
    const std::vector<QString> captions = with_mnemonics(captions_of(items));
    for (std::size_t at = 0; at < items.size(); ++at) {
        const MenuItem& item = *items[at];
        QAction* action = item.is_separator() ? widget.addSeparator() : widget.addAction(captions[at]);
        action->setObjectName(to_widget(item.name()));
        action->setMenuRole(QAction::NoRole);
        if (!item.is_separator()) {
            QObject::connect(action, &QAction::triggered, &widget, [&window, name = item.name()] {
                if (window != nullptr) {
                    const CommandSign sign(*window);
                    window->activate();
                    window->application().choose_menu(name);
                }
            });
        }
    }
    QObject::connect(&widget, &QMenu::aboutToShow, &widget, [&widget, &window] {
        if (window != nullptr) {
            ask_and_show_enabled(widget, *window);
        }
    });
}

} // namespace

std::vector<QString> with_mnemonics(const std::vector<std::string>& captions) {
    std::vector<QString> result;
    QSet<QChar> taken;
    for (const std::string& text : captions) {
        QString caption = to_widget(text);
        qsizetype chosen = -1;
        for (const qsizetype at : candidates(caption)) {
            if (!taken.contains(caption[at].toLower())) {
                chosen = at;
                break;
            }
        }
        const QString before = chosen < 0 ? caption : caption.left(chosen);
        QString marked = to_caption(before.toStdString());
        if (chosen >= 0) {
            taken.insert(caption[chosen].toLower());
            marked += QLatin1Char('&') + to_caption(caption.mid(chosen).toStdString());
        }
        result.push_back(marked);
    }
    return result;
}

void fill_menu_bar(QMenuBar& bar, Window*& window) {
    bar.setNativeMenuBar(false);
    const auto& menus = window->application().MenuBar1.menus();
    std::vector<std::string> captions;
    for (const Menu& menu : menus) {
        captions.push_back(menu.caption);
    }
    const std::vector<QString> marked = with_mnemonics(captions);
    for (std::size_t at = 0; at < menus.size(); ++at) {
        QMenu* widget = bar.addMenu(marked[at]);
        widget->setObjectName(to_widget(menus[at].name));
        widget->menuAction()->setObjectName(to_widget(menus[at].name));
        Items items;
        for (const MenuItem& item : menus[at].items) {
            items.push_back(&item);
        }
        fill_menu(*widget, items, window);
    }
    new FirstLook(bar, window);
}

void show_entries(const std::vector<std::string_view>& names, QPoint place, QWidget& owner, Window*& window) {
    auto* menu = new QMenu(&owner);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->setObjectName(owner.objectName() + QLatin1String("_commands"));
    menu->setPalette(legible_palette());
    menu->setFont(owner.window()->font());
    Items items;
    for (const std::string_view name : names) {
        items.push_back(&window->application().MenuBar1.item(name));
    }
    fill_menu(*menu, items, window);
    menu->popup(place);
}

} // namespace tessit::qt
