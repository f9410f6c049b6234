// SPDX-License-Identifier: MIT
// A printed page as data, and what draws it. The unit is the point, 72 to the inch, from the paper's upper left corner.
#pragma once

#include "platform/styled_text.h"

#include <string>
#include <variant>
#include <vector>

namespace tessit {

struct PageFont {
    std::string TextFont = "arial";
    int TextSize = 12; // in points
    bool Bold = false;

    bool operator==(const PageFont&) const = default;
};

// One line of text; x is its left edge and y its baseline.
struct DrawString {
    std::string text;
    int x = 0;
    int y = 0;
    PageFont font;

    bool operator==(const DrawString&) const = default;
};

// A styled text in a box; x and y are its upper left corner. Lines break at the width, and lines that do not fit the
// height are left out. `font` is that of the characters whose style has no size.
struct DrawBlock {
    StyledText text;
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
    PageFont font;

    bool operator==(const DrawBlock&) const = default;
};

using Page = std::vector<std::variant<DrawString, DrawBlock>>; // in the order of drawing

// The printer that the user chose.
class Graphics {
public:
    virtual ~Graphics() = default;

    virtual double StringWidth(const std::string& text, const PageFont& font) = 0;
    // Draws and prints the one page. Fault write_failed where it cannot; a file is then as it was before.
    virtual void print(const Page& page) = 0;
};

} // namespace tessit
