"""Shows a Qt program in a browser: serve.py PROGRAM [ARGUMENTS]

Ends, with everything it started, when the program ends or on Ctrl-C.
"""

import contextlib
import os
import signal
import subprocess
import sys
import tempfile
import threading

from relay import open_server

STOP_LIMIT = 3.0
SIGNALS = (signal.SIGINT, signal.SIGTERM, signal.SIGHUP)


def start(command, **options):
    """Starts a child in a session of its own, so that Ctrl-C reaches this program only.

    The child gets SIGTERM if this program is killed and cannot clean up.
    """
    return subprocess.Popen(
        ["setpriv", "--pdeathsig", "TERM", *command],
        stdin=subprocess.DEVNULL,
        start_new_session=True,
        **options,
    )


def stop(child):
    child.terminate()
    try:
        child.wait(STOP_LIMIT)
    except subprocess.TimeoutExpired:
        child.kill()
        child.wait()


def start_screen(folder, stack):
    """Starts an X server on a free display; returns the display's number."""
    log = os.path.join(folder, "xvnc.log")
    read_end, write_end = os.pipe()
    command = ["Xvnc", "-displayfd", str(write_end), "-geometry", "1280x800", "-depth", "24"]
    command += ["-dpi", "96", "-nolisten", "tcp", "-SecurityTypes", "None", "-AlwaysShared"]
    command += ["-rfbport", "-1", "-rfbunixpath", vnc_socket(folder), "-AcceptSetDesktopSize=0"]
    # Only the relay connects to this socket, and a blacklist would shut it out.
    command += ["-UseBlacklist=0"]
    with open(log, "wb") as output:
        screen = start(command, pass_fds=[write_end], stdout=output, stderr=output)
    stack.callback(stop, screen)
    os.close(write_end)
    with open(read_end, encoding="ascii") as numbers:
        number = numbers.readline().strip()
    if not number:
        with open(log, encoding="utf-8", errors="replace") as output:
            sys.exit("serve: the X server did not start:\n" + output.read())
    return number


def vnc_socket(folder):
    return os.path.join(folder, "vnc.sock")


def program_environment(folder, display):
    environment = {key: text for key, text in os.environ.items() if key != "WAYLAND_DISPLAY"}
    environment.update(DISPLAY=f":{display}", QT_QPA_PLATFORM="xcb", XDG_RUNTIME_DIR=folder)
    return environment


def prove(pipe):
    """Tells the pendant that the relay is alive; if the pipe is full, enough bytes are waiting."""
    with contextlib.suppress(OSError):
        os.write(pipe, b".")


def announce_next(address):
    print(f"==> for another browser: {address}", flush=True)


def serve(program):
    with contextlib.ExitStack() as stack:
        folder = stack.enter_context(tempfile.TemporaryDirectory(prefix="welmo-"))
        display = start_screen(folder, stack)
        proofs, prover = os.pipe2(os.O_NONBLOCK | os.O_CLOEXEC)
        server = open_server(vnc_socket(folder), lambda: prove(prover), announce_next)
        threading.Thread(target=server.serve_forever, daemon=True).start()
        stack.callback(server.shutdown)
        environment = program_environment(folder, display)
        environment["WELMO_VIEWER_PROOFS"] = str(proofs)
        child = start(program, env=environment, pass_fds=[proofs])
        os.close(proofs)
        stack.callback(stop, child)
        # A second Ctrl-C must not interrupt the clean-up.
        stack.callback(lambda: [signal.signal(number, signal.SIG_IGN) for number in SIGNALS])
        print(f"==> the pendant is at {server.address()}", flush=True)
        print("==> Ctrl-C stops it", flush=True)
        status = child.wait()
        return status if status >= 0 else 128 - status


def main():
    if len(sys.argv) < 2:
        sys.exit(__doc__)
    for number in SIGNALS:
        signal.signal(number, lambda number, frame: sys.exit(128 + number))
    sys.exit(serve(sys.argv[1:]))


if __name__ == "__main__":
    main()
