// SPDX-License-Identifier: MIT
// The application object: all shared state (app_state.h), all windows, and the methods that carry the program's
// logic. A method is defined in the folder of its subject.
#pragma once

#include "core/app_state.h"
#include "platform/application.h"

#include <memory>
#include <string>
#include <string_view>

namespace tessit {

class ComposeWindow;
class ConsolidatorWindow;
class ContactPopup;
class ContactUsForm;
class DocumentWindow;
class EditWindow;
class FeedbackForm;
class FeedbackPopup;
class HelpWindow;
class LoadDirectWindow;
class LoadZephonWindow;
class MainWindow;
class OnlineHelpForm;
class OnlineHelpPopup;
class PageSetupWindow;
class PopupWindow;
class PreferencesWindow;
class QcWindow;
class ReadWindow;
class SettingsWindow;
class UnsavedWork;

class App : public Application, public AppState {
public:
    template <class W> using Instance = ImplicitWindow<App, W>;

    App(Desktop& desktop, const Version& version);
    ~App() override;

    // core: the number reader, the register image.
    float strintR(const std::string& text);
    void datareset();
    void load_data_array();                         // of the document in front
    void encode_document(DocumentWindow* document); // null: the image is left empty

    Instance<PopupWindow> popupwindow{*this};

    // files: the preferences.
    bool _SettingsSetPreferences_Action();

    Instance<PreferencesWindow> SetPreferencesWindow{*this};

    // consolidator: the frequency list as text and as numbers.
    void loadarray();
    void consolidatorsortup();
    void consolidatorsortdn();
    void removeduplicates();

    Instance<ConsolidatorWindow> consolidatorWindow{*this};

    // editor: level entry.
    void Update_display();
    void displaydata(std::int32_t level);

    Instance<EditWindow> editwindow{*this};

    // composer: from the frequency list to a protocol.
    void open_composer(); // takes the list over
    void compose();
    static double diff(double a, double b); // Hz, never negative

    Instance<ComposeWindow> composewindow{*this};

    // device: serial settings and the transfers.
    void sendzephon();
    void getdata();
    void showzephon();
    bool _SettingsSetSerialPort_Action();
    bool _ZephonLoadDirect_Action();
    bool _ZephonLoadFromFile_Action();
    bool _ZephonReadZephon_Action();

    Instance<SettingsWindow> settings_window{*this};
    Instance<LoadDirectWindow> load_direct_window{*this};
    Instance<LoadZephonWindow> loadzephonWindow{*this};
    Instance<ReadWindow> ReadZPWindow{*this};

    // report: the windows in which a page is set up.
    Instance<PageSetupWindow> pgsetupwindow{*this};
    Instance<QcWindow> qcsetupwindow{*this};

    // support: the mail forms and the help documents.
    bool _ContactUsGiveusyourFeedback_Action();
    bool _ContactUsOnlineSupport_Action();
    bool _HelpOpenHelpFile_Action();
    bool _HelpHelpFile_Action();
    bool _HelpDisplayManual_Action();
    bool _HelpOnlineHelp_Action();
    void show_help_on(const tessit::Window& window) override;

    Instance<FeedbackForm> FeedbackWindow{*this};
    Instance<FeedbackPopup> feedbackPopup{*this};
    Instance<ContactUsForm> ContactUsWindow{*this};
    Instance<ContactPopup> ContactPopUp{*this};
    Instance<OnlineHelpForm> OnlineHelpWindow{*this};
    Instance<OnlineHelpPopup> onlinehelpPopup{*this};
    Instance<HelpWindow> helpWindow{*this};

    // program: start and end, doors for the windows below, the commands on whole documents.
    void start();                  // the entry's steps: binds the menu commands and opens Window1
    void save_settings_and_quit(); // a fault in the saving is shown and does not keep the program running
    void savesettings();           // whatever the file holds by now
    void savesettings_at_end();    // leaves in the file what another program has changed there
    bool offer_recovery();         // of what an earlier program left behind; true where it was restored
    void ended_by_system() override;
    bool session_may_end() override;
    bool getrts() { return false; }

    Serial& serial_line(); // the one line of the program
    void show_main_window() override;
    void hide_main_window();
    DocumentWindow* front_document(); // by myactivewindow, made where it is closed; null before the first one
    DocumentWindow* open_document();  // the same, but null where it is closed

    void open_file(const FolderItem& file); // given at the start; a list by its name, anything else as a protocol
    std::string_view opening_entry(const FolderItem& file) const override;
    void loaddata(const std::optional<FolderItem>& file);
    void writefile(Ref<BinaryOutputStream>& stream);
    void writezpFile(); // of the document in front
    void save_document(DocumentWindow* document);
    void is_saved(const DocumentWindow& document); // what it holds now is on the disk
    std::optional<FolderItem> FSaveAs();
    void Print();
    void pagesetup();
    bool _FileCreateNewFile_Action();
    bool _FileOpen_Action();
    bool _FileSave_Action();
    bool _FileExport_Action();
    bool _FilePageSetup_Action();
    bool _FilePrint_Action();
    bool _FileQuitEditor_Action();
    bool _FileExitProgram_Action();
    bool _EditCut_Action();
    bool _EditCopy_Action();
    bool _EditPaste_Action();
    bool _EditDeleteRow_Action();
    bool _EditInsertRow_Action();
    bool _EditMakeallSine_Action();
    bool _EditMakeallSquare_Action();
    bool _EditEditProtocol_Action();
    bool _ConsolidatorNew_Action();
    bool _ConsolidatorOpen_Action();
    bool _ConsolidatorQuit_Action();
    bool _SettingsSaveSettings_Action();
    bool _Untitled_Action() { return true; } // stands behind a name that no entry carries

    Instance<MainWindow> Window1{*this};

protected:
    void all_events_ended() override;
    void fault_caught() override; // the progress notice must not outlive the command that raised it

private:
    void close_settings_windows();
    bool settings_can_be_saved() const;
    void write_settings(const std::string& line);
    void write_settings_at_end();
    void _ApplicationAddMenuHandlers();

    std::unique_ptr<UnsavedWork> unsaved_work_; // null: it is not kept
};

} // namespace tessit
