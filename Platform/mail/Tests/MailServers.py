#!/usr/bin/python3
"""Mail servers on the loopback interface for tests: Dovecot for IMAP and aiosmtpd for SMTP, which needs neither root nor
a configured mail system and delivers into Dovecot's folder.

usage: MailServers.py DIRECTORY

Writes to the directory: the certificate of the servers' authority as "ca.pem"; a valid bearer token as "token"; sender and
recipients of each mail as "envelopes"; and when the servers are ready "ports", one per line: IMAPS, IMAP with STARTTLS,
SMTPS, then IMAPS and SMTPS through a connection that breaks after some bytes. The user is "anna", the password "secret";
mail is delivered to DIRECTORY/mail. Exits when its parent exits, or on SIGTERM.
"""
import base64
import ctypes
import grp
import hashlib
import hmac
import json
import logging
import os
import pwd
import signal
import socket
import ssl
import subprocess
import sys
import threading
import time
import warnings

from aiosmtpd.controller import Controller
from aiosmtpd.handlers import Mailbox
from aiosmtpd.smtp import AuthResult, LoginPassword, SMTP

USER, PASSWORD, KEY = "anna", "secret", b"the key of the tests"
BREAKS_AFTER = 20000
PARENT = os.getppid()
with open(os.path.join(os.path.dirname(os.path.abspath(__file__)), "dovecot.conf")) as template:
    TEMPLATE = template.read()


def exit_with_parent():
    ctypes.CDLL(None).prctl(1, signal.SIGTERM)


def lead_a_group():
    """Dovecot's client processes outlive their master, so the whole group is ended."""
    os.setpgrp()
    exit_with_parent()


def free_port():
    with socket.socket() as probe:
        probe.bind(("127.0.0.1", 0))
        return probe.getsockname()[1]


def openssl(*arguments):
    subprocess.run(["openssl", *arguments], check=True, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)


def make_certificates():
    new_key = ["-newkey", "ec", "-pkeyopt", "ec_paramgen_curve:prime256v1", "-nodes"]
    openssl("req", "-x509", *new_key, "-keyout", "ca.key", "-out", "ca.pem", "-subj", "/CN=Tests", "-days", "2")
    openssl("req", *new_key, "-keyout", "server.key", "-out", "server.csr", "-subj", "/CN=localhost")
    with open("names", "w") as names:
        names.write("subjectAltName=DNS:localhost\n")
    openssl("x509", "-req", "-in", "server.csr", "-CA", "ca.pem", "-CAkey", "ca.key", "-out", "server.pem", "-days", "2",
            "-extfile", "names", "-set_serial", "1")


def web64(data):
    return base64.urlsafe_b64encode(data).rstrip(b"=")


def make_token(user):
    now = int(time.time())
    words = [{"alg": "HS256", "typ": "JWT"}, {"sub": user, "username": user, "iat": now, "exp": now + 3600}]
    signed = b".".join(web64(json.dumps(word).encode()) for word in words)
    return signed + b"." + web64(hmac.new(KEY, signed, hashlib.sha256).digest())


def put(name, text):
    os.makedirs(os.path.dirname(os.path.join(".", name)), exist_ok=True)
    with open(name, "w") as file:
        file.write(text)


def start_dovecot(imaps, imap):
    here, uid, gid = os.getcwd(), os.getuid(), os.getgid()
    put("dovecot.conf", TEMPLATE.format(here=here, user=pwd.getpwuid(uid).pw_name, group=grp.getgrgid(gid).gr_name, uid=uid,
                                       gid=gid, imap=imap, imaps=imaps))
    put("users", f"{USER}:{{PLAIN}}{PASSWORD}\n")
    put("oauth2", f"introspection_mode = local\nlocal_validation_key_dict = fs:posix:prefix={here}/keys/\n"
                  "username_attribute = sub\n")
    put("keys/default/HS256/default", base64.b64encode(KEY).decode())
    put("token", make_token(USER).decode())
    return subprocess.Popen(["/usr/sbin/dovecot", "-F", "-c", "dovecot.conf"], preexec_fn=lead_a_group,
                            stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)


