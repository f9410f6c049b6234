// SPDX-License-Identifier: MIT
// App's methods on the shared state alone.
#include "core/app.h"
#include "level/number.h"

namespace tessit {

float App::strintR(const std::string& text) {
    chrarray = characters(text);
    return read_number(chrarray);
}

void App::datareset() {
    reset();
    row = 0;
}

} // namespace tessit
