"""Serves the page, and carries its WebSocket to the X server's VNC socket."""

import os
import select
import socket
import time
from http.server import SimpleHTTPRequestHandler, ThreadingHTTPServer
from urllib.parse import urlsplit

from websockify.websocket import WebSocket, WebSocketWantReadError
from websockify.websocketserver import WebSocketRequestHandlerMixIn

from rfb import ViewerStream

PAGE = os.path.join(os.path.dirname(__file__), "page")
NOVNC = "/usr/share/novnc"

# The page repeats the pointer every 250 ms while something is held; a browser that
# is silent for longer is gone, however alive its connection may look.
SILENCE_LIMIT = 1.0
# A browser that takes nothing for this long is gone too.
SEND_LIMIT = 2.0
FIRST_PORT = 6080


class Handler(WebSocketRequestHandlerMixIn, SimpleHTTPRequestHandler):
    SocketClass = WebSocket

    def translate_path(self, path):
        self.directory = NOVNC if path.startswith(("/core/", "/vendor/")) else PAGE
        return super().translate_path(path)

    def end_headers(self):
        self.send_header("Cache-Control", "no-cache")
        super().end_headers()

    def log_message(self, *args):
        pass

    def handle_upgrade(self):
        # Any page in the user's browser can reach the loopback address; only ours may.
        if urlsplit(self.headers.get("Origin", "")).netloc != self.headers.get("Host"):
            self.send_error(403)
            return
        super().handle_upgrade()

    def handle_websocket(self):
        self.request.setsockopt(socket.IPPROTO_TCP, socket.TCP_NODELAY, 1)
        self.request.settimeout(SEND_LIMIT)
        viewer = ViewerStream()
        with socket.socket(socket.AF_UNIX) as screen:
            try:
                screen.connect(self.server.vnc_socket)
                carry(self.request, screen, viewer)
            except (OSError, ValueError):
                pass  # However a connection ends, what follows is the same.
            finally:
                let_go(screen, viewer)


def carry(browser, screen, viewer):
    """Carries both directions until one side ends, or the browser holds and is silent."""
    last_heard = time.monotonic()
    while True:
        ready, _, _ = select.select([browser, screen], [], [], SILENCE_LIMIT / 4)
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
    """What the browser has sent; None when it has closed."""
    data = b""
    try:
        while not data or browser.pending():
            message = browser.recvmsg()
            if message is None:
                return None
            data += message
    except WebSocketWantReadError:
        pass
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
        pass  # The X server is gone, and its pendant with it.


def open_server(vnc_socket):
    """A server on the first free port of the loopback address."""
    for port in range(FIRST_PORT, FIRST_PORT + 100):
        try:
            server = ThreadingHTTPServer(("127.0.0.1", port), Handler)
        except OSError:
            continue
        server.vnc_socket = vnc_socket
        return server
    raise OSError(f"no free port between {FIRST_PORT} and {FIRST_PORT + 99}")
