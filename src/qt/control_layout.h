// SPDX-License-Identifier: MIT
// Where the controls of a window lie: as designed, wider or higher where a text needs it and there is room, and
// growing with the window where the design says so.
#pragma once

#include "qt/control_widget.h"

#include <QRect>
#include <QSize>
#include <memory>
#include <vector>

namespace tessit::qt {

struct Placed {
    QRect designed;
    QSize needed;
    int halves_to_the_left = 0;
    bool is_frame = false;
};

// The designed places, enlarged to what their controls need as far as nothing lies in the way: no other control
// (frames aside) and not the edge of the content.
std::vector<QRect> places_with_room(const std::vector<Placed>& controls, QSize content);

// A place in a content that is `extra` larger than designed.
QRect grown(QRect place, Grow grow, QSize extra);

// False for a control that the design keeps off the content; the keyboard must not wander there.
bool is_reachable(const Place& place, QSize content);

} // namespace tessit::qt
