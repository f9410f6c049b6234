# SPDX-License-Identifier: MIT
"""Transfers with the generator. The program's waits are short and fixed, so on a busy machine it may give one up though
nothing is wrong; such a transfer is made again, and the log says so."""

import re

from . import TourError
from .desktop import words

MOST_TRIES = 3
GAVE_UP = re.compile(r"No Connection Found|Bank \d\d\s+Address \d+ +\d+ Not Acknowledged|Data not Accepted\. Level: \d+")


def carry_out(tour, what, first, again):
    """Makes a transfer, twice more at most. "first" and "again" give the words of its failure, empty when it is done."""
    for tries in range(1, MOST_TRIES + 1):
        failure = (first if tries == 1 else again)()
        if not failure:
            return
        tour.diary.tell(f'{what}, try {tries} of {MOST_TRIES}: "{failure}"')
    raise TourError(f'{what} failed {MOST_TRIES} times, at last with "{failure}"')


def given_up(desktop):
    """The message by which the program gives a transfer up, or None; any other message is a refusal."""
    message = desktop.find_message()
    if message and GAVE_UP.fullmatch(words(message)):
        return message
    desktop.refuse_messages("a transfer")
    return None


def take_failure(desktop, message):
    """Dismisses the message and gives its words on one line."""
    told = " ".join(words(message).split())
    desktop.dismiss(message)
    return told
