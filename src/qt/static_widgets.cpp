// SPDX-License-Identifier: MIT
#include "qt/static_widgets.h"

#include "qt/logo.h"
#include "qt/look.h"
#include "qt/widget_text.h"

#include <QFrame>
#include <QGuiApplication>

namespace tessit::qt {

StaticTextWidget::StaticTextWidget(StaticText& text, QWidget& parent)
    : ControlWidget(text, *new QLabel(&parent)), text_(text), label_(static_cast<QLabel&>(widget())) {
    label_.setTextFormat(Qt::PlainText);
    set_text_size(text.own().text_size);
    QFont font = label_.font();
    font.setBold(text.own().bold);
    label_.setFont(font);
    const Qt::Alignment across[] = {Qt::AlignLeft, Qt::AlignLeft, Qt::AlignHCenter, Qt::AlignRight};
    label_.setAlignment(across[static_cast<int>(text.own().align)] | Qt::AlignVCenter);
}

int StaticTextWidget::halves_to_the_left() const {
    switch (text_.own().align) {
    case Align::center:
        return 1;
    case Align::right:
        return 2;
    default:
        return 0;
    }
}

void StaticTextWidget::show_values() {
    QString text = to_widget(text_.Text());
    while (text.endsWith(QLatin1Char('\n'))) { // a line end behind the last line shows nothing
        text.chop(1);
    }
    label_.setText(text);
}

LineWidget::LineWidget(Line& line, QWidget& parent) : ControlWidget(line, *new QFrame(&parent)) {
    static_cast<QFrame&>(widget()).setFrameStyle(QFrame::HLine | QFrame::Sunken);
}

GroupBoxWidget::GroupBoxWidget(GroupBox& box, QWidget& parent) : ControlWidget(box, *new QGroupBox(&parent)) {
    static_cast<QGroupBox&>(widget()).setTitle(to_caption(box.Caption()));
    widget().setAttribute(Qt::WA_TransparentForMouseEvents);
    widget().lower();
}

ProgressBarWidget::ProgressBarWidget(ProgressBar& bar, QWidget& parent)
    : ControlWidget(bar, *new QProgressBar(&parent)), bar_(bar), widget_(static_cast<QProgressBar&>(widget())) {
    widget_.setRange(0, bar.Maximum());
    widget_.setTextVisible(false);
}

void ProgressBarWidget::show_values() {
    widget_.setValue(bar_.Value());
}

ImageWellWidget::ImageWellWidget(ImageWell& well, QWidget& parent)
    : ControlWidget(well, *new QLabel(&parent)), well_(well), label_(static_cast<QLabel&>(widget())) {}

void ImageWellWidget::show_values() {
    const QSize size = scaled(QSize(design().place.width, design().place.height), text_scale(label_));
    if (label_.pixmap().isNull() && well_.picture() == "logo") {
        label_.setPixmap(logo(size, qGuiApp->devicePixelRatio()));
    }
}

} // namespace tessit::qt
