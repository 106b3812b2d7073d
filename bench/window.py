"""The whole road: bytes of a loopback host to a visible window, beside xterm showing them by cat.

usage: window.py QUORVEL [PART]      (inside an X server; bench/window.sh starts one)
PART, for a quick look: only that part of each load is shown (10: a tenth).

Each load ends with a device status report request (ECMA-48, DSR): the answer comes when the terminal
has taken in all that stands before it, the same way for both programs. Meanwhile keys are typed into
our window from outside; the time until each reaches the host is how long the window takes to answer.
Prints one tab-separated line a figure, as bench.sh tells.
"""
import os
import pathlib
import socket
import subprocess
import sys
import tempfile
import threading
import time

REQUEST, ANSWER = b"\x1b[5n", b"\x1b[0n"
KEY = b"q"
TURNS = 1  # with more, the best of them counts, for either program

LOADS = (
    ("window_plain", 100 << 20, b"10452 Harbour Chandlers Ltd    net 30 days   shipped 12/04   4,810.25\r\n"),
    ("window_scroll", 32 << 20, b"y\r\n"),
)

# Runs inside xterm: shows the file by cat, then asks as the host does.
IN_XTERM = """
import os, subprocess, sys, termios, time, tty
tty.setraw(0)
start = time.monotonic()
subprocess.run(["cat", sys.argv[1]], check=True)
os.write(1, b"\\x1b[5n")
answer = b""
while not answer.endswith(b"n"):
    answer += os.read(0, 16)
open(sys.argv[2], "w").write(str(time.monotonic() - start))
"""


def text_of(size, line):
    return line * (size // len(line))


class Client:
    """Our program in a window, and the host it is connected to."""

    def __init__(self, program, folder):
        self.listener = socket.create_server(("127.0.0.1", 0))
        port = self.listener.getsockname()[1]
        settings = folder / "bench.inf"
        settings.write_text(f"[TELNET]\nHostName=127.0.0.1:{port}\nTermType=4\nRows=24\nQuickExit=1\n"
                            "[LOGIN]\nUserId=bench\nPwd=bench\n")
        environment = dict(os.environ, QUORVEL_HOME=str(folder), QT_QPA_PLATFORM="xcb")
        self.process = subprocess.Popen([program, str(settings)], env=environment)
        self.listener.settimeout(30)
        self.connection, _ = self.listener.accept()
        self.arrived = threading.Condition()
        self.answers = 0
        self.keys = []
        self.log_in()
        threading.Thread(target=self.listen, daemon=True).start()

    def log_in(self):
        for prompt in (b"login: ", b"password: "):
            self.connection.sendall(prompt)
            while b"\r" not in self.connection.recv(4096):
                pass

    def listen(self):
        tail = b""
        while True:
            data = self.connection.recv(4096)
            if not data:
                return
            with self.arrived:
                now = time.monotonic()
                self.keys += [now] * data.count(KEY)
                tail += data
                self.answers += tail.count(ANSWER)
                tail = tail[-(len(ANSWER) - 1):] if not tail.endswith(ANSWER) else b""
                self.arrived.notify_all()

    def show(self, text):
        """Seconds until the window has taken in all of `text`."""
        with self.arrived:
            expected = self.answers + 1
        start = time.monotonic()
        self.connection.sendall(text)
        self.connection.sendall(REQUEST)
        with self.arrived:
            if not self.arrived.wait_for(lambda: self.answers >= expected, timeout=300):
                raise SystemExit("window.py: the window did not answer")
        return time.monotonic() - start

    def press(self):
        """Seconds until a key typed into the window reaches the host."""
        with self.arrived:
            count = len(self.keys)
        start = time.monotonic()
        TYPIST.press()
        with self.arrived:
            if not self.arrived.wait_for(lambda: len(self.keys) > count, timeout=30):
                raise SystemExit("window.py: a key did not reach the host")
            return self.keys[count] - start

    def close(self):
        self.connection.shutdown(socket.SHUT_RDWR)
        self.process.wait(timeout=30)


class Typist:
    """xdotool kept running, so that its start is not measured."""

    def __init__(self):
        self.tool = subprocess.Popen(["xdotool", "-"], stdin=subprocess.PIPE, text=True)

    def press(self):
        self.tool.stdin.write("key q\n")
        self.tool.stdin.flush()

    def close(self):
        self.tool.stdin.close()
        self.tool.wait()


def keep_pressing(client, stop, delays):
    while not stop.is_set():
        delays.append(client.press())
        time.sleep(0.02)


def xterm_seconds(file, folder):
    result = folder / "xterm.txt"
    result.unlink(missing_ok=True)
    subprocess.run(["xterm", "-geometry", "80x24", "-e", sys.executable, "-c", IN_XTERM, str(file), str(result)],
                   check=True)
    return float(result.read_text())


def print_line(name, value, unit, peer="", other=None):
    ratio = "" if other is None else f"{value / other:.3g}"
    print(name, f"{value:.4g}", unit, peer, "" if other is None else f"{other:.4g}", ratio, sep="\t", flush=True)


def measure(program, folder, part):
    client = Client(program, folder)
    time.sleep(2)  # until it is on the screen
    client.press()
    for name, size, line in LOADS:
        text = text_of(size // part, line)
        file = folder / "load.txt"
        file.write_bytes(text)
        stop, delays = threading.Event(), []
        typist = threading.Thread(target=keep_pressing, args=(client, stop, delays))
        typist.start()
        ours = min(client.show(text) for _ in range(TURNS))
        stop.set()
        typist.join()
        theirs = min(xterm_seconds(file, folder) for _ in range(TURNS))
        peer = name.replace("window", "xterm")
        print_line(name, len(text) / ours, "B/s", peer, len(text) / theirs)
        print_line(peer, len(text) / theirs, "B/s")
        print_line(name + "_answer", max(delays) * 1e9, "ns")
        print_line(name + "_keys", len(delays), "keys")
    client.close()


TYPIST = Typist()
with tempfile.TemporaryDirectory() as home:
    try:
        measure(sys.argv[1], pathlib.Path(home), int(sys.argv[2]) if len(sys.argv) > 2 else 1)
    finally:
        TYPIST.close()
