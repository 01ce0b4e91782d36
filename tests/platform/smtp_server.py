#!/usr/bin/python3
"""A mail server on loopback that takes mails, or misbehaves at one step.

  smtp_server.py MODE STEP

MODE: accept, refuse, silent, cut (the connection, in the middle of an answer), drip (an answer that
comes byte by byte and never ends). STEP: greeting, ehlo, mail, rcpt, data, message. Its first line
of output is its port; then one line of JSON for each mail that it takes. It ends when its input
does.
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
    if mode == "refuse":
        await server.push("554 5.7.1 refused at " + step)
    elif mode == "cut":
        server._writer.write(b"250-half an ans")
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

    async def smtp_EHLO(self, hostname):
        await (misbehave(self) if wrong("ehlo") else super().smtp_EHLO(hostname))

    async def smtp_HELO(self, hostname):
        await (misbehave(self) if wrong("ehlo") else super().smtp_HELO(hostname))

    async def smtp_MAIL(self, argument):
        await (misbehave(self) if wrong("mail") else super().smtp_MAIL(argument))

    async def smtp_RCPT(self, argument):
        await (misbehave(self) if wrong("rcpt") else super().smtp_RCPT(argument))

    async def smtp_DATA(self, argument):
        await (misbehave(self) if wrong("data") else super().smtp_DATA(argument))


def wrong(at):
    return mode != "accept" and step == at


class Handler:
    async def handle_DATA(self, server, session, envelope):
        if wrong("message"):
            if mode == "refuse":
                return "554 5.7.1 refused at message"
            await misbehave(server)
            return "250 late"
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
