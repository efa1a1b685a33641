#!/usr/bin/env python3
"""Keeps README's tables of settings as settings/modRegKeys.h has them.

    tools/settings.py          ends with status 1 when README differs
    tools/settings.py --write  writes the tables into README
"""

import re
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
HEADER = ROOT / "settings/modRegKeys.h"
README = ROOT / "README.md"
START, END = "<!-- made by tools/settings.py -->", "<!-- until here -->"

VALUES = {
    "TextFlag": "`True`, `False`",
    "NumberFlag": "`0`, `1`",
    "Choice": "`0`, `1`, `2`",
    "WholeNumber": "a number from 1",
    "Text": "a text",
    "OwnAddresses": "a text",
    "Plain": "a text",
}
# What absent settings read as where their line does not say it.
DEFAULTS = {"Choice": "`0`", "OwnAddresses": "the profile's", "Text": "empty", "Plain": "empty"}

GROUP = re.compile(r"// (?!clang-format)(.+)")
EXPLANATION = re.compile(r"/// (.+)")
SETTING = re.compile(r'inline constexpr (\w+) (\w+)\{L"(\w+)"(?:, (?:L"([^"]*)"|(\w+)))?(?:, L"[^"]*")?\};')


def default(kind, text, literal):
    if literal in ("true", "false"):
        return f"`{literal.capitalize()}`"
    return f"`{text or literal}`" if text or literal else DEFAULTS[kind]


def tables(header):
    """The tables as Markdown. Raises ValueError for a line of the header that is none of a table's."""
    result, explanation = [], None
    body = header.split("// clang-format off\n")[1].split("// clang-format on\n")[0]
    for line in filter(None, body.splitlines()):
        if group := GROUP.fullmatch(line):
            result += ["", f"**{group[1]}**", "", "| Setting | What it does | Values | Default |", "|---|---|---|---|"]
        elif text := EXPLANATION.fullmatch(line):
            explanation = f"{explanation} {text[1]}" if explanation else text[1]
        elif (setting := SETTING.fullmatch(line)) and explanation and result and setting[2] == setting[3]:
            kind, _, key, text, literal = setting.groups()
            result.append(f"| `{key}` | {explanation} | {VALUES[kind]} | {default(kind, text, literal)} |")
            explanation = None
        else:
            raise ValueError(f"{HEADER.name}: not a setting with its explanation: {line}")
    return "\n".join(result) + "\n\n"


def unlisted(header):
    """The settings that are missing from the list of all of them, through which programs go."""
    listed = re.search(r"std::tuple all\{([^}]*)\}", header)[1]
    return [match[2] for match in SETTING.finditer(header) if match[2] not in re.findall(r"\w+", listed)]


def main(arguments):
    readme = README.read_text(encoding="utf-8")
    before, rest = readme.split(START)
    _, after = rest.split(END)
    wanted = before + START + "\n" + tables(HEADER.read_text(encoding="utf-8")) + END + after
    if missing := unlisted(HEADER.read_text(encoding="utf-8")):
        print("settings: not in the list of all settings: " + ", ".join(missing))
        return 1
    if arguments == ["--write"]:
        README.write_text(wanted, encoding="utf-8")
    elif wanted != readme:
        print("settings: README.md is behind settings/modRegKeys.h; tools/settings.py --write renews it")
        return 1
    else:
        print("settings: README.md has them all")
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
