// SPDX-License-Identifier: MIT
// App::getdata and App::showzephon: a bank read from the generator, and the table made from it.
#include "core/app.h"
#include "device/read_window.h"
#include "device/reading.h"
#include "device/settings_window.h"
#include "level/decoder.h"
#include "platform/text.h"

namespace tessit {

namespace {

constexpr const char* transfer_file_name = "zpdat.tmp";

} // namespace

void App::getdata() {
    const FolderItem file = GetFolderItem(transfer_file_name);
    Serial& line = serial_line();
    line.Open();
    line.Reset();
    auto stream = file.CreateTextFile();
    line.Flush();
    line.ReadByte();
    if (receive_bank(desktop().clock(), line, *stream) == ReadingEnd::no_connection) {
        ShowModal({.Message = "No Connection Found", .Explanation = in_use_text(line), .Icon = DialogIcon::caution});
        return stream->Close(); // the file stays behind, empty
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
