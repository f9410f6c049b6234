// SPDX-License-Identifier: MIT
// The emulated generator: a memory of 40 banks behind a serial line, and a keypad. It takes bytes with the time at
// which they came and holds the bytes that it sends until they are taken; it has no clock and no thread of its own.
// Times are microseconds of any one clock. Which line it hangs on is its owner's business (emulated_line.h, main.cpp).
#pragma once

#include "emulator/loading.h"
#include "emulator/sending.h"

#include <limits>

namespace tessit::emulator {

class Generator {
public:
    explicit Generator(AfterLoad after_load = AfterLoad::leave_receive_mode) : loading_(device_, after_load) {}
    Generator(const Generator&) = delete;
    Generator& operator=(const Generator&) = delete;

    // The keys 5 and 3. From now on calls are answered, until fifty levels have come or a load was given up. Keys
    // pressed during a load give it up.
    void press_receive();
    bool receiving() const { return !sending_.active() && loading_.receiving(); }
    int unheard_calls() const { return loading_.unheard_calls(); } // while it was not in receive mode

    // The keys 5, 2, BANK (1 to 40) and #. From now on the generator calls until it is answered, and sends the bank as
    // it is in memory now. What was under way is given up.
    void press_send(int bank);
    bool sending() const { return sending_.active(); } // calling, too

    // The line. A byte that comes to a line that hung up is lost.
    void receive(Byte byte, Arrival arrival);
    void receive(Byte byte, Microseconds at) { receive(byte, {.earliest = at, .latest = at}); }
    void pass_time(Microseconds quiet_until); // no byte came until then
    void excuse() { loading_.excuse(); } // the owner of the line was so late that a sender may rightly have given up
    std::vector<Byte> take(Microseconds now, std::size_t at_most = std::numeric_limits<std::size_t>::max());
    std::optional<Microseconds> next_event() const; // when to take bytes or pass time at the latest

    void hang_up(AfterHangUp after);
    bool hung_up() const { return device_.hung_up.has_value(); }
    bool can_be_opened_again() const { return device_.hung_up == AfterHangUp::can_be_opened_again; }
    void plug_in() { device_.hung_up.reset(); } // the line is there again

    void set_failure(const Failure& failure);
    void set_pace(Pace pace) { device_.pace = pace; }
    void set_latency(Microseconds latency) { device_.line.set_latency(latency); } // bytes are taken that much later

    // Bank 1 to 40, level 1 to 50; anything else raises std::out_of_range.
    LevelBytes level(int bank, int level) const { return device_.memory.level(bank, level); }
    void store(int bank, int level, const LevelBytes& bytes) { device_.memory.store(bank, level, bytes); }
    void fill_with_example(int bank);

    const std::vector<Violation>& violations() const { return device_.violations; }
    const std::vector<Gap>& gaps() const { return loading_.gaps(); } // of the last load
    const std::vector<Gap>& reading_gaps() const { return sending_.gaps(); }
    const LoadTimes& load_times() const { return loading_.times(); }

private:
    Device device_;
    LoadingDialogue loading_;
    SendingDialogue sending_{device_}; // while it is active, bytes are for it
};

} // namespace tessit::emulator