class Authenticator:
    """Checks the password; a token is checked by the server."""

    def __call__(self, server, session, envelope, mechanism, data):
        good = isinstance(data, LoginPassword) and data == LoginPassword(USER.encode(), PASSWORD.encode())
        return AuthResult(success=good, handled=False)


class Server(SMTP):
    async def auth_XOAUTH2(self, _, arguments):
        words = base64.b64decode(arguments[1]) if len(arguments) > 1 else await self.challenge_auth("")
        with open("token", "rb") as token:
            good = words == b"user=" + USER.encode() + b"\1auth=Bearer " + token.read() + b"\1\1"
        return AuthResult(success=good, handled=False)


class Delivery(Mailbox):
    """Records the envelopes and refuses one recipient."""

    async def handle_RCPT(self, server, session, envelope, address, options):
        if address.startswith("nobody@"):
            return "550 no such user"
        envelope.rcpt_tos.append(address)
        return "250 OK"

    async def handle_DATA(self, server, session, envelope):
        with open("envelopes", "a") as file:
            file.write(envelope.mail_from + " " + ",".join(envelope.rcpt_tos) + "\n")
        return await super().handle_DATA(server, session, envelope)


class Outgoing(Controller):
    def factory(self):
        return Server(self.handler, hostname="localhost", authenticator=Authenticator(), auth_required=True,
                      auth_require_tls=False, data_size_limit=64 << 20)


def start_smtp(port):
    context = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)
    context.load_cert_chain("server.pem", "server.key")
    outgoing = Outgoing(Delivery("mail"), hostname="127.0.0.1", port=port, ssl_context=context)
    outgoing.start()
    return outgoing


def carry(source, target, room):
    """Forwards up to `room` bytes, then disconnects both sides."""
    try:
        while room > 0 and (data := source.recv(min(4096, room))):
            target.sendall(data)
            room -= len(data)
    except OSError:
        pass
    for end in source, target:
        try:
            end.shutdown(socket.SHUT_RDWR)
        except OSError:
            pass


def serve_breaking(listener, port, room_in, room_out):
    while True:
        near, far = listener.accept()[0], socket.create_connection(("127.0.0.1", port))
        threading.Thread(target=carry, args=(near, far, room_in), daemon=True).start()
        threading.Thread(target=carry, args=(far, near, room_out), daemon=True).start()


def start_breaking(port, room_in, room_out):
    listener = socket.create_server(("127.0.0.1", 0))
    threading.Thread(target=serve_breaking, args=(listener, port, room_in, room_out), daemon=True).start()
    return listener.getsockname()[1]


def wait_for(port):
    for _ in range(200):
        try:
            return socket.create_connection(("127.0.0.1", port)).close()
        except ConnectionRefusedError:
            time.sleep(0.05)
    sys.exit("a server does not start")


def become_nobody():
    """Mail servers refuse to serve root."""
    nobody = pwd.getpwnam("nobody")
    os.chown(".", nobody.pw_uid, nobody.pw_gid)
    os.setgroups([])
    os.setgid(nobody.pw_gid)
    os.setuid(nobody.pw_uid)


def main():
    os.chdir(sys.argv[1])
    warnings.simplefilter("ignore")
    logging.disable()
    if os.getuid() == 0:
        become_nobody()
    exit_with_parent()
    if os.getppid() != PARENT:
        sys.exit("the parent has exited")
    make_certificates()
    imaps, imap, smtps = free_port(), free_port(), free_port()
    dovecot = start_dovecot(imaps, imap)
    signal.signal(signal.SIGTERM, lambda *_: os.killpg(dovecot.pid, signal.SIGKILL))
    start_smtp(smtps)
    wait_for(imaps)
    ports = [imaps, imap, smtps, start_breaking(imaps, 1 << 40, BREAKS_AFTER), start_breaking(smtps, BREAKS_AFTER, 1 << 40)]
    put("ports.new", "\n".join(map(str, ports)) + "\n")
    os.rename("ports.new", "ports")
    dovecot.wait()
    os._exit(0)


main()
