"""Checks docs/CONFORMANCE.md against the code: every test that it names exists, and every window, host
message, request and key of the configuration has its row. Messages and requests must stand in
docs/HOST-PROTOCOL.md, keys in docs/USER-GUIDE.md as well.

usage: check_conformance.py [FOLDER]
"""

import pathlib
import re
import sys


def all_text(root, pattern):
    return "\n".join(path.read_text(encoding="utf-8") for path in sorted(root.glob(pattern)))


def tests_in(root):
    code = all_text(root, "src/**/*_test.cpp") + all_text(root, "demohost/*_test.cpp")
    names = {"%s.%s" % found for found in re.findall(r"^TEST(?:_F|_P)?\((\w+), (\w+)\)", code, re.M)}
    cmake = all_text(root, "**/CMakeLists.txt")
    return names | set(re.findall(r"add_test\(NAME (\w+)", cmake))


def keys_in(table):
    """The keys of the configuration; of those with a number behind them, the first."""
    keys = set(re.findall(r't\.Add\(\s*"(\w+)"(?! \+)', table))
    keys |= {name + "0" for name in re.findall(r'Add(?:Element)?\(\s*"(\w+)"(?: \+|, &SessionState)', table)}
    keys |= {name + "1" for name in re.findall(r'AddArray\("(\w+)"', table)}
    return keys


def check(root):
    page = (root / "docs/CONFORMANCE.md").read_text(encoding="utf-8")
    protocol = (root / "docs/HOST-PROTOCOL.md").read_text(encoding="utf-8")
    guide = (root / "docs/USER-GUIDE.md").read_text(encoding="utf-8")
    code = all_text(root, "src/**/*.cpp") + all_text(root, "src/**/*.h")
    dispatcher = (root / "src/link/Dispatcher.cpp").read_text(encoding="utf-8")
    table = (root / "src/settings/ConfigurationKeys.cpp").read_text(encoding="utf-8")
    quoted = set(re.findall(r"`([^`\n]+)`", page))
    faults = []

    tests = tests_in(root)
    for name in sorted(quoted):
        if re.fullmatch(r"[A-Z]\w*\.[A-Z]\w*", name) and name not in tests:
            faults.append("there is no test " + name)

    def expect(what, names, at_least, *pages):
        if len(names) < at_least:
            faults.append("only %d %ss were found in the code" % (len(names), what))
        for name in sorted(names):
            for title, text in pages:
                if "`%s`" % name not in text and not (what == "message" and name in text):
                    faults.append("%s has no %s %s" % (title, what, name))

    expect("window", set(re.findall(r"class (\w+) : public Window", code)) & {
        name for name in re.findall(r"class ((?:frm|mdi)\w+)", code)}, 20, ("CONFORMANCE", page))
    expect("message", set(re.findall(r'\{"(~[A-Z.-]+~)",', dispatcher)), 18,
           ("CONFORMANCE", page), ("HOST-PROTOCOL", protocol))
    expect("request", set(re.findall(r'BuildRequest\("([A-Z]+)"', code)), 10, ("CONFORMANCE", page))
    expect("key", keys_in(table), 40, ("CONFORMANCE", page), ("USER-GUIDE", guide))
    for verb in re.findall(r'BuildRequest\("([A-Z]+)"', code):
        if not re.search(r"\b%s\b" % verb, protocol):
            faults.append("HOST-PROTOCOL has no request " + verb)
    return faults


if __name__ == "__main__":
    found = check(pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else ".").resolve())
    print("\n".join(found))
    sys.exit(1 if found else 0)
