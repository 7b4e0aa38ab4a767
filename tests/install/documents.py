"""The programs and commands that stand in the project's documents."""

import pathlib
import re

ROOT = pathlib.Path(__file__).resolve().parents[2]


def blocks(document, heading):
    """The code blocks under a heading of a document, in their order, by language."""
    section = re.split(r"^## ", (ROOT / document).read_text(), flags=re.M)
    text, = (part for part in section if part.startswith(heading + "\n"))
    found = {}
    for language, block in re.findall(r"^```(\w+)\n(.*?)^```$", text, flags=re.M | re.S):
        found.setdefault(language, []).append(block)
    return found
