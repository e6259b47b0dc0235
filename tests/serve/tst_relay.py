"""A browser that is lost lets go: the relay of tools/serve between a browser and a screen, on loopback."""

import http.client
import os
import signal
import socket
import struct
import subprocess
import sys
import tempfile
import threading
import time
import unittest
from unittest import mock

import relay

PATIENT = 30.0
HELLO = b"RFB 003.008\n" + b"\x01" + b"\x01"
BUTTON = struct.pack(">BBHH", 5, 1, 300, 200)
BUTTON_UP = struct.pack(">BBHH", 5, 0, 300, 200)
KEY = struct.pack(">BBxxI", 4, 1, 0xFF0D)
KEY_UP = struct.pack(">BBxxI", 4, 0, 0xFF0D)


class Browser:
    """The little of a browser that the relay sees."""

    def __init__(self, port, token):
        host = f"127.0.0.1:{port}"
        self.socket = socket.create_connection(("127.0.0.1", port), PATIENT)
        try:
            self.greet(host, token)
        except OSError:
            self.socket.close()
            raise

    def greet(self, host, token):
        self.socket.sendall(
            f"GET / HTTP/1.1\r\nHost: {host}\r\nOrigin: http://{host}\r\nUpgrade: websocket\r\n"
            f"Cookie: {relay.COOKIE}={token}\r\n"
            "Connection: Upgrade\r\nSec-WebSocket-Version: 13\r\n"
            "Sec-WebSocket-Key: AAAAAAAAAAAAAAAAAAAAAA==\r\n\r\n".encode()
        )
        answer = b""
        while not answer.endswith(b"\r\n\r\n"):
            byte = self.socket.recv(1)
            if not byte:
                raise ConnectionError("closed unheard")
            answer += byte

    def send(self, data):
        """One binary frame; a mask is required, and one of zeros changes nothing."""
        self.socket.sendall(bytes([0x82, 0x80 | len(data)]) + bytes(4) + data)


def browse(port, token, held):
    """Stays connected with something held; in a process of its own, which can be killed."""
    browser = Browser(port, token)
    browser.send(HELLO + held)
    while True:
        time.sleep(0.1)
        browser.send(held)


