#!/usr/bin/env python3
"""Checks what includes what: every folder of src/ may include only the folders below it, and every
outside library only from the one folder that stands in front of it."""

import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
NATIVE = "engine/native"

# folder -> folders it may include besides itself. The longest matching folder rules.
ALLOWED = {
    "values": [],
    "files": ["values"],
    "engine": ["values"],
    f"{NATIVE}/fonts": ["values"],
    f"{NATIVE}/fonts/fontconfig": ["values", f"{NATIVE}/fonts"],
    f"{NATIVE}/pictures": ["values", "files"],
    f"{NATIVE}/document": ["values", f"{NATIVE}/fonts", f"{NATIVE}/pictures"],
    f"{NATIVE}/pdf": ["values", "files", "engine", f"{NATIVE}/document", f"{NATIVE}/fonts", f"{NATIVE}/pictures"],
    f"{NATIVE}/raster": ["values", "files", f"{NATIVE}/document", f"{NATIVE}/fonts", f"{NATIVE}/pictures"],
    f"{NATIVE}/view": ["values", "engine", "window", f"{NATIVE}/document",
                     f"{NATIVE}/raster"],
    f"{NATIVE}/settings": ["values", "engine", f"{NATIVE}/document"],
    f"{NATIVE}/spool": ["values", "engine", f"{NATIVE}/document"],
    f"{NATIVE}/spool/cups": ["values", "files", f"{NATIVE}/spool", f"{NATIVE}/document", f"{NATIVE}/pdf"],
    f"{NATIVE}/printing": ["values", "engine", "window", f"{NATIVE}/document", f"{NATIVE}/spool"],
    f"{NATIVE}/setup": ["values", "engine", "window", f"{NATIVE}/settings", f"{NATIVE}/spool",
                      f"{NATIVE}/printing"],
    NATIVE: ["values", "engine", "window", f"{NATIVE}/document", f"{NATIVE}/fonts", f"{NATIVE}/pictures",
             f"{NATIVE}/pdf", f"{NATIVE}/raster", f"{NATIVE}/view", f"{NATIVE}/settings",
             f"{NATIVE}/setup", f"{NATIVE}/printing", f"{NATIVE}/spool"],
    "window": ["values"],
    "window/headless": ["values", "window"],
    "window/qt": ["values", "window", "platform"],
    "platform": ["values", "engine", "window"],
    "state": ["values", "engine"],
    "dialogs": ["values", "engine", "window", "platform", "state"],
    "preview": ["values", "engine", "window", "platform", "state", "dialogs"],
    "api": ["values", "engine", "window", "platform", "state", "preview", "dialogs"],
    "assembly": ["values", "engine", NATIVE, f"{NATIVE}/document", f"{NATIVE}/fonts",
                 f"{NATIVE}/pictures", f"{NATIVE}/pdf", f"{NATIVE}/raster", f"{NATIVE}/view",
                 f"{NATIVE}/spool", f"{NATIVE}/spool/cups", "window", "window/headless", "platform", "state", "preview", "dialogs", "api"],
}

# Outside headers -> the folders that may include them.
LIBRARIES = {
    r"fontconfig/": [f"{NATIVE}/fonts/fontconfig"],
    r"fribidi": [f"{NATIVE}/fonts"],
    r"(ft2build\.h|freetype/|FT_)": [f"{NATIVE}/fonts", f"{NATIVE}/pdf", f"{NATIVE}/raster"],
    r"hb": [f"{NATIVE}/fonts", f"{NATIVE}/pdf"],
    r"cairo": [f"{NATIVE}/raster", f"{NATIVE}/pictures"],
    r"(gdk-pixbuf|librsvg|glib|gio|libxml/|png\.h|jpeglib\.h)": [f"{NATIVE}/pictures"],
    r"libdeflate": [f"{NATIVE}/pdf"],
    r"(cups|gnutls)/": [f"{NATIVE}/spool/cups"],
    r"(Q[A-Z]|xcb/)": ["window/qt"],
}

INCLUDE = re.compile(r'^\s*#\s*include\s*(?:"([^"]+)"|<([^>]+)>)')


def folder_of(path):
    """The folder of src/ whose rule holds for a file there."""
    parts = pathlib.PurePosixPath(path).parent
    while str(parts) not in ALLOWED:
        if str(parts) == ".":
            raise SystemExit(f"src/{path}: no rule for this folder in tools/check_layers.py")
        parts = parts.parent
    return str(parts)


def faults_of(path):
    folder = folder_of(path)
    for number, line in enumerate((ROOT / "src" / path).read_text().splitlines(), 1):
        match = INCLUDE.match(line)
        if not match:
            continue
        own, outside = match.groups()
        if own and not own.startswith("pagivo/"):
            target = folder_of(own)
            if target != folder and target not in ALLOWED[folder]:
                yield f"src/{path}:{number}: {folder} may not include {target} ({own})"
        for pattern, folders in LIBRARIES.items():
            if outside and re.match(pattern, outside) and folder not in folders:
                yield f"src/{path}:{number}: <{outside}> belongs to {', '.join(folders)}"


def public_faults():
    for header in sorted((ROOT / "include").rglob("*.h")):
        for number, line in enumerate(header.read_text().splitlines(), 1):
            match = INCLUDE.match(line)
            if match and match.group(1) and not match.group(1).startswith("pagivo/"):
                yield f"{header.relative_to(ROOT)}:{number}: includes {match.group(1)}, which is not installed"


def main():
    sources = sorted(p.relative_to(ROOT / "src").as_posix()
                     for p in (ROOT / "src").rglob("*") if p.suffix in (".h", ".cpp"))
    if not sources:
        raise SystemExit("no sources found")
    faults = [fault for source in sources for fault in faults_of(source)] + list(public_faults())
    print("\n".join(faults) or f"{len(sources)} files keep to their layers")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
