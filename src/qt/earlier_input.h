// SPDX-License-Identifier: MIT
// A key or a click that the user made before a question was to be seen is no answer to it.
#pragma once

namespace tessit::qt {

// Drops what the user has typed and clicked up to now and the event loop has not yet passed on. For the moment before
// a message is shown; not for file dialogs, into which names are typed ahead.
void drop_earlier_input();

} // namespace tessit::qt
