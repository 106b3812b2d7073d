"""Reads the running program through AT-SPI: lists every control of every window by accessible name
and code name, reads the menu's options and the terminal's lines as text, works menu and terminal by
the interfaces that assistive tools have. Exits with 1 at the first thing that is not there.

Usage: assistive_view.py PROCESS-ID
"""

import re
import sys
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi  # noqa: E402

WAIT_SECONDS = 40
CODE_NAME = re.compile(r" ?\[id:([^\]]+)\]$")


def children(node):
    for index in range(node.get_child_count()):
        child = node.get_child_at_index(index)
        if child is not None:
            yield child


def walk(node, depth=0):
    """The node and all below it. Menus are left closed: their entries are there all the same."""
    yield node, depth
    if depth < 40:
        for child in children(node):
            yield from walk(child, depth + 1)


def code_name(node):
    match = CODE_NAME.search(node.get_description() or "")
    return match.group(1) if match else ""


def program(process):
    desktop = Atspi.get_desktop(0)
    for application in children(desktop):
        if application.get_process_id() == process:
            return application
    return None


def showing(node):
    return node.get_state_set().contains(Atspi.StateType.SHOWING)


def wait_for(what, find):
    deadline = time.monotonic() + WAIT_SECONDS
    while time.monotonic() < deadline:
        try:
            found = find()
        except gi.repository.GLib.Error:  # it went away while we looked
            found = None
        if found:
            return found
        time.sleep(0.2)
    sys.exit(f"assistive view: {what} did not appear")


def find_by_code(application, code):
    for node, _ in walk(application):
        if code_name(node) == code:
            return node
    return None


def text_of(node):
    text = node.get_text_iface()
    return Atspi.Text.get_text(text, 0, Atspi.Text.get_character_count(text)) if text else ""


def check(condition, message):
    if not condition:
        sys.exit(f"assistive view: {message}")


def list_controls(application):
    """Prints one line a control; gives code name -> accessible name."""
    names = {}
    for node, depth in walk(application):
        code = code_name(node)
        if not code:
            continue
        names[code] = node.get_name()
        print(f"{'  ' * min(depth, 12)}{node.get_role_name()}\t{node.get_name()!r}\t{code}")
    return names


def main():
    process = int(sys.argv[1])
    application = wait_for("the program", lambda: program(process))
    menu = wait_for("the menu window", lambda: find_by_code(application, "frmSubMenu"))
    options = wait_for(
        "the list of options",
        lambda: next((n for n, _ in walk(menu) if code_name(n) == "lstOptions(0)" and showing(n)), None))

    names = list_controls(application)
    for code in ("mdiMain", "frmTelnet", "VT2201", "tabMenu", "cboExecute", "cmdDo", "cmdBack",
                 "cmdTcl", "cmdLogoff", "cmdHelp", "cmdButton(0)", "cmdButton(15)"):
        check(code in names, f"{code} is not among the controls")
        check(code == "mdiMain" or names[code], f"{code} has no accessible name")
    check(names["cboExecute"] == "Open", f"the direct entry is called {names['cboExecute']!r}")
    # A label has the name of the control it stands for.
    of_menu = [n.get_name() for n, _ in walk(menu)
               if code_name(n) not in ("", "frmSubMenu") and n.get_role() != Atspi.Role.LABEL]
    check(len(of_menu) == len(set(of_menu)), f"names are not unique in the menu window: {of_menu}")

    texts = [n.get_name().strip() for n in children(options)]
    print("options:", texts)
    check("Customer Inquiry" in texts, f"the menu's options can't be read: {texts}")

    # To the terminal by the button's own action.
    button = find_by_code(application, "cmdTcl")
    check(Atspi.Action.do_action(button.get_action_iface(), 0), "cmdTcl has no action")
    terminal = wait_for(
        "the command prompt",
        lambda: next((n for n, _ in walk(application)
                      if code_name(n) == "VT2201" and showing(n) and ">" in text_of(n)), None))
    check(terminal.get_role() == Atspi.Role.TERMINAL, f"its role is {terminal.get_role_name()}")
    lines = text_of(terminal).split("\n")
    print("terminal:", *[line.rstrip() for line in lines if line.strip()], sep="\n  ")
    check(len(lines) == 24 and all(len(line) == 80 for line in lines),
          f"the terminal's text has {len(lines)} lines of {sorted({len(l) for l in lines})}")
    check(Atspi.Text.get_caret_offset(terminal.get_text_iface()) > 0, "the caret can't be read")
    print("assistive view: all there")


if __name__ == "__main__":
    main()
