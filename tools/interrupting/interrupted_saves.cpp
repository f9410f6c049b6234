// SPDX-License-Identifier: MIT
// Interrupts the program's saves wherever they can be interrupted, and looks what is left: the old file or the new one,
// whole, at most one unfinished file beside it, and a save that says it was done has been done. Prints a table; the
// exit code is 1 when any of it does not hold, and 77 where processes can't be traced.
#include "recovery/recovery_folder.h"
#include "support/full_disk.h"
#include "support/quiet_program.h"
#include "tools/interrupting/traced_run.h"

#include <cerrno>
#include <chrono>
#include <cstdio>
#include <unistd.h>

namespace tessit::interrupting {
namespace {

namespace fs = std::filesystem;

struct Scenario {
    const char* name;
    fs::path file;              // alone in its folder, but for what is beside it already
    std::function<bool()> save; // false: it was told that nothing has been saved
};

struct Figures {
    int runs = 0;
    int left_old = 0;
    int left_new = 0;
    int told = 0;
    int unfinished = 0;
    int wrong = 0;
};

int unfinished_files(const fs::path& folder) {
    return static_cast<int>(std::count_if(fs::directory_iterator(folder), {}, [](const fs::directory_entry& entry) {
        return entry.path().filename().string().starts_with(".tessit-");
    }));
}

// One save after another, each from the same beginning.
class Trials {
public:
    explicit Trials(Scenario scenario) : scenario_(std::move(scenario)) {
        begin();
        possible_ = run(scenario_.save, {}).has_value();
        new_ = testing::file_bytes(scenario_.file);
    }

    bool possible() const { return possible_; }
    const Figures& figures() const { return figures_; }

    // False when the save was over before it could be interrupted.
    bool try_one(Interruption interruption, const std::function<bool()>& save) {
        begin();
        const Ending ending = run(save, interruption).value_or(Ending::crashed);
        judge(ending, interruption);
        return ending != Ending::not_reached;
    }
    bool try_one(Interruption interruption) { return try_one(interruption, scenario_.save); }

    // At each stop in turn until the save is over before it.
    void kill_everywhere() {
        for (int stop = 1; try_one({.stop = stop}); ++stop) {
        }
    }
    void fail_everywhere(int error) { // a call begins at every second stop
        for (int stop = 1; try_one({.stop = stop, .error = error}); stop += 2) {
        }
    }

    const Scenario& scenario() const { return scenario_; }

private:
    void begin() {
        for (const auto& entry : fs::directory_iterator(scenario_.file.parent_path())) {
            if (entry.path().filename().string().starts_with(".tessit-")) {
                fs::remove(entry.path());
            }
        }
        testing::write_file(scenario_.file, old_);
        fs::permissions(scenario_.file, fs::perms(0666));
    }

    void judge(Ending ending, Interruption interruption) {
        const std::string found = testing::file_bytes(scenario_.file);
        const int unfinished = unfinished_files(scenario_.file.parent_path());
        const bool whole = found == old_ || found == new_;
        const bool kept_word = (ending != Ending::done || found == new_) && (ending != Ending::told || found == old_);
        if (ending != Ending::spared && ending != Ending::not_reached) {
            ++figures_.runs;
            (found == new_ ? figures_.left_new : figures_.left_old) += whole ? 1 : 0;
            figures_.told += ending == Ending::told ? 1 : 0;
            figures_.unfinished += unfinished;
        }
        if (!whole || !kept_word || unfinished > 1 || ending == Ending::crashed) {
            ++figures_.wrong;
            std::fprintf(stderr, "%s, stop %d, error %d: %zu bytes, ending %d, %d unfinished files\n", scenario_.name,
                         interruption.stop, interruption.error, found.size(), static_cast<int>(ending), unfinished);
        }
    }

