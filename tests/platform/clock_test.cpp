// SPDX-License-Identifier: MIT
#include "platform/clock.h"

#include "support/scripted_desktop.h"

#include <gtest/gtest.h>
#include <vector>

namespace tessit {
namespace {

// Gives the scripted readings, then goes on by what it is asked to idle.
class ScriptedClock : public Clock {
public:
    explicit ScriptedClock(std::vector<Microseconds> readings) : readings_(std::move(readings)) {}

    Microseconds now() override {
        if (next_ < readings_.size()) {
            last_ = readings_[next_++];
        }
        return last_;
    }
    void idle(Microseconds at_most) override {
        asked.push_back(at_most);
        last_ += at_most;
    }

    std::vector<Microseconds> asked;

private:
    std::vector<Microseconds> readings_;
    std::size_t next_ = 0;
    Microseconds last_ = 0;
};

using Spans = std::vector<Microseconds>;

TEST(Wait, goes_on_for_what_is_left_until_all_has_passed) {
    const std::tuple<Microseconds, Spans, Spans> cases[] = {
        {5000, {100}, {5000}},
        {5000, {100, 100, 4000, 5099}, {5000, 5000, 1100, 1}}, // idling ended early, and then a bit too early
        {5000, {100, 9000}, {5000}},                           // and too late
        {0, {100}, {}},
        {-1, {100}, {}},
        {10000, {50000, 54000, 20000}, {10000, 6000, 6000}}, // 4000 had passed as the clock stepped back
        {10000, {50000, 54000, 20000, 23000, 1000}, {10000, 6000, 6000, 3000, 3000}}, // twice
        {10000, {50000, 49999}, {10000, 10000}},
    };
    for (const auto& [duration, readings, asked] : cases) {
        ScriptedClock clock(readings);
        wait(clock, duration);
        EXPECT_EQ(clock.asked, asked) << duration << " from reading " << readings.back();
    }
}

TEST(Wait, on_a_steady_clock_is_exact) {
    testing::SimulatedClock clock;
    const Microseconds start = clock.now();
    wait(clock, 5000);
    wait(clock, 10000);
    EXPECT_EQ(clock.now() - start, 15000);
}

} // namespace
} // namespace tessit
