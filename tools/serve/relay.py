"""Serves the page, and carries its WebSocket to the X server's VNC socket."""

import hmac
import http.cookies
import os
import secrets
import select
import socket
import threading
import time
from http.server import SimpleHTTPRequestHandler, ThreadingHTTPServer
from urllib.parse import parse_qs, urlsplit

from websockify.websocket import WebSocket, WebSocketWantReadError
from websockify.websocketserver import WebSocketRequestHandlerMixIn

from rfb import LONGEST, ViewerStream

PAGE = os.path.join(os.path.dirname(__file__), "page")
NOVNC = "/usr/share/novnc"

# The page repeats the pointer every 250 ms while something is held. A browser that is silent for
# longer counts as lost, even if its connection is open.
SILENCE_LIMIT = 1.0
# A browser that receives nothing for this long counts as lost, too.
SEND_LIMIT = 2.0
FIRST_PORT = 6080

# This machine's names for itself. A foreign page whose name points here sends that name instead.
LOOPBACK_NAMES = ("127.0.0.1", "localhost")
COOKIE = "welmo-token"

# A browser opens about six connections at once; one that sends nothing must not keep a place.
MOST_CONNECTIONS = 64
MOST_VIEWERS = 4
REQUEST_LIMIT = 3.0
# How often the relay tells the pendant that it is alive while a viewer holds something.
PROOF_PACE = 0.1


class Server(ThreadingHTTPServer):
    """Serves a limited number of connections; further ones are closed at once."""

    request_queue_size = MOST_CONNECTIONS

    def __init__(self, port, vnc_socket, prove, announce):
        super().__init__(("127.0.0.1", port), Handler)
        self.vnc_socket = vnc_socket
        self.prove = prove
        self.cookie = secrets.token_urlsafe(16)
        self._announce = announce
        self._token = secrets.token_urlsafe(16)
        self._redeeming = threading.Lock()
        self.viewers = threading.BoundedSemaphore(MOST_VIEWERS)
        self._places = threading.BoundedSemaphore(MOST_CONNECTIONS)

    def address(self):
        return f"http://127.0.0.1:{self.server_port}/?token={self._token}"

    def redeem(self, token):
        """Whether this is the address's token, which works once: the next address is announced."""
        with self._redeeming:
            if not same(token, self._token):
                return False
            self._token = secrets.token_urlsafe(16)
        self._announce(self.address())
        return True

    def process_request(self, request, client_address):
        if not self._places.acquire(blocking=False):
            self.shutdown_request(request)
            return
        super().process_request(request, client_address)

    def process_request_thread(self, request, client_address):
        try:
            super().process_request_thread(request, client_address)
        finally:
            self._places.release()


class Handler(WebSocketRequestHandlerMixIn, SimpleHTTPRequestHandler):
    SocketClass = WebSocket
    timeout = REQUEST_LIMIT

    def parse_request(self):
        return super().parse_request() and self.is_welcome()

    def is_welcome(self):
        """Whether the request names this machine and has the cookie or the token; if not, answers it."""
        # Any port is allowed: a tunnel from another machine has its own.
        if self.headers.get("Host", "").split(":")[0] not in LOOPBACK_NAMES:
            self.send_error(403, "Not the name of this machine")
            return False
        url = urlsplit(self.path)
        if self.server.redeem(parse_qs(url.query).get("token", [""])[0]):
            self.hand_out_cookie(url.path)
            return False
        cookies = http.cookies.SimpleCookie(self.headers.get("Cookie", ""))
        if COOKIE in cookies and same(cookies[COOKIE].value, self.server.cookie):
            return True
        self.send_error(403, "Open the address that was printed last; each one works once")
        return False

    def hand_out_cookie(self, path):
        """Redirects to an address without the token, so that no history or screenshot keeps it."""
        self.send_response(303)
        self.send_header("Location", path)
        self.send_header(
            "Set-Cookie", f"{COOKIE}={self.server.cookie}; HttpOnly; SameSite=Strict; Path=/"
        )
        self.send_header("Content-Length", "0")
        self.end_headers()

    def translate_path(self, path):
        self.directory = NOVNC if path.startswith(("/core/", "/vendor/")) else PAGE
        return super().translate_path(path)

    def end_headers(self):
        self.send_header("Cache-Control", "no-cache")
        super().end_headers()

    def log_message(self, *args):
        pass

    def handle_upgrade(self):
        # Any page in the user's browser can reach the loopback address; only ours is allowed.
        if urlsplit(self.headers.get("Origin", "")).netloc != self.headers.get("Host"):
            self.send_error(403)
            return
        super().handle_upgrade()

    def handle_websocket(self):
        if not self.server.viewers.acquire(blocking=False):
            return
        try:
            self.view()
        finally:
            self.server.viewers.release()

    def view(self):
        self.request.setsockopt(socket.IPPROTO_TCP, socket.TCP_NODELAY, 1)
        self.request.settimeout(SEND_LIMIT)
        viewer = ViewerStream()
        with socket.socket(socket.AF_UNIX) as screen:
            try:
                screen.connect(self.server.vnc_socket)
                carry(self.request, screen, viewer, self.server.prove)
            except (OSError, ValueError):
                pass  # What follows is the same however the connection ends.
            finally:
                let_go(screen, viewer)


def same(one, other):
    return hmac.compare_digest(one.encode(), other.encode())


def carry(browser, screen, viewer, prove):
    """Carries both directions until one side ends, or a browser that holds a key is silent."""
    last_heard = time.monotonic()
    while True:
        ready, _, _ = select.select([browser, screen], [], [], PROOF_PACE)
        prove()
        if browser in ready:
            data = receive(browser)
            if data is None:
                return
            screen.sendall(viewer.feed(data))
            last_heard = time.monotonic()
        elif viewer.holds_something() and time.monotonic() - last_heard > SILENCE_LIMIT:
            return
        if screen in ready:
            data = screen.recv(65536)
            if not data:
                return
            browser.sendmsg(data)


def receive(browser):
    """What the browser has sent; None if it has closed the connection."""
    data = b""
    try:
        while not data or browser.pending():
            message = browser.recvmsg()
            if message is None:
                return None
            data += message
    except WebSocketWantReadError:
        # websockify keeps incomplete messages, however large a browser says they are.
        if len(browser._recv_buffer) + len(browser._partial_msg) > 2 * LONGEST:
            raise ValueError("a message beyond reason") from None
    return data


def let_go(screen, viewer):
    """Releases what the viewer held, and waits until the X server has read it."""
    try:
        screen.settimeout(SEND_LIMIT)
        screen.sendall(viewer.release())
        screen.shutdown(socket.SHUT_WR)
        while screen.recv(65536):
            pass
    except OSError:
        pass  # The X server has ended, and the pendant with it.


def open_server(vnc_socket, prove, announce):
    """A server on the first free port of the loopback address.

    It calls prove() repeatedly while it serves a viewer, and announce() with the next address when
    a browser has used the last one.
    """
    for port in range(FIRST_PORT, FIRST_PORT + 100):
        try:
            return Server(port, vnc_socket, prove, announce)
        except OSError:
            continue
    raise OSError(f"no free port between {FIRST_PORT} and {FIRST_PORT + 99}")
