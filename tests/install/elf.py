"""What readelf tells of built files."""

import collections
import re
import subprocess

Symbol = collections.namedtuple("Symbol", "name visibility defined version")

_SYMBOL = re.compile(r" *\d+: \w+ +\w+ +(\w+) +(?:GLOBAL|WEAK|UNIQUE) +(\w+) +(\w+) +(.+)")
_STRING = "std::__cxx11::basic_string<char, std::char_traits<char>, std::allocator<char> >"
_VIEW = "std::basic_string_view<char, std::char_traits<char> >"


def read(*arguments):
    return subprocess.run(["readelf", "-W", *map(str, arguments)], check=True, text=True,
                          capture_output=True).stdout


def symbols(file, table="--dyn-syms"):
    """What others of the file can see, or it of others, with the names that the sources use."""
    for line in read(table, "--demangle", file).splitlines():
        match = _SYMBOL.match(line)
        if match and (match.group(1), match.group(3)) != ("OBJECT", "ABS"):
            _, visibility, section, name = match.groups()
            name, _, version = name.replace("[abi:cxx11]", "").partition("@")
            name = name.replace(_STRING, "std::string").replace(_VIEW, "std::string_view")
            version = version.lstrip("@").partition(" ")[0]
            yield Symbol(name.strip(), visibility, section != "UND", version)


def notes_of_objects(file):
    """The notes of each object of an archive by its name, or of a file."""
    parts = re.split(r"^File: (.*)$", read("--notes", file), flags=re.M)
    return dict(zip(parts[1::2], parts[2::2])) or {str(file): parts[0]}
