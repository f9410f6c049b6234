// SPDX-License-Identifier: MIT
// The loading dialogue from the generator's side, as docs/wire-format.md tells it, and stricter than a real one:
// every breach by the sender is remembered. A level whose bytes are wrong is neither stored nor acknowledged, and
// ends the load; a wait that was too short is only remembered.
#pragma once

#include "emulator/device.h"
#include "emulator/pacing.h"

namespace tessit::emulator {

// What the generator does when a load has ended, well or badly.
enum class AfterLoad { leave_receive_mode, stay_in_receive_mode };

struct LoadTimes {
    std::optional<Microseconds> first_call;
    std::optional<Microseconds> first_address;
    std::optional<Microseconds> last_acknowledge; // of the fiftieth level
};

class LoadingDialogue {
public:
    LoadingDialogue(Device& device, AfterLoad after_load) : device_(device), after_load_(after_load) { leave(); }

    void enter_receive_mode(); // gives up a load that is under way
    void break_off();          // the line is gone
    void receive(Byte byte, Arrival arrival);
    void pass_time(Microseconds quiet_until); // nothing came until then
    std::optional<Microseconds> gives_up_at() const;
    void excuse(); // answers were so late that the sender may rightly have given up

    bool receiving() const { return phase_ != Phase::asleep; }
    bool loading() const { return phase_ > Phase::ready; }
    int unheard_calls() const { return unheard_calls_; }   // since the last time in receive mode
    const std::vector<Gap>& gaps() const { return gaps_; } // of the last load, its handshake included
    const LoadTimes& times() const { return times_; }

private:
    enum class Phase { asleep, ready, address_high, address_low, record };
    struct AcknowledgeFailures {
        FailureMode lost, late, too_late, wrong, stray, hang_up;
    };

    void idle_byte(Byte byte, Microseconds at);
    void answer_call(Microseconds at);
    void send_answer(Microseconds at);
    void called_again(Arrival arrival);
    void address_high(Byte byte, Arrival arrival);
    void address_low(Byte byte, Microseconds at);
    void record_byte(Byte byte, Microseconds at);
    void record_complete(Byte count, Microseconds at);
    void level_stored(Microseconds at);
    void send_acknowledge(const AcknowledgeFailures& failures, Microseconds at);

    bool begins_anew(Byte byte) const;
    void check_pace(Byte byte, Arrival arrival);
    void check_acknowledged(Microseconds at);
    Wait wait_after(Byte byte) const;
    bool plays(FailureMode mode);
    void violation(Microseconds at, std::string expected, std::string came);
    void hang_up();
    void leave();

    static const AcknowledgeFailures address_failures;
    static const AcknowledgeFailures data_failures;

    Device& device_;
    AfterLoad after_load_;
    Phase phase_ = Phase::asleep;
    Pacing pacing_;
    std::vector<Gap> gaps_;
    LoadTimes times_;
    Microseconds last_byte_ = 0;
    bool times_are_old_ = true; // the next call begins a new load's records
    bool stray_reported_ = false;
    bool excused_ = false;            // in this load an answer failed: the sender may rightly give up
    bool acknowledge_failed_ = false; // in this load: after an acknowledge a new call may come
    int unheard_calls_ = 0;
    int calls_since_answer_ = 0;
    int level_ = 0;   // 1 to 50 within a load
    int address_ = 0; // of the level that is expected or under way
    int high_ = 0;
    int position_ = 0;     // within the level's bytes
    bool refused_ = false; // one of them was wrong
    LevelBytes bytes_{};
    Microseconds acknowledged_at_ = 0;
};

} // namespace tessit::emulator
