// SPDX-License-Identifier: MIT
#include "qt/control_layout.h"

#include <algorithm>

namespace tessit::qt {

namespace {

constexpr int gap = 1; // between an enlarged control and its neighbour

struct Room { // what is free on each side
    int left, top, right, bottom;
};

Room room_across(const QRect& place, const std::vector<QRect>& others, const QRect& content) {
    Room room{place.left() - content.left(), 0, content.right() - place.right(), 0};
    for (const QRect& other : others) {
        if (other.top() <= place.bottom() && other.bottom() >= place.top()) {
            if (other.left() > place.right()) {
                room.right = std::min(room.right, other.left() - place.right() - 1 - gap);
            } else if (other.right() < place.left()) {
                room.left = std::min(room.left, place.left() - other.right() - 1 - gap);
            }
        }
    }
    return room;
}

Room room_down(const QRect& place, const std::vector<QRect>& others, const QRect& content) {
    Room room{0, place.top() - content.top(), 0, content.bottom() - place.bottom()};
    for (const QRect& other : others) {
        if (other.left() <= place.right() && other.right() >= place.left()) {
            if (other.top() > place.bottom()) {
                room.bottom = std::min(room.bottom, other.top() - place.bottom() - 1 - gap);
            } else if (other.bottom() < place.top()) {
                room.top = std::min(room.top, place.top() - other.bottom() - 1 - gap);
            }
        }
    }
    return room;
}

// How much goes before the place when `wanted` is to be added: the preferred part, shifted to where room is.
int part_before(int wanted, int halves, int before, int after) {
    before = std::max(0, before);
    after = std::max(0, after);
    const int preferred = wanted * halves / 2;
    return std::clamp(preferred, std::min(before, std::max(0, wanted - after)), std::min(before, wanted));
}

QRect enlarged(const Placed& control, const std::vector<QRect>& others, const QRect& content) {
    QRect place = control.designed;
    const int wider = std::max(0, control.needed.width() - place.width());
    if (wider > 0) {
        const Room room = room_across(place, others, content);
        const int left = part_before(wider, control.halves_to_the_left, room.left, room.right);
        place.adjust(-left, 0, std::clamp(room.right, 0, wider - left), 0);
    }
    const int higher = std::max(0, control.needed.height() - place.height());
    if (higher > 0) {
        const Room room = room_down(place, others, content);
        const int top = part_before(higher, 1, room.top, room.bottom);
        place.adjust(0, -top, 0, std::clamp(room.bottom, 0, higher - top));
    }
    return place;
}

} // namespace

std::vector<QRect> places_with_room(const std::vector<Placed>& controls, QSize content) {
    std::vector<QRect> places;
    for (const Placed& control : controls) {
        places.push_back(control.designed);
    }
    const QRect edges(QPoint(0, 0), content);
    for (std::size_t at = 0; at < controls.size(); ++at) {
        if (controls[at].is_frame || !edges.intersects(places[at])) {
            continue;
        }
        std::vector<QRect> others;
        for (std::size_t other = 0; other < controls.size(); ++other) {
            if (other != at && !controls[other].is_frame) {
                others.push_back(places[other]);
            }
        }
        places[at] = enlarged(controls[at], others, edges);
    }
    return places;
}

QRect grown(QRect place, Grow grow, QSize extra) {
    const int upper = extra.height() / 2;
    if (grow == Grow::upper_half) {
        place.setHeight(place.height() + upper);
    }
    if (grow == Grow::between_halves) {
        place.translate(0, upper);
    }
    if (grow == Grow::lower_half) {
        place.adjust(0, upper, extra.width(), extra.height());
    }
    if (grow == Grow::width || grow == Grow::both) {
        place.setWidth(place.width() + extra.width());
    }
    if (grow == Grow::height || grow == Grow::both) {
        place.setHeight(place.height() + extra.height());
    }
    return place;
}

bool is_reachable(const Place& place, QSize content) {
    return QRect(QPoint(0, 0), content).intersects(QRect(place.left, place.top, place.width, place.height));
}

} // namespace tessit::qt
