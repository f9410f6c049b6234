// SPDX-License-Identifier: MIT
// App::getdata and App::showzephon: the reading dialogue, docs/wire-format.md, and the table made from it.
#include "core/app.h"
#include "device/read_window.h"
#include "device/wire.h"
#include "level/decoder.h"
#include "platform/text.h"
#include "program/main_window.h"

#include <cmath>

namespace tessit {

namespace {

constexpr const char* transfer_file_name = "zpdat.tmp";

// Reads that never wait: what has arrived goes to the file, in order, and nothing else.
class ReadingDialogue {
public:
    ReadingDialogue(App& app, Serial& line, TextOutputStream& file) : app_(app), line_(line), file_(file) {}

    bool call_heard() {
        for (int tries = 0;;) {
            app_.wait(wire::call_wait);
            const int byte = line_.ReadByte();
            if (byte == 'V' || byte == 'v') { // compared as text
                return true;
            }
            if (++tries > wire::call_tries) {
                return false;
            }
            app_.wait(wire::call_pause);
        }
    }

    void answer() {
        line_.Write(wire::answer);
        app_.wait(wire::answer_wait);
        line_.Write(wire::acknowledge);
    }

    // The reads of one record by their number; the bytes found need not be the record's.
    void take_record() {
        take(2);
        app_.wait(wire::before_address_acknowledge);
        line_.Write(wire::acknowledge);
        take(16);
        app_.wait(wire::before_data_acknowledge);
        line_.Write(wire::acknowledge);
    }

private:
    void take(int reads) {
        for (int i = 0; i < reads; ++i) {
            if (const int byte = line_.ReadByte(); byte >= 0) {
                file_.Write(ChrB(byte));
            }
        }
    }

    App& app_;
    Serial& line_;
    TextOutputStream& file_;
};

int leading_calls(BinaryInputStream& file) {
    int count = 0;
    while (file.ReadByte() == wire::request) {
        ++count;
    }
    return count;
}

void read_device_record(BinaryInputStream& file, RegisterImage& image, int index) {
    for (auto* bytes :
         {&image.hi_add, &image.lo_add, &image.fbyte2, &image.fbyte1, &image.fbyte0, &image.db3, &image.timesec,
          &image.timemin, &image.db6, &image.dutycycle, &image.wpwidth, &image.pratehi, &image.pratelo}) {
        (*bytes)[index] = file.ReadByte();
    }
    for (int i = 0; i < 1 + wire::padding_bytes + 1; ++i) {
        image.errorchk[index] = file.ReadByte(); // check byte, padding, count byte: the last one stays
    }
}

// Records stand by position alone: a lost byte shifts all that follow it.
void read_transfer_file(const FolderItem& file, RegisterImage& image) {
    int calls = leading_calls(*file.OpenAsBinaryFile());
    auto stream = file.OpenAsBinaryFile();
    for (int index = 0; index <= RegisterImage::Bytes::upper_bound(); ++index) {
        for (; calls > 0; --calls) {
            stream->ReadByte();
        }
        read_device_record(*stream, image, index);
    }
    stream->Close();
}

} // namespace

namespace wire {

// The high byte counts 255 and not 256, and the divisor is 797 and not 800: rounding makes up for both.
int bank_number(Address address) {
    return static_cast<int>(std::lround((address.high * 255 + address.low) / 797.0 + 1));
}

} // namespace wire

void App::getdata() {
    const FolderItem file = GetFolderItem(transfer_file_name);
    Serial& line = Window1->serial_port;
    line.Open();
    line.Reset();
    auto stream = file.CreateTextFile();
    ReadingDialogue dialogue(*this, line, *stream);
    line.Flush();
    line.ReadByte();
    if (!dialogue.call_heard()) {
        MsgBox("No Connection Found");
        return stream->Close(); // the file stays behind, empty
    }
    dialogue.answer();
    for (int record = 0; record < wire::read_rounds; ++record) {
        dialogue.take_record();
    }
    stream->Close();
    line.Close();
    read_transfer_file(file, *this);
    line.Close();
    showzephon();
}

void App::showzephon() {
    ReadWindow& window = ReadZPWindow.get();
    Listbox& table = window.displaybox;
    window.bankfield.SetText("Bank_" + Str(wire::bank_number({hi_add[0], lo_add[0]})));
    const DecodingRules rules{
        .time_form = time_form_of(default_timeformat), .mark = decimal_mark(), .source = RecordSource::generator};
    BankTotals totals;
    for (int index = 0; index < most_levels; ++index) {
        table.AddRow(Str(index + 1));
        const int table_row = table.ListCount() - 1;
        const LevelBytes record = bytes(index);
        if (is_blank(record)) {
            table.SetCell(table_row, column::waveform, "blank");
            continue;
        }
        if ((db6[index] & 1) != 0) { // the generator's other codes for a single frequency become the program's
            db6[index] = static_cast<std::uint8_t>((db6[index] & ~mode::wave_mask) | mode::single_frequency);
        }
        const DecodedLevel level_shown = decode_level(record, rules);
        show_level(table, table_row, level_shown);
        totals.add(level_shown);
        window.BankFreqField.SetText(Str(totals.frequencies));
        window.BankTimeField.SetText(format_clock(totals.time));
    }
    insert = false;
}

} // namespace tessit
