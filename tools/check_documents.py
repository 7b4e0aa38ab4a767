#!/usr/bin/env python3
"""Checks that the documents lead somewhere: links and paths to files that exist, to every tool, and
that each tool says first what it is for."""

import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
DOCUMENTS = ["README.md", "CONTRIBUTING.md", "CHANGELOG.md",
             *(path.relative_to(ROOT).as_posix() for path in sorted(ROOT.glob("docs/*.md")))]
ONE_PAGE = 66  # lines

LINK = re.compile(r"\]\(([^):#\s]*)(?:#([^)\s]+))?\)")
PATH = re.compile(r"`((?:src|tests|tools|include|cmake|docs|bench|examples|fuzz)/[^`\s]*|\./\w+|\w+\.md)`")


def anchors(document):
    """The names by which links reach its headings."""
    headings = re.findall(r"^#+ (.*)$", document.read_text(), flags=re.M)
    return {re.sub(r"[^\w\- ]", "", heading.lower()).replace(" ", "-") for heading in headings}


def link_faults(name):
    text = (ROOT / name).read_text()
    for path, anchor in LINK.findall(text):
        target = (ROOT / name).parent / path if path else ROOT / name
        if not target.exists():
            yield f"{name}: links to {path}, which is not there"
        elif anchor and anchor not in anchors(target):
            yield f"{name}: links to {path}#{anchor}, a heading that is not there"


def contribution_faults():
    text = (ROOT / "CONTRIBUTING.md").read_text()
    named = PATH.findall(text)
    for path in named:
        if not (ROOT / path).exists():
            yield f"CONTRIBUTING.md: names {path}, which is not there"
    for tool in sorted(path for path in (ROOT / "tools").iterdir() if path.is_file()):
        if f"tools/{tool.name}" not in named:
            yield f"CONTRIBUTING.md: does not say what tools/{tool.name} is"
    if text.count("\n") > ONE_PAGE:
        yield f"CONTRIBUTING.md: has more than {ONE_PAGE} lines, a page"


def tool_faults():
    for tool in sorted(path for path in (ROOT / "tools").iterdir() if path.is_file()):
        lines = [line for line in tool.read_text().splitlines()[:2] if not line.startswith("#!")]
        if not re.match(r'(# |""")[A-Z]\w+ ', lines[0]):
            yield f"tools/{tool.name}: does not begin by saying what it is for"


def changelog_faults():
    version = re.search(r"project\(Pagivo VERSION ([\d.]+)", (ROOT / "CMakeLists.txt").read_text())[1]
    newest = re.search(r"^## ([\d.]+)", (ROOT / "CHANGELOG.md").read_text(), flags=re.M)
    if not newest or newest[1] != version:
        yield f"CHANGELOG.md: does not begin with version {version}"


def main():
    missing = [f"{name} is not there" for name in DOCUMENTS if not (ROOT / name).exists()]
    faults = missing or [*(fault for name in DOCUMENTS for fault in link_faults(name)),
                         *contribution_faults(), *tool_faults(), *changelog_faults()]
    print("\n".join(faults) or f"{len(DOCUMENTS)} documents lead where they say")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
