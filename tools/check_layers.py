#!/usr/bin/env python3
"""Checks what includes what: every folder of src/ may include only the folders below it, and every
outside library and the operating system only from the folders that stand in front of them."""

import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
NATIVE = "engine/native"

# folder -> folders it may include besides itself. The longest matching folder rules.
ALLOWED = {
    "system": [],
    "system/posix": ["system"],
    "system/windows": ["system"],
    "values": ["system"],
    "values/portable": ["values"],
    "values/windows": ["system", "system/windows", "values"],
    "engine": ["values"],
    f"{NATIVE}/fonts": ["values"],
    f"{NATIVE}/fonts/fontconfig": ["values", f"{NATIVE}/fonts"],
    f"{NATIVE}/fonts/directwrite": ["values", "system/windows", f"{NATIVE}/fonts"],
    f"{NATIVE}/cairo": ["system/posix"],
    f"{NATIVE}/pictures": ["values", "system"],
    f"{NATIVE}/pictures/pixbuf": ["values", "system/posix", f"{NATIVE}/cairo", f"{NATIVE}/pictures"],
    f"{NATIVE}/pictures/wic": ["values", "system/windows", f"{NATIVE}/pictures"],
    f"{NATIVE}/document": ["values", f"{NATIVE}/fonts", f"{NATIVE}/pictures"],
    f"{NATIVE}/pdf": ["values", "system", "engine", f"{NATIVE}/document", f"{NATIVE}/fonts", f"{NATIVE}/pictures"],
    f"{NATIVE}/raster": ["values", "system", f"{NATIVE}/cairo", f"{NATIVE}/document", f"{NATIVE}/fonts", f"{NATIVE}/pictures"],
    f"{NATIVE}/view": ["values", "engine", "window", f"{NATIVE}/document",
                     f"{NATIVE}/raster"],
    f"{NATIVE}/settings": ["values", "engine", f"{NATIVE}/document"],
    f"{NATIVE}/spool": ["values", "engine", f"{NATIVE}/document"],
    f"{NATIVE}/spool/cups": ["values", "system/posix", f"{NATIVE}/spool", f"{NATIVE}/document", f"{NATIVE}/pdf"],
    f"{NATIVE}/spool/windows": ["values", f"{NATIVE}/spool"],
    f"{NATIVE}/printing": ["values", "engine", "window", f"{NATIVE}/document", f"{NATIVE}/spool"],
    f"{NATIVE}/setup": ["values", "engine", "window", f"{NATIVE}/settings", f"{NATIVE}/spool",
                      f"{NATIVE}/printing"],
    NATIVE: ["values", "engine", "window", f"{NATIVE}/document", f"{NATIVE}/fonts", f"{NATIVE}/pictures",
             f"{NATIVE}/pdf", f"{NATIVE}/raster", f"{NATIVE}/view", f"{NATIVE}/settings",
             f"{NATIVE}/setup", f"{NATIVE}/printing", f"{NATIVE}/spool"],
    "window": ["values"],
    "window/headless": ["values", "window"],
    "window/qt": ["values", "system/posix", "window", "platform"],
    "platform": ["values", "engine", "window", "window/headless", NATIVE, f"{NATIVE}/fonts", f"{NATIVE}/pictures",
                 f"{NATIVE}/pdf", f"{NATIVE}/view", f"{NATIVE}/spool"],
    "state": ["values", "engine"],
    "dialogs": ["values", "engine", "window", "platform", "state"],
    "preview": ["values", "engine", "window", "platform", "state", "dialogs"],
    "api": ["system", "values", "engine", "window", "platform", "state", "preview", "dialogs"],
    "type_library": ["values", "api"],
    "automation": ["system/windows", "system", "values", "api", "type_library", "platform"],
    "assembly": ["values", "engine", NATIVE, f"{NATIVE}/document", f"{NATIVE}/raster", "platform",
                 "preview"],
}

# The folders of what is peculiar to Windows. They may include its headers, and only they.
WINDOWS = ["system/windows", "values/windows", f"{NATIVE}/fonts/directwrite", f"{NATIVE}/pictures/wic", f"{NATIVE}/spool/windows",
           "automation"]

# Outside headers -> the folders that may include them. The first pattern that matches rules.
OUTSIDE = {
    r"fontconfig/": [f"{NATIVE}/fonts/fontconfig"],
    r"fribidi": [f"{NATIVE}/fonts"],
    r"(ft2build\.h|freetype/|FT_)": [f"{NATIVE}/fonts", f"{NATIVE}/pdf", f"{NATIVE}/raster"],
    r"hb": [f"{NATIVE}/fonts", f"{NATIVE}/fonts/fontconfig", f"{NATIVE}/fonts/directwrite", f"{NATIVE}/pdf"],
    r"dwrite": [f"{NATIVE}/fonts/directwrite"],
    r"cairo": [f"{NATIVE}/cairo"],
    r"(gdk-pixbuf|librsvg|glib|gio|libxml/)": [f"{NATIVE}/pictures/pixbuf"],
    r"wincodec": [f"{NATIVE}/pictures/wic"],
    r"(png\.h|jpeglib\.h)": [f"{NATIVE}/pictures"],
    r"libdeflate": [f"{NATIVE}/pdf", f"{NATIVE}/pictures"],
    r"(cups|gnutls)/": [f"{NATIVE}/spool/cups"],
    r"(Q[A-Z]|xcb/)": ["window/qt"],
    r"wrl/|(windows|win[a-z0-9]+|basetsd|com(baseapi|def|mctrl|mdlg)|direct|fileapi|guiddef|initguid|io|minwin[a-z]+|"
    r"oaidl|obj[a-z]+|ocidl|ole[a-z0-9]*|process|propsys|psapi|sh[a-z]+|strsafe|tchar|unknwn|wtypes)\.h": WINDOWS,
    # The operating system. Sockets also lead to the print server and to a compositor, and Qt changes
    # the locale of C.
    r"(poll|sys/poll|sys/socket|sys/un)\.h": ["system/posix", f"{NATIVE}/spool/cups", "window/qt"],
    r"(cerrno|errno\.h)": ["system/posix", f"{NATIVE}/spool/cups"],
    r"(clocale|locale\.h)": ["system/posix", "window/qt"],
    r"(sys|arpa|net|netinet|linux)/|csignal|"
    r"(aio|dirent|dlfcn|fcntl|ftw|glob|grp|ifaddrs|langinfo|netdb|pthread|pwd|sched|semaphore|signal|"
    r"spawn|syslog|termios|unistd|utime|wordexp|xlocale)\.h": ["system/posix"],
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


def outside_fault(folder, header):
    for pattern, folders in OUTSIDE.items():
        if re.match(pattern, header):
            return None if folder in folders else f"<{header}> belongs to {', '.join(folders)}"
    return None


def faults_of(path, text):
    """What is wrong with the includes of a file of src/ that has this text."""
    folder = folder_of(path)
    for number, line in enumerate(text.splitlines(), 1):
        match = INCLUDE.match(line)
        if not match:
            continue
        own, outside = match.groups()
        fault = outside and outside_fault(folder, outside)
        if own and not own.startswith("pagivo/"):
            target = folder_of(own)
            if target != folder and target not in ALLOWED[folder]:
                fault = f"{folder} may not include {target} ({own})"
        if fault:
            yield f"src/{path}:{number}: {fault}"


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
    faults = [fault for source in sources
              for fault in faults_of(source, (ROOT / "src" / source).read_text())] + list(public_faults())
    print("\n".join(faults) or f"{len(sources)} files keep to their layers")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
