# SPDX-License-Identifier: MIT
"""Names that several steps share: windows by their titles, the port, the bank."""

MAIN = "Tessit Control"
EDITOR = "Zephon Protocol Editor"
READER = "Read Zephon Data"
CONSOLIDATOR = "Frequency Consolidator"
COMPOSER = "Protocol Composer"
PORT = "Zephon emulator"
BANK = 7
