# SPDX-License-Identifier: MIT
"""The tour: the real program on a virtual display, driven from outside with real keys and clicks."""


class TourError(Exception):
    """A step did not do what it should; the text says what was seen instead."""
