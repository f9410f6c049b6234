// SPDX-License-Identifier: MIT
// The three mail forms with their popups, the idle sockets of the main window, and the help window, against a mail
// server that the test plays.
#include "core/deployment.h"
#include "support/contact_form.h"
#include "support/feedback_form.h"
#include "support/help_window.h"
#include "support/online_help_form.h"
#include "support/program.h"
#include "support/support_mail.h"

#include "platform/text.h"

#include <set>

namespace tessit::testing {
namespace {

class FormsTest : public ProgramTest {
protected:
    ScriptedSockets& server = desktop.scripted_sockets;

    // Plays the server's side of one mail without authentication up to its text; that text.
    std::string mail() {
        server.accept();
        server.send_lines({"220 x", "502 no EHLO", "250 x", "250 ok", "250 ok"});
        return server.answer_to("354 go on");
    }
    static std::string body(const std::string& mail) { return mail.substr(mail.find("\r\n\r\n") + 4); }

    FeedbackForm& feedback() {
        app.choose_menu("ContactUsGiveusyourFeedback");
        return app.FeedbackWindow.get();
    }
};

TEST_F(FormsTest, contact_form) {
    app.choose_menu("ContactUsOnlineSupport");
    ContactUsForm& form = app.ContactUsWindow.get();
    EXPECT_EQ(form.Title(), "Contact us");
    form.ContactMsgField.type("How?");
    form.ContactMsgField.press(keys::return_);
    form.ContactSubmitButton.click();
    EXPECT_TRUE(server.connects.empty()) << "no key has been pressed in the address field";
    form.ContactemailField.edit("me"); // pasted
    form.ContactSubmitButton.click();
    EXPECT_EQ(server.connects, (std::vector<std::pair<std::string, int>>{{deployment::mail_server, 465}}));
    EXPECT_EQ(form.contactSocket.Username, deployment::account_name);
    EXPECT_EQ(form.contactSocket.Password, Str(deployment::stored_credential | deployment::credential_mask));
    const std::string text = mail();
    EXPECT_NE(text.find("Subject: Contact Us Form\r\nFrom: me\r\nTo: support@tessit.example\r\n"), std::string::npos);
    EXPECT_EQ(body(text), "me   Wrote:\r\n\r\nHow?\r\n\r\n.\r\n");

    server.tell_sent();
    EXPECT_EQ(desktop.shown.back(), "ContactPopUp");
    app.Window1->activate();
    server.tell_sent(); // as for each further command
    EXPECT_EQ(app.front_window(), &app.Window1.get());
    app.ContactPopUp->PushButton1.click();
    EXPECT_FALSE(app.ContactPopUp.exists() || app.ContactUsWindow.exists() || server.open());
}

TEST_F(FormsTest, online_help_form_sends_with_both_fields_empty) {
    app.choose_menu("HelpOnlineHelp");
    OnlineHelpForm& form = app.OnlineHelpWindow.get();
    EXPECT_EQ(form.Title(), "OnLine Help");
    form.PushButton1.click();
    const std::string text = mail();
    EXPECT_NE(text.find("Subject: Online Help Form\r\nFrom: \r\n"), std::string::npos);
    EXPECT_EQ(body(text), "  Using Current version  1.23\r\n   Wrote:\r\n\r\n\r\n.\r\n");
    server.tell_sent();
    app.onlinehelpPopup->PushButton1.click();
    EXPECT_FALSE(app.onlinehelpPopup.exists() || app.OnlineHelpWindow.exists());
}

// Every button by its number, with its caption and what it writes into which line of the mail.
TEST_F(FormsTest, feedback_buttons_write_their_sentences) {
    using Words = std::vector<std::string>;
    const auto words = [](const std::string& sentence, Words of) {
        for (std::string& word : of) {
            word.insert(0, sentence);
        }
        return of;
    };
    FeedbackForm& form = feedback();
    EXPECT_EQ(form.Title(), "Feedback Form");
    std::size_t buttons = 0;
    const auto group = [&](int first, FeedbackProperty property, const Words& captions, const Words& sentences) {
        for (std::size_t at = 0; at < captions.size(); ++at, ++buttons) {
            RadioButton& button = form.questions.numbered(first + static_cast<int>(at));
            EXPECT_TRUE(button.own().caption == captions[at] && !button.Value()) << captions[at];
            button.click();
            EXPECT_TRUE(app.*property == sentences[at] && button.Value()) << sentences[at];
            EXPECT_EQ(at > 0 && form.questions.numbered(first).Value(), false) << "one of a group is on";
        }
    };
    const Words p{"Poor", "Below Average", "Average", "Above Average", "Good"};
    const Words run_together{"Poor", "BelowAverage", "Average", "Above Average", "Good"};
    const Words d{"Difficult", "Fair", "Easy"};
    const Words u{"Not Usefull", "Somewhat Usefull", "Usefull", "Very Usefull"};
    const Words levels{"Never", "Seldom", "Sometimes", "Mostly", "Always"};
    const Words not_tried{"Haven't Tried This Feature"};
    Words display = words("Composer Level Data Display - ", p);
    display[1] = "Composer Level Data Display -Below Average";
    Words help = words("Help Window Layout - ", p);
    help[4] = "Help Window Layout -Good";
    group(1, &AppState::EditLayout, p, words("Edit Window Layout - ", p));
    group(6, &AppState::EditEntry, p, words("Ease of data entry - ", p));
    group(64, &AppState::EditDisplay, run_together, words("Edit Data display - ", p));
    group(16, &AppState::SelectBank, d, words("Selecting a Bank - ", d));
    group(19, &AppState::DataTransfer, d, words("Data Transfer - ", d));
    group(22, &AppState::fbSave, d, words("Saving to Default Folder - ", d));
    group(28, &AppState::ConsolidateLayout, p, words("Consolidate Window Layout - ", p));
    group(33, &AppState::ConsolidateEntry, p, words("Consolidator Data Entry - ", p));
    group(63, &AppState::ConsolidatorNotUsed, not_tried, {"Consolidator Not Used"});
    group(38, &AppState::ComposePerform, levels, words("Composer suggested levels meet needs - ", levels));
    group(43, &AppState::ComposeNotUsed, not_tried, {"Compose Not Used"});
    group(44, &AppState::ComposeDisplay, run_together, display);
    group(49, &AppState::ManualLayout, run_together, words("Manual Layout - ", p));
    group(54, &AppState::ManualUseful, u, words("Manual Usefullness - ", u));
    group(58, &AppState::HelpLayout, p, help);
    group(69, &AppState::HelpUsefull, u, words("Help Window - ", u));
    EXPECT_TRUE(form.questions.numbered(63).Value());
    std::set<std::string> spoken;
    for (const Control* control : form.controls()) {
        if (dynamic_cast<const RadioButton*>(control) != nullptr) {
            spoken.insert(control->design().label);
        }
    }
    EXPECT_EQ(spoken.size(), buttons) << "each button says its question and its word";
    EXPECT_TRUE(spoken.contains("Protocol Entry (Create New), Window Layout: Poor"));
    EXPECT_THROW(form.questions.numbered(11), Fault);
}

TEST_F(FormsTest, feedback_mail_keeps_its_lines_and_earlier_answers) {
    FeedbackForm* form = &feedback();
    form->PushButton1.click();
    EXPECT_TRUE(server.connects.empty());
    form->emailField.key_down(""); // any key, also one without a character
    form->PushButton1.click();
    EXPECT_EQ(body(mail()), "\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\nComments and "
                            "Suggestions\r\n\r\n.\r\n");

    form->questions.numbered(62).click();
    form->questions.numbered(24).click();
    form->close_by_user();
    EXPECT_FALSE(server.open());
    form = &feedback();
    EXPECT_FALSE(form->questions.numbered(62).Value()) << "a new form shows no answers";
    form->questions.numbered(63).click();
    form->emailField.type("no-at-sign");
    form->FeedbackCommentField.edit("first\n.\nsecond \xC3\xA9 \xE2\x82\xAC \xF0\x9F\x99\x82");
    form->PushButton1.click();
    const std::string text = mail();
    EXPECT_NE(text.find("Subject: Software Feedback\r\nFrom: no-at-sign\r\n"), std::string::npos);
    EXPECT_EQ(body(text), "\r\n\r\n\r\n\r\n\r\nSaving to Default Folder - Easy\r\n\r\nConsolidator Not Used\r\n\r\n"
                          "\r\n\r\n\r\n\r\n\r\n\r\nHelp Window Layout -Good\r\n\r\n\r\nComments and Suggestions\r\n"
                          "first\r\n.\r\nsecond \xC3\xA9 \xE2\x82\xAC \xF0\x9F\x99\x82\r\n.\r\n");
    server.tell_sent();
    app.feedbackPopup->PushButton1.click();
    EXPECT_TRUE(!app.feedbackPopup.exists() && !app.FeedbackWindow.exists() && app.Window1->Visible());
}

TEST_F(FormsTest, an_address_can_bring_in_no_line_of_its_own) {
    FeedbackForm& form = feedback();
    form.emailField.SetText("set by the program");
    EXPECT_FALSE(form.PushButton1.Enabled());
    form.emailField.edit("a\r\nBcc: b@x.example\rX: y");
    form.PushButton1.click();
    EXPECT_NE(mail().find("\r\nFrom: a Bcc: b@x.example X: y\r\n"), std::string::npos);
}

TEST_F(FormsTest, submit_pressed_twice_queues_twice) {
    FeedbackForm& form = feedback();
    form.emailField.type("a");
    form.PushButton1.click();
    server.refuse(); // not a word is said of it, and the form stays up
    EXPECT_TRUE(form.Visible());
    form.PushButton1.click();
    EXPECT_EQ(form.feedbackSocket.Messages.size(), 2U);
    mail();
    EXPECT_EQ(server.answer_to("250 queued"), "MAIL FROM: <a>\r\n");
}

TEST_F(FormsTest, a_form_closed_at_any_step_takes_its_socket_along) {
    const std::vector<std::string> replies{"220 x",  "250 AUTH LOGIN", "334 u",     "334 p", "235 ok",
                                           "250 ok", "250 ok",         "354 go on", "250 ok"};
    for (std::size_t steps = 0; steps <= replies.size(); ++steps) {
        FeedbackForm& form = feedback();
        form.emailField.type("a");
        form.PushButton1.click();
        if (steps > 0) {
            server.accept();
        }
        server.send_lines({replies.begin(), replies.begin() + static_cast<std::ptrdiff_t>(steps)});
        server.tell_sent();
        form.close_by_user();
        EXPECT_FALSE(server.open()) << "after " << steps << " replies";
        app.feedbackPopup->PushButton1.click(); // its form is gone already
        EXPECT_FALSE(app.feedbackPopup.exists());
    }
}

// Nothing in the program connects these; their handlers are there all the same.
TEST_F(FormsTest, sockets_of_the_main_window) {
    MainWindow& window = app.Window1.get();
    EXPECT_TRUE(window.SMTSecureSocket1.Secure && server.connects.empty());
    window.TCPSocket1.Connect();
    desktop.expect_message("secure Socket connected");
    server.accept();
    desktop.expect_message("data available");
    server.send("x");
    desktop.expect_message("error sending e-mail");
    server.hang_up();
    server.tell_sent();
    EXPECT_EQ(desktop.shown.back(), "ContactPopUp");
}

TEST_F(FormsTest, help_and_manual_share_a_window) {
    write_file(desktop.folder / "HELP.html", "<p>help");
    app.choose_menu("HelpOpenHelpFile");
    EXPECT_TRUE(app.helpWindow->Visible());
    HTMLViewer& viewer = app.helpWindow->HTMLV;
    EXPECT_EQ(viewer.page()->path(), desktop.folder / "HELP.html");
    app.choose_menu("HelpDisplayManual"); // missing: no message, the viewer tells where it was looked for
    EXPECT_EQ(&viewer, &app.helpWindow->HTMLV);
    EXPECT_FALSE(viewer.page().has_value());
    EXPECT_EQ(viewer.looked_for().front().path(), desktop.folder / "manual.pdf");
    EXPECT_EQ(viewer.loads(), 2);
    const auto& callers_missing = app.MenuBar1.without_entry();
    EXPECT_TRUE(callers_missing.at("HelpHelpFile")());
    EXPECT_EQ(viewer.page()->DisplayName(), "HELP.html");
    EXPECT_TRUE(callers_missing.at("Untitled")());
}

TEST_F(FormsTest, the_viewer_takes_the_edit_commands_while_it_is_in_front) {
    int program_copies = 0;
    app.MenuBar1.bind("EditCopy", [&] { return ++program_copies > 0; });
    app.choose_menu("HelpOpenHelpFile");
    std::vector<EditCommand> taken;
    app.helpWindow->HTMLV.on_edit = [&](EditCommand command) { taken.push_back(command); };
    app.choose_menu("EditCopy");
    EXPECT_EQ(taken, std::vector<EditCommand>{EditCommand::copy});
    EXPECT_EQ(program_copies, 0);
    feedback();
    app.choose_menu("EditCopy");
    EXPECT_EQ(program_copies, 1);
    app.choose_menu("HelpOpenHelpFile");
    EXPECT_EQ(app.front_window(), &app.helpWindow.get());
}

} // namespace
} // namespace tessit::testing
