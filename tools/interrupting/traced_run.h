// SPDX-License-Identifier: MIT
// Runs a step in a process of its own that is stopped before and after each of its calls to the system, and there
// killed, or one of its calls made to fail.
#pragma once

#include <functional>
#include <optional>

namespace tessit::interrupting {

// Where a run is interrupted: its stops count from 1, two for each call.
struct Interruption {
    int stop = 0;  // 0: nowhere
    int error = 0; // what the call that begins at the stop fails with, such as ENOSPC; 0: the process is killed there
};

enum class Ending {
    done,        // the step was true
    told,        // the step was false
    killed,      // as it was asked for
    crashed,     // it ended in any other way
    spared,      // the call at the stop is none that fails for a reason of files; the step went through
    not_reached, // the step was over before the stop
};

// None where the system does not let a process trace its child.
std::optional<Ending> run(const std::function<bool()>& step, Interruption interruption);

// Calls can be made to fail on this processor.
bool calls_can_fail();

} // namespace tessit::interrupting
