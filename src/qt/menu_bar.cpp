// SPDX-License-Identifier: MIT
#include "qt/menu_bar.h"

#include "platform/application.h"
#include "qt/busy_sign.h"
#include "qt/widget_text.h"

#include <QSet>

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

std::vector<std::string> captions_of(const Menu& menu) {
    std::vector<std::string> result;
    for (const MenuItem& item : menu.items) {
        result.push_back(item.is_separator() ? std::string() : item.caption());
    }
    return result;
}

void show_enabled(QMenu& menu, Window& window) {
    window.activate();
    Application& application = window.application();
    application.enable_menu_items();
    for (QAction* action : menu.actions()) {
        if (!action->isSeparator()) {
            action->setEnabled(application.MenuBar1.item(action->objectName().toStdString()).Enabled());
        }
    }
}

void fill_menu(QMenu& widget, const Menu& menu, Window*& window) {
    const std::vector<QString> captions = with_mnemonics(captions_of(menu));
    for (std::size_t at = 0; at < menu.items.size(); ++at) {
        const MenuItem& item = menu.items[at];
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
            show_enabled(widget, *window);
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
        fill_menu(*widget, menus[at], window);
    }
}

} // namespace tessit::qt
