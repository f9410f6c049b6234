// SPDX-License-Identifier: MIT
#include "device/reading.h"

#include "platform/text.h"

#include <cmath>

namespace tessit {

namespace {

// Reads that never wait: what has arrived goes to the file, in order, and nothing else.
class ReadingDialogue {
public:
    ReadingDialogue(Clock& clock, Serial& line, TextOutputStream& file) : clock_(clock), line_(line), file_(file) {}

    bool call_heard() {
        for (int tries = 0;;) {
            wait(clock_, wire::call_wait);
            const int byte = line_.ReadByte();
            if (byte == 'V' || byte == 'v') { // compared as text
                return true;
            }
            if (++tries > wire::call_tries) {
                return false;
            }
            wait(clock_, wire::call_pause);
        }
    }

    void answer() {
        line_.Write(wire::answer);
        wait(clock_, wire::answer_wait);
        line_.Write(wire::acknowledge);
    }

    // The reads of one record by their number; the bytes found need not be the record's.
    void take_record() {
        take(2);
        wait(clock_, wire::before_address_acknowledge);
        line_.Write(wire::acknowledge);
        take(16);
        wait(clock_, wire::before_data_acknowledge);
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

    Clock& clock_;
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

} // namespace

namespace wire {

// The high byte counts 255 and not 256, and the divisor is 797 and not 800: rounding makes up for both.
int bank_number(Address address) {
    return static_cast<int>(std::lround((address.high * 255 + address.low) / 797.0 + 1));
}

} // namespace wire

ReadingEnd receive_bank(Clock& clock, Serial& line, TextOutputStream& file) {
    ReadingDialogue dialogue(clock, line, file);
    if (!dialogue.call_heard()) {
        return ReadingEnd::no_connection;
    }
    dialogue.answer();
    for (int record = 0; record < wire::read_rounds; ++record) {
        dialogue.take_record();
    }
    return ReadingEnd::received;
}

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

} // namespace tessit
