// SPDX-License-Identifier: MIT
#include "device/loading.h"

#include "level/level_table.h"

namespace tessit {

namespace {

// The small exchanges of which the dialogue is made.
class LoadingDialogue {
public:
    LoadingDialogue(Clock& clock, Serial& line) : clock_(clock), line_(line) {}

    bool handshake() {
        for (int tries = 0; tries < wire::handshake_tries; ++tries) {
            send(wire::request, wire::handshake_wait);
            // Both reads back to back: an answer whose two bytes are not there together is a miss.
            if (line_.ReadByte() == wire::answer && line_.ReadByte() == wire::acknowledge) {
                return true;
            }
        }
        return false;
    }

    bool address(wire::Address address) {
        send(address.high, wire::address_wait);
        line_.Write(address.low);
        return acknowledged();
    }

    bool data(const LevelBytes& record) {
        send(record[0], wire::first_byte_wait);
        for (std::size_t i = 1; i < record.size(); ++i) {
            send(record[i], wire::byte_wait);
        }
        for (int i = 0; i < wire::padding_bytes; ++i) {
            send(wire::padding, wire::byte_wait);
        }
        line_.Write(wire::count_byte(record));
        return acknowledged();
    }

private:
    void send(std::uint8_t byte, Microseconds wait_after) {
        line_.Write(byte);
        wait(clock_, wait_after);
    }

    bool acknowledged() {
        for (int misses = 0; misses <= wire::acknowledge_tries; ++misses) {
            if (line_.ReadByte() == wire::acknowledge) {
                return true;
            }
            wait(clock_, wire::acknowledge_wait);
        }
        return false;
    }

    Clock& clock_;
    Serial& line_;
};

} // namespace

LoadingResult load_bank(Clock& clock, Serial& line, const RegisterImage& image, wire::Address address) {
    LoadingDialogue dialogue(clock, line);
    if (!dialogue.handshake()) {
        return {.end = LoadingEnd::no_connection};
    }
    for (int level = 1; level <= most_levels; ++level) {
        if (!dialogue.address(address)) {
            return {.end = LoadingEnd::address_not_acknowledged, .level = level};
        }
        if (!dialogue.data(image.bytes(level))) {
            return {.end = LoadingEnd::data_not_accepted, .level = level};
        }
        address = address.plus(wire::bytes_per_level);
    }
    return {};
}

} // namespace tessit
