#!/usr/bin/env python3
"""Holds the includes to the order of the rooms.

    tools/layers.py [FOLDER]     checks the sources below FOLDER (the repository unless given)
    tools/layers.py --self-test  checks the checker against a small tree with one fault of each kind

Prints a line for each fault and ends with status 1 when there are any.
"""

import re
import sys
import tempfile
from pathlib import Path

# A room, and the rooms whose headers it may include beside its own.
BELOW = {"platform": set()}
BELOW["mail"] = {"platform"}
BELOW["settings"] = BELOW["mail"] | {"mail"}
BELOW["accounts"] = BELOW["settings"] | {"settings"}
for room in ("support", "update", "checks"):
    BELOW[room] = BELOW["accounts"] | {"accounts"}
BELOW["addin"] = BELOW["accounts"] | {"accounts", "support", "update", "checks"}
BELOW["server"] = BELOW["addin"] | {"addin"}
BELOW["host"] = {"platform"}
BELOW["robot"] = {"platform"}
# The program of the simulated Outlook starts the add-in in it.
BELOW["program"] = BELOW["addin"] | {"addin", "host", "robot"}
PRODUCT = BELOW["server"]
# What stands outside the product may use all of it, but nothing of the product may use that.
for room in ("tests", "bench", "fuzz"):
    BELOW[room] = PRODUCT | {"host", "robot", "program", "server"}

# Where Windows is known.
WINDOWS = ("platform/windows/", "server/", "host/windows/", "robot/", "program/windows/", "tests/windows/", "tests/scenarios/windows/")
WINDOWS_HEADERS = {
    "windows.h", "windowsx.h", "winuser.h", "winreg.h", "commctrl.h", "shellapi.h", "shlobj.h", "shlwapi.h", "wininet.h",
    "htmlhelp.h", "objbase.h", "ole2.h", "olectl.h", "oleauto.h", "oaidl.h", "unknwn.h", "ocidl.h",
}

INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]')


def fault(file, bracket, name):
    """Why `file` may not include `name`, or None. Both are paths from the root."""
    room = file.split("/")[0]
    if bracket == "<":
        if name.lower() in WINDOWS_HEADERS and not file.startswith(WINDOWS):
            return "Windows is known only to " + ", ".join(WINDOWS)
        return None
    if ".." in name.split("/"):
        return "include paths start at the root"
    target = name.split("/")[0]
    if "/" not in name or target not in BELOW:
        return "include paths start at the root, with a room"
    if name.startswith(WINDOWS) and not file.startswith(WINDOWS):
        return "portable code includes nothing of Windows"
    if target == room:
        return None
    if target in BELOW[room]:
        return None
    return f"{room} may include only {', '.join(sorted(BELOW[room])) or 'itself'}"


def check(root):
    """The faults of all sources below `root`, one text each, and the number of files read."""
    faults, files = [], 0
    for room in BELOW:
        for path in sorted((root / room).rglob("*")):
            if path.suffix not in (".h", ".cpp", ".rc"):
                continue
            files += 1
            file = path.relative_to(root).as_posix()
            for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
                include = INCLUDE.match(line)
                why = include and path.suffix != ".rc" and fault(file, *include.groups())
                if why:
                    faults.append(f"{file}:{number}: {include.group(2)}: {why}")
    return faults, files


GOOD = {
    "platform/text.h": "#include <string>\n",
    "platform/windows/Store.cpp": '#include <windows.h>\n#include "platform/text.h"\n',
    "mail/basGlobals.cpp": '#include "platform/text.h"\n#include "mail/clsResource.h"\n',
    "checks/frmNoSubject.cpp": '#include "settings/modRegKeys.h"\n#include "checks/basVeltro.h"\n',
    "addin/Connect.cpp": '#include "update/basAutoUpdate.h"\n',
    "program/native/main.cpp": '#include "addin/Connect.h"\n#include "host/Outlook.h"\n',
    "tests/scenarios/sends.cpp": '#include "addin/Connect.h"\n#include "host/Outlook.h"\n',
}
BAD = {
    "mail/upwards.cpp": '#include "settings/modRegKeys.h"\n',
    "checks/sideways.cpp": '#include "update/basAutoUpdate.h"\n',
    "host/Outlook.cpp": '#include "mail/basGlobals.h"\n',
    "server/robot.cpp": '#include "robot/DialogRobot.h"\n',
    "host/Item.cpp": '#include "program/MessageJson.h"\n',
    "settings/windows.cpp": "#  include <Windows.h>\n",
    "accounts/hidden.cpp": '#include "platform/windows/Store.h"\n',
    "update/dots.cpp": '#include "../mail/basGlobals.h"\n',
    "support/bare.cpp": '#include "frmAbout.h"\n',
    "addin/tests.cpp": '#include "tests/scenarios/Bench.h"\n',
}


def self_test():
    with tempfile.TemporaryDirectory() as folder:
        root = Path(folder)
        for name, text in (GOOD | BAD).items():
            (root / name).parent.mkdir(parents=True, exist_ok=True)
            (root / name).write_text(text, encoding="utf-8")
        faults, files = check(root)
    found = sorted(line.split(":")[0] for line in faults)
    if found != sorted(BAD) or files != len(GOOD) + len(BAD):
        print("layers: the checker is broken: it found " + "; ".join(faults))
        return 1
    print(f"layers: self-test found all {len(BAD)} faults")
    return 0


def main(arguments):
    if arguments == ["--self-test"]:
        return self_test()
    root = Path(arguments[0]) if arguments else Path(__file__).resolve().parent.parent
    faults, files = check(root)
    print("\n".join(faults + [f"layers: {files} files, {len(faults)} faults"]))
    return 1 if faults or files == 0 else 0


sys.exit(main(sys.argv[1:]))