    const Scenario scenario_;
    const std::string old_ = std::string(7000, 'o');
    std::string new_;
    bool possible_ = false;
    Figures figures_;
};

// The folder can't be written, also for a user who is root elsewhere.
bool in_a_read_only_folder(const Scenario& scenario) {
    fs::permissions(scenario.file.parent_path(), fs::perms(0555));
    const bool unprivileged = geteuid() != 0 || seteuid(65534) == 0;
    return unprivileged && scenario.save();
}

bool on_a_full_disk(const Scenario& scenario, std::size_t room) {
    const testing::FullDisk full(room);
    return scenario.save();
}

// The clock has gone back since the file was written.
bool behind_the_file(const Scenario& scenario) {
    fs::last_write_time(scenario.file, fs::file_time_type::clock::now() + std::chrono::hours(48));
    return scenario.save();
}

struct Kind {
    const char* name;
    std::function<void(Trials&)> trials;
};

const Kind kinds[] = {
    {"killed before and after each call to the system", [](Trials& trials) { trials.kill_everywhere(); }},
    {"each call fails: no room left on the disk", [](Trials& trials) { trials.fail_everywhere(ENOSPC); }},
    {"each call fails: the disk can't be read or written", [](Trials& trials) { trials.fail_everywhere(EIO); }},
    {"each call fails: a read-only disk", [](Trials& trials) { trials.fail_everywhere(EROFS); }},
    {"the disk is full after 0 to 999 bytes",
     [](Trials& trials) {
         for (std::size_t room = 0; room < 1000; room += 37) {
             trials.try_one({}, [&] { return on_a_full_disk(trials.scenario(), room); });
         }
     }},
    {"the folder is read-only",
     [](Trials& trials) {
         trials.try_one({}, [&] { return in_a_read_only_folder(trials.scenario()); });
         fs::permissions(trials.scenario().file.parent_path(), fs::perms(0700));
     }},
    {"the clock has gone back two days",
     [](Trials& trials) { trials.try_one({}, [&] { return behind_the_file(trials.scenario()); }); }},
};

// The copy that there is already.
fs::path copy_in(const fs::path& folder) {
    return std::find_if(fs::directory_iterator(folder), {},
                        [](const fs::directory_entry& entry) { return entry.path().extension() == ".editwindow"; })
        ->path();
}

bool kept(OwnCopies& copies) {
    try {
        return copies.write("editwindow", std::string(9000, 'n')), true;
    } catch (const Fault&) {
        return false;
    }
}

// What is interrupted: one line a save.
std::vector<Scenario> scenarios(testing::QuietProgram& program, OwnCopies& copies, const fs::path& copy) {
    const auto told_nothing = [&program] { return program.desktop.faults.empty(); };
    return {
        {"protocol of fifty levels", program.desktop.file,
         [&program, told_nothing] { return program.app.choose_menu("FileSave"), told_nothing(); }},
        {"settings", program.settings_file,
         [&program, told_nothing] { return program.save_settings(), told_nothing(); }},
        {"recovery copy", copy, [&copies] { return kept(copies); }},
    };
}

int interrupt_all() {
    testing::QuietProgram program;
    program.app.choose_menu("FileCreateNewFile");
    for (int level = 1; level <= 50; ++level) {
        program.app.editwindow->FreqField.type(std::to_string(level) + ".5");
        program.app.editwindow->FreqField.press(keys::return_);
    }
    const testing::TemporaryFolder folder;
    OwnCopies copies(folder / "recovery");
    copies.write("editwindow", "an earlier one");
    int wrong = 0;
    std::puts("| Save | Interrupted | runs | old file left | new file left | told | unfinished files left |\n"
              "|---|---|---|---|---|---|---|");
    for (const Scenario& scenario : scenarios(program, copies, copy_in(folder / "recovery"))) {
        for (const Kind& kind : kinds) {
            Trials trials(scenario);
            if (!trials.possible()) {
                std::fputs("this system does not let a process trace its child\n", stderr);
                return 77;
            }
            kind.trials(trials);
            const Figures& figures = trials.figures();
            wrong += figures.wrong;
            std::printf("| %s | %s | %d | %d | %d | %d | %d |\n", scenario.name, kind.name, figures.runs,
                        figures.left_old, figures.left_new, figures.told, figures.unfinished);
        }
    }
    return wrong == 0 ? 0 : 1;
}

} // namespace
} // namespace tessit::interrupting

int main() {
    return tessit::interrupting::interrupt_all();
}
