"""Installs the build into an empty folder and checks it as a desktop would read it.

usage: installation_test.py CMAKE BUILD
"""

import os
import pathlib
import struct
import subprocess
import sys
import tempfile

cmake, build = sys.argv[1:]


def check(holds, message):
    if not holds:
        sys.exit("installation: " + message)


def check_icons(theme):
    icons = sorted(theme.glob("*/apps/quorvel.png"))
    check(len(icons) >= 6, "only %d icons" % len(icons))
    for icon in icons:
        header = icon.read_bytes()[:24]
        check(header[:8] == b"\x89PNG\r\n\x1a\n", "%s is no PNG" % icon)
        width, height = struct.unpack(">II", header[16:24])
        check(icon.parts[-3] == "%dx%d" % (width, height), "%s is %d by %d" % (icon, width, height))


def check_starts(program, home):
    """The client comes up offscreen, stays, and ends at once when it is asked to."""
    environment = dict(os.environ, QT_QPA_PLATFORM="offscreen", QUORVEL_HOME=str(home))
    client = subprocess.Popen([program], env=environment)
    try:
        client.wait(timeout=3)
        check(False, "the client ended by itself with status %d" % client.returncode)
    except subprocess.TimeoutExpired:
        pass
    finally:
        client.terminate()
        client.wait(timeout=10)


with tempfile.TemporaryDirectory() as folder:
    prefix = pathlib.Path(folder, "prefix")
    subprocess.run([cmake, "--install", build, "--prefix", prefix], check=True,
                   stdout=subprocess.DEVNULL)
    share = prefix / "share"
    for name in ("bin/quorvel", "bin/quorvel-demohost", "share/man/man1/quorvel.1.gz",
                 "share/man/man1/quorvel-demohost.1.gz", "share/doc/quorvel/USER-GUIDE.md",
                 "share/doc/quorvel/HOST-PROTOCOL.md", "share/doc/quorvel/copyright"):
        check((prefix / name).is_file(), name + " is missing")
    check_icons(share / "icons/hicolor")
    entry = share / "applications/quorvel.desktop"
    faults = subprocess.run(["desktop-file-validate", entry], capture_output=True, text=True)
    check(faults.returncode == 0 and not faults.stdout, faults.stdout)
    for page in (share / "man/man1").iterdir():
        faults = subprocess.run(["man", "--warnings", "-E", "UTF-8", "-l", "-Tutf8", "-Z", page],
                                capture_output=True, text=True)
        check(faults.returncode == 0 and not faults.stderr, faults.stderr)
    usage = subprocess.run([prefix / "bin/quorvel-demohost", "--help"], capture_output=True, text=True)
    check(usage.returncode == 0 and "--port" in usage.stdout, "quorvel-demohost --help says nothing")
    check_starts(prefix / "bin/quorvel", pathlib.Path(folder, "home"))
