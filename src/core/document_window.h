// SPDX-License-Identifier: MIT
// A document window as shared commands see it, whichever it is: a table of levels with totals (editor, composer, read
// window) or a list as text (consolidator).
#pragma once

#include "core/app_state.h"
#include "level/encoder.h"
#include "platform/application.h"
#include "platform/archive.h"
#include "platform/edit_field.h"
#include "platform/listbox.h"

#include <optional>
#include <string>

namespace tessit {

struct LevelTable {
    const Listbox& rows;
    int last_level = 0;  // levels are rows 1 to this one
    EncodingRules rules; // how the texts become bytes
    const EditField& total_frequencies;
    const EditField& total_time;
};

enum class Heading { name_of_document, quality_line }; // of the printed page
enum class Insertion { done, table_full };

class DocumentWindow : public Window {
public:
    using Window::Window;

    virtual EditField& name_field() = 0;                                     // of protocol, list or bank
    virtual std::optional<LevelTable> level_table() { return std::nullopt; } // none: a list
    virtual const EditField* list() { return nullptr; }                      // none: a table
    virtual const Listbox* table_to_export() { return nullptr; }             // none: the headings alone are exported
    virtual Heading heading() const { return Heading::name_of_document; }

    virtual void save() = 0; // the Save command; marks as saved also where the file dialog was dismissed, but no list
    virtual bool& change_flag() = 0; // there is unsaved work, about which closing asks
    virtual MessageDialog closing_question() const = 0;
    // Everything by which the window can be made again as it is: its controls and the shared state that they go with.
    virtual void archive_document(Archive& archive) = 0;

    void shows_file(const std::optional<FolderItem>& file) { file_ = file; } // opened or saved; none: made of several
    ShownDocument shown_document() override;

    virtual void delete_selected_level() {}
    virtual Insertion insert_level() { return Insertion::done; } // above the selected one

private:
    std::optional<FolderItem> file_;
};

// Two commands look for the last visible document window in the list, which need not be the one in front, and differ
// in whether the main panel hides those before it.
enum class MainPanel { counts, is_passed_over };
DocumentWindow* last_document(const Application& app, MainPanel main_panel); // null for none

// The part of the shared state that goes with a document's texts.
void archive_shared_state(Archive& archive, AppState& state);

// The question that every document window asks about its unsaved work: "Save", "Don't Save", Cancel.
MessageDialog save_question(const std::string& message);
MessageDialog unsaved_work_dialog(const std::string& what_is_unsaved);

// The printed report's column widths and alignments, which every document window sets when it opens.
void set_up_report_columns(AppState& state);

} // namespace tessit
