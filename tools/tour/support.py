# SPDX-License-Identifier: MIT
"""The tour's mails: each form filled in and sent to a mail server on this machine, by a program that sends there."""

import json
import shutil
import subprocess
import sys
from pathlib import Path

from . import TourError, children
from .desktop import State
from .places import MAIN

PORT = 22320  # to which tessit-control-loopback sends
SUPPORT = "support@tessit.example"
SENDER = "jane@home.example"
RATINGS = ("Protocol Entry (Create New), Window Layout: Good",
           "Protocol Entry (Create New), Ease of Data Entry: Above Average",
           "Loading a Zephon, Data Transfer: Easy",
           "Creating New Protocols (Using Compose): Haven't Tried This Feature",
           "Help Menu, Help Window Usefullness: Very Usefull")
COMMENT = "The grey cells help. Спасибо!"
QUESTION = "Does bank 0 hold 50 levels too?"
PROBLEM = "The port is gone since the cable was pulled."


class Support:
    """The steps of a run of its own; the server stores what it gets in "mails"."""

    def __init__(self, tour):
        self.tour = tour
        self.desktop = tour.desktop
        self.diary = tour.diary
        self.mails = tour.files / "mails"
        self.count = 0

    def run(self):
        """The three forms, from the main window."""
        self.mails.mkdir()
        start_server(self.mails, self.tour.files / "mail-server.log")
        self.give_feedback()
        self.ask()
        self.call_for_help()

    def give_feedback(self):
        """ContactUs > Give us your Feedback: some ratings and a comment; Submit waits for an address."""
        form = self.form("ContactUs", "Give us your Feedback", "Feedback Form")
        for rating in RATINGS:
            button = self.desktop.control(form, "radio button", rating)
            self.desktop.click(button, f'"{rating}" to be chosen', lambda chosen=button: chosen.has(State.CHECKED))
        self.fill(form, "Additional Comments / Suggestions for Improvement", COMMENT)
        self.check_disabled(form)
        self.fill(form, "Your e-mail address", SENDER)
        self.send("feedback", form, "Thank You for your feedback")
        self.check("feedback", "Software Feedback", "Edit Window Layout - Good", "Ease of data entry - Above Average",
                   "Data Transfer - Easy", "Compose Not Used", "Help Window - Very Usefull", "Comments and Suggestions",
                   COMMENT)

    def ask(self):
        """ContactUs > Online Support: a question; Submit waits for an address."""
        form = self.form("ContactUs", "Online Support", "Contact us")
        self.fill(form, "Your Questions or Comments", QUESTION)
        self.check_disabled(form)
        self.fill(form, "Your e-mail address", SENDER)
        self.send("contact", form, "Your message has been sent to Corvane Labs software support")
        self.check("contact", "Contact Us Form", f"{SENDER}   Wrote:", QUESTION)

    def call_for_help(self):
        """Help > Online Help: a problem."""
        form = self.form("Help", "Online Help", "OnLine Help")
        self.fill(form, "Your e-mail address", SENDER)
        self.fill(form, "Describe Your Problem / What were you doing when problem arose", PROBLEM)
        self.send("online-help", form, "Your request for help has been sent to Corvane Labs software support")
        self.check("online-help", "Online Help Form", "   Wrote:", PROBLEM)

    # The forms

    def form(self, menu, entry, title):
        """Brings a form up."""
        self.desktop.command(self.desktop.window(MAIN), menu, entry)
        return self.desktop.window(title)

    def fill(self, form, label, text):
        """Types into a field of a form."""
        self.desktop.fill(self.desktop.control(form, "text", label), text)

    def check_disabled(self, form):
        """Without an address nothing can be sent."""
        if self.desktop.control(form, "push button", "Submit").enabled:
            raise TourError(f'"Submit" of "{form.name}" is enabled before an address is typed')

    def send(self, name, form, thanks):
        """Presses "Submit"; the form is only closed when the mail has arrived, for its line dies with it."""
        self.tour.picture(f"{name} form", form)
        popup = self.desktop.click(self.desktop.control(form, "push button", "Submit"), "the thank-you popup",
                                   lambda: self.find_popup(thanks))
        self.tour.picture(f"{name} sent", popup)
        self.count += 1
        self.desktop.wait("the mail to arrive", self.envelope)
        self.desktop.click(self.desktop.control(popup, "push button", "OK"), "popup and form to close",
                           lambda: not popup.shown and not form.shown)
        shutil.copyfile(self.mails / f"message-{self.count}.eml", self.diary.folder / f"{name}.eml")

    def find_popup(self, thanks):
        """The popup that says thanks, or None."""
        return next((window for window in self.desktop.windows() if window.find("label", thanks)), None)

    # The mails

    def envelope(self):
        """What the server knows of the last mail beside its text, or None while it is not all there."""
        try:
            return json.loads((self.mails / f"message-{self.count}.json").read_text(encoding="utf-8"))
        except (FileNotFoundError, ValueError):
            return None

    def check(self, name, subject, *lines):
        """Envelope, headers and lines of the mail, the lines in their order."""
        envelope = self.envelope()
        if (envelope["from"], envelope["to"]) != (SENDER, [SUPPORT]):
            raise TourError(f"The mail goes from {envelope['from']} to {envelope['to']}")
        mail = (self.diary.folder / f"{name}.eml").read_bytes().decode()
        head, _, body = mail.partition("\r\n\r\n")
        check_lines(head, "Date: ", f"Subject: {subject}", f"From: {SENDER}", f"To: {SUPPORT}")
        check_lines(body, *lines)
        self.diary.tell(f"{name}.eml has arrived:\n" + mail.rstrip().replace("\r", ""))


def check_lines(text, *beginnings):
    """Of every beginning there is a line, behind that of the one before."""
    lines = iter(text.split("\r\n"))
    for beginning in beginnings:
        if not any(beginning in line for line in lines):
            raise TourError(f'The mail lacks "{beginning}" in its place')


def start_server(folder, log_path):
    """Starts the mail server and waits until it listens; it ends with this process."""
    script = Path(__file__).with_name("mail_server.py")
    with open(log_path, "ab") as log:
        server = children.start([sys.executable, script, str(PORT), folder], stdin=subprocess.PIPE,
                                stdout=subprocess.PIPE, stderr=log)
    if server.stdout.readline().strip() != str(PORT).encode():
        last_words = log_path.read_text(encoding="utf-8").strip().rpartition("\n")[2]
        raise TourError(f"No mail server on port {PORT}: {last_words}")
