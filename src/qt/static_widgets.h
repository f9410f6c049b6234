// SPDX-License-Identifier: MIT
// Controls that only show: captions, group frames, progress bars, pictures.
#pragma once

#include "platform/static_controls.h"
#include "qt/control_widget.h"

#include <QGroupBox>
#include <QLabel>
#include <QProgressBar>

namespace tessit::qt {

class StaticTextWidget : public ControlWidget {
public:
    StaticTextWidget(StaticText& text, QWidget& parent);
    QSize needed_size() const override { return label_.sizeHint(); }
    int halves_to_the_left() const override;
    QLabel& label() const { return label_; }

private:
    void show_values() override;

    StaticText& text_;
    QLabel& label_;
};

class LineWidget : public ControlWidget {
public:
    LineWidget(Line& line, QWidget& parent);

private:
    void show_values() override {}
};

class GroupBoxWidget : public ControlWidget {
public:
    GroupBoxWidget(GroupBox& box, QWidget& parent);
    bool is_frame() const override { return true; }

private:
    void show_values() override {}
};

class ProgressBarWidget : public ControlWidget {
public:
    ProgressBarWidget(ProgressBar& bar, QWidget& parent);
    QSize needed_size() const override { return {}; }

private:
    void show_values() override;

    ProgressBar& bar_;
    QProgressBar& widget_;
};

class ImageWellWidget : public ControlWidget {
public:
    ImageWellWidget(ImageWell& well, QWidget& parent);
    QSize needed_size() const override { return {}; }

private:
    void show_values() override;

    ImageWell& well_;
    QLabel& label_;
};

} // namespace tessit::qt
