// SPDX-License-Identifier: MIT
// The Qt window of one model window: its adapters in tab order, its menu bar, and what the window system tells of it.
// Closing is the model's decision: the window system's wish is passed on, and the widget goes when the model says so.
#pragma once

#include "platform/window.h"
#include "qt/control_widget.h"
#include "qt/screen_place.h"

#include <QMainWindow>
#include <QScrollArea>
#include <memory>
#include <vector>

namespace tessit::qt {

class Activation;

class WindowWidget : public QMainWindow {
public:
    WindowWidget(Window& model, Activation& activation); // in the application's font

    Window* model() const { return model_; } // null once it has been closed
    bool is_notice() const { return frame_ == WindowFrame::notice; }
    bool is_document() const { return frame_ == WindowFrame::document; }
    const std::vector<std::unique_ptr<ControlWidget>>& controls() const { return controls_; }

    void place_on_screen(const OpenWindows& open);     // before it is shown first
    void place_on_screen_again(const KeptPlace& kept); // the same, where it was once
    KeptPlace kept_place() const;                      // by which it can be
    void show_pending();                               // what its controls left for later
    void show_document(const ShownDocument& document); // which the window system can learn of; the title stays
    void forget_model();                               // the model's window has been closed

    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override; // that no control used

private:
    void make_controls();
    void set_tab_order();
    void set_first_focus();
    void set_colors();
    void lay_out();
    QSize natural_size() const; // with the menu bar
    void keep_above(const QWidget* active);
    void tell_place();

    Window* model_;
    Activation& activation_;
    const WindowFrame frame_;
    const QSize designed_size_;
    const Color color_;
    double scale_ = 1; // how much larger than designed everything is
    QSize content_size_;
    QScrollArea& scroll_;
    QWidget& content_;
    std::vector<std::unique_ptr<ControlWidget>> controls_;
    std::vector<QRect> places_;
};

} // namespace tessit::qt
