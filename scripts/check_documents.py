"""Checks the product's documents: every link to a file, and every link to a heading, leads somewhere,
and every picture is used.

usage: check_documents.py [FOLDER]
"""

import pathlib
import re
import sys

LINK = re.compile(r"!?\[[^\]]*\]\(([^)\s]+)\)")


def anchors(text):
    """The names that a heading gets on the usual hosting sites."""
    names = set()
    for heading in re.findall(r"^#+ +(.*)$", text, re.MULTILINE):
        plain = re.sub(r"[^\w\- ]", "", heading.lower())
        names.add(plain.strip().replace(" ", "-"))
    return names


def without_code(text):
    text = re.sub(r"^( {4}|\t).*$", "", text, flags=re.MULTILINE)
    return re.sub(r"`[^`]*`", "", text)


def check(root):
    faults = []
    used = set()
    for document in [root / "README.md", *sorted((root / "docs").glob("*.md"))]:
        text = document.read_text(encoding="utf-8")
        for link in LINK.findall(without_code(text)):
            if re.match(r"[a-z]+:", link):
                continue
            path, _, anchor = link.partition("#")
            target = (document.parent / path).resolve() if path else document
            used.add(target)
            if not target.exists():
                faults.append("%s: there is no %s" % (document.name, link))
            elif anchor and anchor not in anchors(target.read_text(encoding="utf-8")):
                faults.append("%s: there is no heading for %s" % (document.name, link))
    for picture in (root / "docs" / "pictures").iterdir():
        if picture.resolve() not in used:
            faults.append("nothing shows %s" % picture.name)
    return faults


if __name__ == "__main__":
    found = check(pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else ".").resolve())
    print("\n".join(found))
    sys.exit(1 if found else 0)
