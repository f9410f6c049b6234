// SPDX-License-Identifier: MIT
// Two programs at one serial line would take each other's bytes. So whoever opens a port keeps the system's lock on the
// device itself, which needs no file, goes with its process however that ends, and tells the next one whose it is.
#pragma once

#include "platform/serial.h"

#include <optional>

namespace tessit {

// On an open device, until it is closed. False where another open device of the same port has it.
bool lock_port(int descriptor);

// The process that keeps such a lock; none where there is none or where the system does not tell.
std::optional<PortHolder> lock_holder(const SerialPort& port);

} // namespace tessit
