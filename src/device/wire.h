// SPDX-License-Identifier: MIT
// Constants and small rules of the serial dialogue. Wire format: docs/wire-format.md.
#pragma once

#include "level/level_record.h"
#include "platform/clock.h"

#include <cstdint>

namespace tessit::wire {

inline constexpr std::uint8_t request = 86; // "V"
inline constexpr std::uint8_t answer = 170; // followed by an acknowledge
inline constexpr std::uint8_t acknowledge = 6;
inline constexpr std::uint8_t padding = 255;
inline constexpr int padding_bytes = 4; // a level takes 16 bytes of the generator's memory

inline constexpr int handshake_tries = 1000;
inline constexpr int acknowledge_tries = 100; // misses allowed; one more ends the load

inline constexpr Microseconds handshake_wait = 10'000;
inline constexpr Microseconds address_wait = 10'000;    // between the two address bytes
inline constexpr Microseconds first_byte_wait = 10'000; // after byte 0 of a level
inline constexpr Microseconds byte_wait = 5'000;        // after each of the others and each padding byte
inline constexpr Microseconds acknowledge_wait = 1'000; // between two looks for an acknowledge

// Reading: the generator calls and sends, the program acknowledges blindly. 55 rounds of 18 reads are 990 attempts at
// the 969 bytes of 51 records.
inline constexpr int call_tries = 1000; // one more ends the read
inline constexpr int read_rounds = 55;
inline constexpr Microseconds call_wait = 500;     // before each look for a call
inline constexpr Microseconds call_pause = 10'000; // after a look that found none
inline constexpr Microseconds answer_wait = 5'000; // between the two bytes of the answer
inline constexpr Microseconds before_address_acknowledge = 12'000;
inline constexpr Microseconds before_data_acknowledge = 10;

inline constexpr int banks = 40;
inline constexpr int bytes_per_bank = 800;
inline constexpr int bytes_per_level = 16;

struct Address {
    std::uint8_t high = 0;
    std::uint8_t low = 0;

    Address plus(int bytes) const { // modulo 65536
        const int sum = high * 256 + low + bytes;
        return {static_cast<std::uint8_t>(sum / 256), static_cast<std::uint8_t>(sum)};
    }
    bool operator==(const Address&) const = default;
};

// Start address of bank 1 to 40.
inline Address bank_address(int bank) {
    return Address{}.plus((bank - 1) * bytes_per_bank);
}

// The bank that an address read from the generator belongs to.
int bank_number(Address address);

// The generator counts 255s: c is their number among the record's bytes without its check byte; below 4 the count
// byte is 4 (so 1 to 3 of them count for nothing), otherwise c + 4.
inline std::uint8_t count_byte(const LevelBytes& record) {
    int count = 0;
    for (std::size_t i = 0; i < record_offset::errorchk; ++i) {
        count += record[i] == padding ? 1 : 0;
    }
    return static_cast<std::uint8_t>(count < 4 ? 4 : count + 4);
}

} // namespace tessit::wire
