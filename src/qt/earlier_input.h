// SPDX-License-Identifier: MIT
// What the user pressed while the program could not listen is not meant for what comes to be seen afterwards, although
// the event loop passes it on only then. The stamps that the window system gives to keys and clicks tell which these
// are; its clock is known by the one that was passed on last.
#pragma once

namespace tessit::qt {

void watch_input(); // from now on; more than once does no harm

// Drops what was pressed since the last one that was passed on. For each moment of a handler that waits for a device,
// and before each message.
void drop_input_so_far();

} // namespace tessit::qt
