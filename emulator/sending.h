// SPDX-License-Identifier: MIT
// The reading dialogue from the generator's side, as docs/wire-format.md tells it: it calls until it is answered, and
// sends a bank in 102 parts, one for the answer and one for each of the first 101 acknowledges. What the program does
// wrong is remembered.
#pragma once

#include "emulator/device.h"
#include "emulator/pacing.h"

namespace tessit::emulator {

inline constexpr Microseconds call_interval = 50'000; // far above every latency: an answered call is the last one
inline constexpr Microseconds byte_time = 521;        // at line speed, 1920 bytes a second
inline constexpr int acknowledges_expected = 110;     // the program's 55 rounds; the last eight fetch nothing

// The 969 bytes of a reading as memory holds them now. Behind bank 40 there is no memory: its last record is unset.
std::vector<Byte> bytes_of_reading(const Memory& memory, int bank);

class SendingDialogue {
public:
    explicit SendingDialogue(Device& device) : device_(device) {}

    void start_calling(int bank); // 1 to 40; gives up what is under way
    void break_off();
    void receive(Byte byte, Arrival arrival);
    void pass_time(Microseconds quiet_until); // nothing came until then
    std::optional<Microseconds> next_event() const;

    bool active() const { return phase_ != Phase::asleep; } // else bytes are not for this dialogue
    const std::vector<Gap>& gaps() const { return gaps_; }  // of the last reading, its answer included

private:
    enum class Phase { asleep, calling, answered, sending };

    void receive_answer(Byte byte, Microseconds at);
    void receive_first_acknowledge(Byte byte, Microseconds at);
    void receive_acknowledge(Byte byte, Microseconds at);

    void call_until(Microseconds now);
    void send_part(int part, Microseconds at);
    void send_byte(int offset);
    void transmit(Byte byte);

    void check_pace(Byte byte, Arrival arrival);
    Wait wait_after(Byte byte) const;
    int record() const { return phase_ == Phase::sending ? acknowledges_ / 2 + 1 : 0; }
    void violation(Microseconds at, std::string expected, std::string came);

    Device& device_;
    Phase phase_ = Phase::asleep;
    std::vector<Byte> bytes_;
    std::optional<Microseconds> next_call_; // none while calling: at once
    std::optional<Microseconds> hang_up_at_;
    Microseconds line_free_ = 0; // when the last byte will have left
    bool stopped_ = false;       // nothing more is sent, though the acknowledges go on
    bool interrupted_ = false;   // by keys: acknowledges of what was under way may still come
    int acknowledges_ = 0;
    Pacing pacing_;
    std::vector<Gap> gaps_;
    Microseconds last_byte_ = 0;
};

} // namespace tessit::emulator
