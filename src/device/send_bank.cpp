// SPDX-License-Identifier: MIT
// App::sendzephon: the loading dialogue, docs/wire-format.md. It blocks from end to end; the first failure ends it.
#include "core/app.h"
#include "core/popup_window.h"
#include "device/load_direct_window.h"
#include "device/load_zephon_window.h"
#include "device/wire.h"
#include "level/level_table.h"
#include "level/register_image.h"
#include "platform/text.h"
#include "program/main_window.h"

namespace tessit {

namespace {

// The small exchanges of which the dialogue is made.
class LoadingDialogue {
public:
    LoadingDialogue(App& app, Serial& line) : app_(app), line_(line) {}

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
    void send(std::uint8_t byte, Microseconds wait_behind) {
        line_.Write(byte);
        app_.wait(wait_behind);
    }

    bool acknowledged() {
        for (int misses = 0; misses <= wire::acknowledge_tries; ++misses) {
            if (line_.ReadByte() == wire::acknowledge) {
                return true;
            }
            app_.wait(wire::acknowledge_wait);
        }
        return false;
    }

    App& app_;
    Serial& line_;
};

// The digits are those of load_direct_window also when a file is loaded, and the address is the bank's, not the
// level's.
std::string address_not_acknowledged(App& app) {
    return "Bank " + Str(app.load_direct_window->bank_bt_hi) + Str(app.load_direct_window->bank_bt_lo) + "\rAddress " +
           Str(app.addresshi) + "  " + Str(app.addresslo) + " Not Acknowledged";
}

// Empty when all fifty levels have been acknowledged, else what to tell the user. Unset levels go too.
std::string load(App& app, const RegisterImage& image) {
    LoadingDialogue dialogue(app, app.Window1->serial_port);
    wire::Address address{app.addresshi, app.addresslo};
    if (!dialogue.handshake()) {
        return "No Connection Found";
    }
    for (int level = 1; level <= most_levels; ++level) {
        if (!dialogue.address(address)) {
            return address_not_acknowledged(app);
        }
        if (!dialogue.data(image.bytes(level))) {
            return "Data not Accepted. Level: " + Str(level);
        }
        address = address.plus(wire::bytes_per_level);
    }
    return "";
}

} // namespace

void App::sendzephon() {
    const RegisterImage image = *this; // the local table of the transfer
    const Microseconds start = now();
    const std::string failure = load(*this, image);
    StaticText& completion = loadfile ? loadzephonWindow->zephonloadcomplete : load_direct_window->loadcompleted;
    if (!failure.empty()) {
        MsgBox(failure);
        completion.SetVisible(false);
        return popupwindow.Close();
    }
    const auto seconds = static_cast<int>((now() - start) / 1'000'000);
    completion.SetText("Zephon loaded in " + Str(seconds) + " seconds");
    completion.SetVisible(true);
    if (!loadfile) {
        load_direct_window->LoadButton.SetEnabled(true);
    }
    popupwindow.Close();
}

} // namespace tessit
