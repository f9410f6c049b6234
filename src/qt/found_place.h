// SPDX-License-Identifier: MIT
// What a search in a document has found.
#pragma once

namespace tessit::qt {

// Which of the places where a text stands is shown, counted from 1 in the document's order. 0 of 0: it stands nowhere.
struct FoundPlace {
    int number = 0;
    int count = 0;
};

} // namespace tessit::qt