class RelayTest(unittest.TestCase):
    def setUp(self):
        folder = self.enterContext(tempfile.TemporaryDirectory())
        self.screens = socket.socket(socket.AF_UNIX)
        self.addCleanup(self.screens.close)
        self.screens.bind(os.path.join(folder, "vnc.sock"))
        self.screens.listen()
        self.screens.settimeout(PATIENT)
        self.proofs = threading.Semaphore(0)
        self.announced = []
        socket_path = os.path.join(folder, "vnc.sock")
        self.server = relay.open_server(
            socket_path, self.proofs.release, self.announced.append
        )
        self.addCleanup(self.server.server_close)
        self.addCleanup(self.server.shutdown)
        threading.Thread(target=self.server.serve_forever, daemon=True).start()

    def browser(self):
        browser = Browser(self.server.server_port, self.server.cookie)
        self.addCleanup(browser.socket.close)
        return browser

    def accept(self):
        screen, _ = self.screens.accept()
        self.addCleanup(screen.close)
        screen.settimeout(PATIENT)
        return screen

    def assert_comes(self, screen, data):
        self.assertEqual(screen.recv(len(data), socket.MSG_WAITALL), data)

    def assert_let_go(self, screen, held, release):
        """What comes is the same press over and over, then the release, then the end."""
        rest = b""
        while data := screen.recv(65536):
            rest += data
        presses = len(rest) // len(held) - 1
        self.assertEqual(rest, presses * held + release)

    def test_browser_that_is_lost(self):
        for how in (signal.SIGKILL, signal.SIGSTOP):
            for held, release in ((BUTTON, BUTTON_UP), (KEY, KEY_UP)):
                with self.subTest(how=how.name, held=held):
                    arguments = [sys.executable, __file__, str(self.server.server_port)]
                    arguments += [self.server.cookie, held.hex()]
                    browser = subprocess.Popen(arguments)
                    self.addCleanup(browser.wait)
                    self.addCleanup(browser.kill)
                    screen = self.accept()
                    self.assert_comes(screen, HELLO + held)
                    browser.send_signal(how)
                    self.assert_let_go(screen, held, release)

    def test_silence(self):
        """A browser that speaks once a second at most keeps holding; then it is silent for longer."""
        clock = self.enterContext(mock.patch("relay.time")).monotonic
        clock.return_value = 0.0
        browser = self.browser()
        browser.send(HELLO + BUTTON)
        screen = self.accept()
        self.assert_comes(screen, HELLO + BUTTON)
        for _ in range(3):
            clock.return_value += 0.9
            browser.send(BUTTON)
            self.assert_comes(screen, BUTTON)
        clock.side_effect = iter(range(100, 10000, 100)).__next__
        self.assert_let_go(screen, BUTTON, BUTTON_UP)

    def test_nothing_held(self):
        """Who lifted the finger in time may be silent, and no second release comes."""
        browser = self.browser()
        browser.send(HELLO + BUTTON + BUTTON_UP)
        screen = self.accept()
        self.assert_comes(screen, HELLO + BUTTON + BUTTON_UP)
        browser.socket.close()
        self.assertEqual(screen.recv(1), b"")

    def ask(self, path="/", **headers):
        """The status of the answer, and the cookie that came with it."""
        port = self.server.server_port
        connection = http.client.HTTPConnection("127.0.0.1", port, timeout=PATIENT)
        self.addCleanup(connection.close)
        cookie = f"{relay.COOKIE}={self.server.cookie}"
        connection.request("GET", path, headers={"Cookie": cookie, **headers})
        answer = connection.getresponse()
        return answer.status, (answer.getheader("Set-Cookie") or "").split(";")[0]

    def test_who_may_look(self):
        """This machine by name, with the token of the address that was printed, from our own page."""
        cookie = f"{relay.COOKIE}={self.server.cookie}"
        upgrade = {"Upgrade": "websocket", "Connection": "Upgrade"}
        printed = "/" + self.server.address().rpartition("/")[2]
        self.assertEqual(self.ask(), (200, ""))
        self.assertEqual(self.ask(Host="localhost:8080"), (200, ""))
        self.assertEqual(self.ask(printed + "x", Cookie=""), (403, ""))
        self.assertEqual(self.ask(printed, Cookie=""), (303, cookie))
        self.assertEqual(self.ask(printed, Cookie=""), (403, ""))  # it works once
        self.assertEqual(self.ask(printed), (200, ""))
        following = "/" + self.announced.pop().rpartition("/")[2]
        self.assertEqual(self.ask(following, Cookie=""), (303, cookie))
        self.assertEqual(self.ask(Cookie=""), (403, ""))
        self.assertEqual(self.ask(Host="elsewhere"), (403, ""))
        self.assertEqual(self.ask(Origin="http://elsewhere", **upgrade), (403, ""))

    def test_crowd_goes_away(self):
        """Who says nothing, or breaks off, keeps nobody out for long."""
        self.enterContext(mock.patch.object(relay.Handler, "timeout", 0.2))
        port = self.server.server_port
        for _ in range(3 * relay.MOST_CONNECTIONS):
            idle = socket.create_connection(("127.0.0.1", port), PATIENT)
            self.addCleanup(idle.close)
        for _ in range(2 * relay.MOST_VIEWERS):
            browser = self.patient_browser()
            browser.send(HELLO)
            screen = self.accept()
            self.assert_comes(screen, HELLO)
            linger = struct.pack("ii", 1, 0)
            browser.socket.setsockopt(socket.SOL_SOCKET, socket.SO_LINGER, linger)
            browser.socket.close()  # with a reset
            screen.close()

    def patient_browser(self):
        """A browser that tries again until it is heard."""
        end = time.monotonic() + PATIENT
        while True:
            try:
                return self.browser()
            except OSError:
                self.assertLess(time.monotonic(), end, "nobody is heard any more")

    def test_message_beyond_reason(self):
        """A clipboard of two gigabytes is announced, and ends the connection."""
        browser = self.browser()
        browser.send(HELLO + struct.pack(">BxxxI", 6, 2**31 - 1))
        screen = self.accept()
        self.assertEqual(screen.recv(1), b"")

    def test_proofs(self):
        """The pendant hears of a relay that looks after a viewer, though nobody moves."""
        self.browser().send(HELLO)
        self.assert_comes(self.accept(), HELLO)
        for _ in range(10):
            self.assertTrue(self.proofs.acquire(timeout=PATIENT))


if __name__ == "__main__":
    if len(sys.argv) == 4:
        browse(int(sys.argv[1]), sys.argv[2], bytes.fromhex(sys.argv[3]))
    unittest.main()
