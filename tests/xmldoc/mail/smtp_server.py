#!/usr/bin/python3
"""A mail server on loopback that takes mails, or misbehaves at one step.

  smtp_server.py MODE STEP

MODE: accept, refuse, silent, cut (the connection, within the code of an answer), half (the same, behind
the code 250), drip (an answer that comes byte by byte and never ends), late (by a second), leave (the
right answer and the connection closed). STEP: greeting, ehlo, mail, rcpt, data, body, message; "refuse
body" says so amid the mail and closes, "linger body" once it has read what is still sent: closed before, the
connection is reset, and Windows forgets what it had to tell. Its first line of output is its port; then one line of
JSON for each mail that it takes, and one with "QUIT" for each farewell. It ends when its input does.
"""
import asyncio
import email
import email.policy
import json
import os
import sys

from aiosmtpd.smtp import SMTP

mode, step = sys.argv[1], sys.argv[2]


async def misbehave(server):
    if mode in ("refuse", "linger"):
        await server.push("554 5.7.1 refused at " + step)
    elif mode in ("cut", "half"):
        server._writer.write(b"25" if mode == "cut" else b"250-half an ans")
        await server._writer.drain()
        server.transport.close()
    elif mode == "drip":
        while True:
            server._writer.write(b"2")
            await server._writer.drain()
            await asyncio.sleep(0.02)
    else:
        await asyncio.sleep(3600)


class Server(SMTP):
    async def _handle_client(self):
        if step != "greeting" or mode == "accept":
            return await super()._handle_client()
        await misbehave(self)
        if await self._reader.readline() == b"QUIT\r\n":
            await self.smtp_QUIT("")

    async def smtp_QUIT(self, argument):
        print("QUIT", flush=True)
        await super().smtp_QUIT(argument)

    async def smtp_EHLO(self, hostname):
        await (misbehave(self) if wrong("ehlo") else super().smtp_EHLO(hostname))

    async def smtp_HELO(self, hostname):
        await (misbehave(self) if wrong("ehlo") else super().smtp_HELO(hostname))

    async def smtp_MAIL(self, argument):
        await (misbehave(self) if wrong("mail") else super().smtp_MAIL(argument))

    async def smtp_RCPT(self, argument):
        await (misbehave(self) if wrong("rcpt") else super().smtp_RCPT(argument))

    async def smtp_DATA(self, argument):
        if wrong("body"):
            await self.push("354 go on")
            await self._reader.readexactly(100000)
            await misbehave(self)
            while mode == "linger" and await self._reader.read(65536):
                pass
            self.transport.close()
            await asyncio.sleep(3600)  # what is left of the mail is no command
        else:
            await (misbehave(self) if wrong("data") else super().smtp_DATA(argument))


def wrong(at):
    return mode != "accept" and step == at


class Handler:
    async def handle_DATA(self, server, session, envelope):
        if wrong("message") and mode == "leave":
            await server.push("250 taken")
            server.transport.close()
            return "250 unheard"
        if wrong("message") and mode == "late":
            await asyncio.sleep(1)
        elif wrong("message"):
            if mode == "refuse":
                return "554 5.7.1 refused at message"
            await misbehave(server)
            return "250 unheard"
        raw = envelope.original_content
        mail = email.message_from_bytes(raw, policy=email.policy.default)
        print(json.dumps({
            "sender": envelope.mail_from,
            "recipients": envelope.rcpt_tos,
            "from": mail["From"],
            "to": mail["To"],
            "cc": mail["Cc"],
            "subject": mail["Subject"],
            "type": mail.get_content_type(),
            "headers": [name for name, _ in mail.items()],
            "faults": [str(fault) for fault in mail.defects],
            "longest": max(len(line) for line in raw.split(b"\r\n")),
            "body": mail.get_content(),
        }, sort_keys=True), flush=True)
        return "250 taken"


async def main():
    loop = asyncio.get_running_loop()
    server = await loop.create_server(lambda: Server(Handler(), loop=loop), "127.0.0.1", 0)
    print(server.sockets[0].getsockname()[1], flush=True)
    await loop.run_in_executor(None, sys.stdin.read)


loop = asyncio.new_event_loop()
loop.run_until_complete(main())
sys.stdout.flush()
os._exit(0)  # the conversations that are kept waiting would never end
