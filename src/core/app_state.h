// SPDX-License-Identifier: MIT
// The shared state of the program: plain properties that windows and App methods read and write. Groups follow the
// folders. Texts that hold a decimal mark follow `use_euro`.
#pragma once

#include "core/deployment.h"
#include "level/register_image.h"
#include "platform/array.h"
#include "platform/control.h"
#include "platform/folder_item.h"
#include "platform/text.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tessit {

// What `myactivewindow` holds.
namespace document {
inline constexpr std::int32_t none = 0; // until a document window first opens
inline constexpr std::int32_t editor = 1;
inline constexpr std::int32_t consolidator = 2;
inline constexpr std::int32_t composer = 3;
inline constexpr std::int32_t reader = 4;
} // namespace document

// The settings as this program last read or wrote them: another one may change their file while it runs.
struct KnownSettings {
    std::optional<std::string> file; // its text; none where it could not be read
    std::vector<std::string> fields; // the program's own at that time
};

struct AppState : RegisterImage {
    // Device link.
    bool serialselected = false; // a port has been chosen; by start-up and settings_window
    std::int32_t portnum = 15;   // its index in the system's list; 15 means none
    std::uint8_t addresshi = 0;  // start address of the bank being loaded; by the load windows
    std::uint8_t addresslo = 0;
    bool loadfile = true;     // started from loadzephonWindow (true) or load_direct_window
    bool readchanged = false; // data just read from the generator isn't saved

    // Files and documents.
    std::optional<FolderItem> filepath;           // none after an open dialog was dismissed: nothing is then saved
    bool changed = false;                         // written here and there, read nowhere
    std::string filename;                         // a bare name before a save dialog, an absolute path after one
    std::string filetype;                         // the extension in force, such as ".zp2"
    std::int32_t myactivewindow = document::none; // the document window activated last; shared commands go by it
    bool editchanged = false;                     // the editor's table has unsaved changes
    bool composechanged = false;                  // the composer's table has unsaved changes
    std::int32_t start_level = 1;                 // first index that an opened file fills
    std::int32_t level = 0;
    std::int32_t row = 0;     // row being changed or filled
    bool insert = false;      // the next level fills `row` instead of being appended
    bool changelevel = false; // an existing level is being changed
    std::string seperator;    // between minutes and seconds; ":" from start-up
    bool use_euro = false;    // decimal comma on the screen
    DecimalMark decimal_mark() const { return use_euro ? DecimalMark::comma : DecimalMark::point; }

    // Composer and consolidator.
    std::int32_t numentries = 0;      // frequencies in the list as last counted, and those typed since
    Array<double> intarray;           // 0 to numentries: the frequencies, all of single precision, and a 0 at the end
    Array<std::string> freqarray;     // the list's pieces that they were read from
    bool datasort = false;            // the list has been sorted since its window came to the front
    bool dataentry = false;           // the list has an entry
    bool consolidatorchanged = false; // the list has unsaved changes
    bool composed = false;
    std::int32_t composelevel = 0;
    Array<std::string> chrarray;                            // scratch of strintR
    Array<double> wparray;                                  // scratch of compose
    Array<Array<Color>> selrowcol{11, Array<Color>(4, {})}; // background of freq_listBox's cells, by row and column
    std::int32_t cellrow = 0;                               // the cell of freq_listBox clicked last
    std::int32_t cellcol = 0;

    // User defaults, kept in the settings file. Indices are those of the lists in the preferences window.
    std::int32_t defaultpacket = 1; // not kept
    std::int32_t defaultwave = 0;
    std::int32_t defaultshape = 0;
    std::int32_t defaultduty = 7; // the eighth entry, 70 %
    std::int32_t defaultoutput = 0;
    std::int32_t defaultpulse = 0;
    std::int32_t defaultwidth = 9;
    std::string default_rate = "1";
    std::string default_sf_time_s = "180"; // sf: a single frequency; wp: each step of a sweep or spread
    std::string default_sf_time_ms = "3:00";
    std::string default_wp_time_s = "10";
    std::string default_wp_time_ms = ":10";
    std::int32_t default_timeformat = 1; // 1: minutes and seconds, 0: seconds
    KnownSettings known_settings;

    // Printing.
    Array<std::string> cwidth;          // column widths in points, as text
    FixedArray<std::string, 12> calign; // "Left", "Center" or "Right"
    std::int32_t headerfont = 0;
    std::int32_t footerfont = 0;
    std::string heading, footer;
    Array<bool> group;
    Array<Color> textshade;
    Array<std::int32_t> topborder;
    std::string zpserial, assigned, qc;

    // Mail and forms.
    std::int32_t port = deployment::first_mail_port; // completed once at start-up
    std::int32_t pwd = deployment::stored_credential;
    std::string uName;
    std::string EditLayout, EditEntry, EditDisplay, SelectBank, DataTransfer, fbSaveas, fbSave, ConsolidateLayout,
        ConsolidateEntry, ConsolidatorNotUsed, ComposeNotUsed, ComposePerform, ManualLayout, ManualUseful, HelpLayout,
        ComposeDisplay, HelpUsefull;
};

} // namespace tessit
