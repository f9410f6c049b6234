// SPDX-License-Identifier: MIT
// The loading dialogue: a bank goes to the generator, fifty levels in order, unset ones too. It blocks from end to end,
// some five seconds. Dialogue: docs/wire-format.md.
#pragma once

#include "device/wire.h"
#include "level/register_image.h"
#include "platform/clock.h"
#include "platform/serial.h"

namespace tessit {

enum class LoadingEnd {
    loaded,
    no_connection,            // no answer to 1000 requests; nothing else was sent
    address_not_acknowledged, // levels before it stay in the generator
    data_not_accepted,        // the same; the level itself may be there too
};

struct LoadingResult {
    LoadingEnd end = LoadingEnd::loaded;
    int level = 0; // at which it ended, 1 to 50
};

// Sends levels 1 to 50 of the image to the bank that begins at `address`. There is no second try.
LoadingResult load_bank(Clock& clock, Serial& line, const RegisterImage& image, wire::Address address);

} // namespace tessit
