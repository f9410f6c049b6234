#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""A mail server on this machine that stores what it is sent: message-N.eml as received, message-N.json its envelope.

Usage: mail_server.py PORT FOLDER. Port 0 takes a free one; the port is printed when the server listens. It runs until
its standard input is closed.
"""

import asyncio
import json
import sys
from pathlib import Path

from aiosmtpd.smtp import SMTP, AuthResult


class Server(SMTP):
    """Sends a reply of several lines in one piece, as servers on a slow network do too."""

    held = b""

    async def push(self, status):
        """Keeps lines back until the last one of a reply."""
        line = status if isinstance(status, bytes) else status.encode()
        if line[3:4] == b"-":
            self.held += line + b"\r\n"
            return
        whole, self.held = self.held + line, b""
        await super().push(whole)

    async def smtp_AUTH(self, arg):  # pylint: disable=invalid-name
        """Takes the mechanism's name in either case, as the standard says and the base class does not."""
        mechanism, blank, rest = (arg or "").partition(" ")
        await super().smtp_AUTH(mechanism.upper() + blank + rest)


class Store:
    """Writes each mail into the folder."""

    def __init__(self, folder):
        self.folder = folder
        self.count = 0
        self.account = None

    def login(self, _server, _session, _envelope, mechanism, data):
        """Lets everybody in and remembers who it was."""
        self.account = [mechanism, data.login.decode(), data.password.decode()]
        return AuthResult(success=True)

    async def handle_DATA(self, _server, session, envelope):  # pylint: disable=invalid-name
        """One mail."""
        self.count += 1
        known = {"from": envelope.mail_from, "to": envelope.rcpt_tos, "host": session.host_name,
                 "account": self.account}
        (self.folder / f"message-{self.count}.eml").write_bytes(envelope.original_content)
        (self.folder / f"message-{self.count}.json").write_text(json.dumps(known), encoding="utf-8")
        return "250 stored"


async def serve(port, store):
    """Serves until standard input ends."""
    loop = asyncio.get_running_loop()

    def session():
        return Server(store, hostname="loopback", auth_require_tls=False, authenticator=store.login, loop=loop)

    server = await loop.create_server(session, "127.0.0.1", port)
    print(server.sockets[0].getsockname()[1], flush=True)
    await loop.run_in_executor(None, sys.stdin.read)
    server.close()


if __name__ == "__main__":
    asyncio.run(serve(int(sys.argv[1]), Store(Path(sys.argv[2]))))
