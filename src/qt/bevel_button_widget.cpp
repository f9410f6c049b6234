// SPDX-License-Identifier: MIT
#include "qt/bevel_button_widget.h"

#include "qt/look.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>

namespace tessit::qt {

namespace {

// One letter that shows the style itself.
class StyleIcon : public QIconEngine {
public:
    explicit StyleIcon(ButtonPicture picture) : picture_(picture) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
        QFont font;
        font.setFamilies({"Liberation Serif", "Times New Roman", "DejaVu Serif"});
        font.setPixelSize(rect.height());
        font.setBold(picture_ == ButtonPicture::bold);
        font.setItalic(picture_ == ButtonPicture::italic);
        font.setUnderline(picture_ == ButtonPicture::underline);
        const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        static constexpr const char* letters[] = {"B", "I", "U"};
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setFont(font);
        painter->setPen(QGuiApplication::palette().color(group, QPalette::ButtonText));
        painter->drawText(rect, Qt::AlignCenter | Qt::TextDontClip, QLatin1String(letters[static_cast<int>(picture_)]));
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap picture(size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        paint(&painter, QRect(QPoint(0, 0), size), mode, state);
        return picture;
    }

    QIconEngine* clone() const override { return new StyleIcon(picture_); }

private:
    const ButtonPicture picture_;
};

} // namespace

BevelButtonWidget::BevelButtonWidget(BevelButton& button, QWidget& parent)
    : ControlWidget(button, *new QToolButton(&parent)), button_(button) {
    auto& widget_button = static_cast<QToolButton&>(widget());
    widget_button.setFocusPolicy(Qt::TabFocus); // a click leaves the focus with the field whose text it styles
    widget_button.setIconSize(scaled(QSize(16, 16), text_scale(parent)));
    widget_button.setIcon(QIcon(new StyleIcon(button.own().picture)));
    connect(&widget_button, &QToolButton::clicked, this, [this] { tell([this] { button_.click(); }); });
}

} // namespace tessit::qt
