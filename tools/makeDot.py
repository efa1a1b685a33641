#!/usr/bin/env python3
"""Makes the template with the macros by which Word asks for the add-in, as Word 97 to 2003 keep one.

    tools/makeDot.py OUTPUT.dot
    tools/makeDot.py --self-test

Word's own part is resources/word/skeleton.dot, an empty template that names no one and no date. LibreOffice 7.4 made
it of an empty text file (soffice --headless --convert-to dot). The macros are resources/word/*.bas, a module each.
The same sources give the same bytes.
"""

import random
import struct
import sys
from pathlib import Path

import compoundFile

WORD = Path(__file__).resolve().parent.parent / "resources/word"
SKELETON = WORD / "skeleton.dot"

PROJECT = "Veltro"
PROJECT_ID = "{A0975420-AABF-4E2A-AB0E-103B892E5087}"
CODE_PAGE = 1252
ENGLISH_US = 0x0409
# Word and VBA itself need no naming. Nor do the macros need Office's library, which each version has another of.
REFERENCES = {
    "stdole": r"*\G{00020430-0000-0000-C000-000000000046}#2.0#0#C:\WINDOWS\system32\stdole2.tlb#OLE Automation",
}

# The module of the template itself, which each project in Word has: Word's class of documents, and no code.
DOCUMENT = "ThisDocument"
DOCUMENT_SOURCE = b"""\
Attribute VB_Name = "ThisDocument"
Attribute VB_Base = "0{00020906-0000-0000-C000-000000000046}"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = True
Attribute VB_TemplateDerived = False
Attribute VB_Customizable = True
"""

# --- VBA's compression: each 4096 bytes by themselves, as letters and as copies of what stood before ---------

CHUNK = 4096
COPIED_FROM = 3  # The least that a copy is worth.


def copied(chunk, at):
    """The longest copy for what stands at a place of a chunk: its length, and how far back it starts."""
    # Two bytes hold both. The further from the chunk's start, the more bits go to the distance.
    length_bits = 16 - max(4, (at - 1).bit_length())
    length, place = COPIED_FROM - 1, 0
    most = min(COPIED_FROM + (1 << length_bits) - 1, len(chunk) - at)
    while length < most:
        found = chunk.rfind(chunk[at : at + length + 1], 0, at + length)
        if found < 0:
            break
        length, place = length + 1, found
    return length, at - place, length_bits


def compressed_chunk(chunk):
    tokens, at = [], 0
    while at < len(chunk):
        length, distance, length_bits = copied(chunk, at)
        if length >= COPIED_FROM:
            tokens.append((1, struct.pack("<H", (distance - 1) << length_bits | (length - COPIED_FROM))))
            at += length
        else:
            tokens.append((0, chunk[at : at + 1]))
            at += 1
    result = b""
    for first in range(0, len(tokens), 8):
        eight = tokens[first : first + 8]
        result += bytes([sum(copy << bit for bit, (copy, _) in enumerate(eight))])
        result += b"".join(data for _, data in eight)
    if len(result) > CHUNK:
        raise ValueError("it does not get smaller by compression")
    return struct.pack("<H", 0xB000 | (len(result) - 1)) + result


def compressed(data):
    chunks = [data[at : at + CHUNK] for at in range(0, len(data), CHUNK)]
    return b"\1" + b"".join(map(compressed_chunk, chunks))


# --- the project ---------------------------------------------------------------------------------------------


def record(number, data):
    return struct.pack("<HI", number, len(data)) + data


def short(number, value):
    return record(number, struct.pack("<H", value))


def long(number, value):
    return record(number, struct.pack("<I", value))


def text(number, unicode_number, value):
    """A text in the code page, and once more in Unicode."""
    return record(number, value.encode("ascii")) + record(unicode_number, value.encode("utf-16-le"))


def reference(name, library):
    library = library.encode("ascii")
    return text(0x16, 0x3E, name) + record(0x0D, struct.pack("<I", len(library)) + library + bytes(6))


def module(name):
    return (
        text(0x19, 0x47, name)
        + text(0x1A, 0x32, name)  # The name of its stream.
        + text(0x1C, 0x48, "")  # What it is for.
        + long(0x31, 0)  # Where its source starts in the stream.
        + long(0x1E, 0)  # Its topic in a help file.
        + short(0x2C, 0xFFFF)
        + record(0x22 if name == DOCUMENT else 0x21, b"")
        + record(0x2B, b"")
    )


def directory(modules):
    """What the project and its modules are, for VBA."""
    return (
        long(0x01, 1)  # Of 32-bit Windows.
        + long(0x02, ENGLISH_US)
        + long(0x14, ENGLISH_US)
        + short(0x03, CODE_PAGE)
        + record(0x04, PROJECT.encode("ascii"))
        + text(0x05, 0x40, "")  # What it is for, its help file and the topic in that.
        + text(0x06, 0x3D, "")
        + long(0x07, 0)
        + long(0x08, 0)
        + struct.pack("<HIIH", 0x09, 4, 1, 0)  # Its version; the length leaves out the minor one.
        + text(0x0C, 0x3C, "")  # Constants for conditional compilation.
        + b"".join(reference(*each) for each in REFERENCES.items())
        + short(0x0F, len(modules))
        + short(0x13, 0xFFFF)
        + b"".join(map(module, modules))
        + record(0x10, b"")
    )


def veiled(project_id, seed, data):
    """One of the hexadecimal texts in which a project says whether it is locked."""
    key = sum(project_id.encode("ascii")) & 0xFF
    result = [seed, seed ^ 2, seed ^ key]
    plain_before = key
    for plain in b"\7" * ((seed & 6) // 2) + struct.pack("<I", len(data)) + data:
        result.append(plain ^ (result[-2] + plain_before) & 0xFF)
        plain_before = plain
    return bytes(result).hex().upper()


def project(modules):
    """What the project and its modules are, for the editor."""
    lines = [
        f'ID="{PROJECT_ID}"',
        *(f"Document={name}/&H00000000" if name == DOCUMENT else f"Module={name}" for name in modules),
        f'Name="{PROJECT}"',
        'HelpContextID="0"',
        'VersionCompatible32="393222000"',
        f'CMG="{veiled(PROJECT_ID, 0x07, bytes(4))}"',  # Not protected,
        f'DPB="{veiled(PROJECT_ID, 0x0E, bytes(1))}"',  # no password,
        f'GC="{veiled(PROJECT_ID, 0x15, bytes([0xFF]))}"',  # visible.
        "",
        "[Host Extender Info]",
        "&H00000001={3832D640-CF90-11CF-8E43-00A0C911005A};VBE;&H00000000",
        "",
    ]
    return "\r\n".join(lines).encode("ascii")


def names(modules):
    """The modules' names, in the code page and in Unicode."""
    return b"".join(name.encode("ascii") + b"\0" + (name + "\0").encode("utf-16-le") for name in modules) + bytes(2)


def code(name, source):
    """A module's source as VBA stores it. Raises ValueError where it would not be read back as it is."""
    lines = source.splitlines()
    if not source.isascii():
        raise ValueError(f"{name}: not plain ASCII")
    if lines[:1] != [b'Attribute VB_Name = "%s"' % name.encode("ascii")]:
        raise ValueError(f"{name}: the first line does not name the module")
    return b"".join(line + b"\r\n" for line in lines)


def macros(sources):
    """The storage of a project with these modules, sources by name."""
    modules = {DOCUMENT: DOCUMENT_SOURCE} | dict(sorted(sources.items()))
    streams = {name: compressed(code(name, source)) for name, source in modules.items()}
    # No compiled code: VBA compiles the sources.
    streams |= {"dir": compressed(directory(modules)), "_VBA_PROJECT": bytes.fromhex("CC61FFFF000000")}
    return {"PROJECT": project(modules), "PROJECTwm": names(modules), "VBA": streams}


def template(sources):
    """The bytes of the template."""
    class_id, root = compoundFile.read(SKELETON.read_bytes())
    return compoundFile.CompoundFile(class_id, root | {"Macros": macros(sources)}).to_bytes()


def sources():
    return {file.stem: file.read_bytes() for file in WORD.glob("*.bas")}


# --- the self-test: what only Word looks at, byte by byte as Microsoft describes the format --------------------

# The texts in that description, for its project of that id.
DESCRIBED_ID = "{917DED54-440B-4FD1-A5C1-74ACF261E600}"
DESCRIBED = {
    (0x07, bytes(4)): "0705D8E3D8EDDBF1DBF1DBF1DBF1",
    (0x0E, bytes(1)): "0E0CD1ECDFF4E7F5E7F5E7",
    (0x15, b"\xff"): "1517CAF1D6F9D7F9D706",
}

# A project of the template itself and a module "A".
DIRECTORY = """
0100 04000000 01000000
0200 04000000 09040000
1400 04000000 09040000
0300 02000000 E404
0400 06000000 56656C74726F
0500 00000000 4000 00000000
0600 00000000 3D00 00000000
0700 04000000 00000000
0800 04000000 00000000
0900 04000000 01000000 0000
0C00 00000000 3C00 00000000
1600 06000000 7374646F6C65 3E00 0C000000 7300740064006F006C006500
0D00 68000000 5E000000
    2A5C477B30303032303433302D303030302D303030302D433030302D3030303030303030303034367D23322E30233023433A5C57494E444F57
    535C73797374656D33325C7374646F6C65322E746C62234F4C45204175746F6D6174696F6E
    00000000 0000
0F00 02000000 0200
1300 02000000 FFFF
1900 0C000000 54686973446F63756D656E74 4700 18000000 54006800690073004400 6F00630075006D0065006E007400
1A00 0C000000 54686973446F63756D656E74 3200 18000000 54006800690073004400 6F00630075006D0065006E007400
1C00 00000000 4800 00000000
3100 04000000 00000000
1E00 04000000 00000000
2C00 02000000 FFFF
2200 00000000
2B00 00000000
1900 01000000 41 4700 02000000 4100
1A00 01000000 41 3200 02000000 4100
1C00 00000000 4800 00000000
3100 04000000 00000000
1E00 04000000 00000000
2C00 02000000 FFFF
2100 00000000
2B00 00000000
1000 00000000
"""
PROJECT_TEXT = b"""\
ID="{A0975420-AABF-4E2A-AB0E-103B892E5087}"
Document=ThisDocument/&H00000000
Module=A
Name="Veltro"
HelpContextID="0"
VersionCompatible32="393222000"
CMG="0705DFDAE1E6ECEAECEAECEAECEA"
DPB="0E0CD6E3DAEDE0EEE0EEE0"
GC="1517CDE8D3EED4EED411"

[Host Extender Info]
&H00000001={3832D640-CF90-11CF-8E43-00A0C911005A};VBE;&H00000000
"""
NAMES = b"ThisDocument\0T\0h\0i\0s\0D\0o\0c\0u\0m\0e\0n\0t\0\0\0A\0A\0\0\0\0\0"

# Sources of a module "A" that no template is made of.
REFUSED = {
    "a letter beyond ASCII": b'Attribute VB_Name = "A"\n\' \xe9\n',
    "a module of another name": b'Attribute VB_Name = "B"\n',
    "noise": b'Attribute VB_Name = "A"\n' + bytes(random.Random(1).choices(range(33, 127), k=4096)),
}


def refused(source):
    try:
        macros({"A": source})
    except ValueError:
        return True
    return False


def self_test():
    first = b'Attribute VB_Name = "A"'
    made = macros({"A": first + b"\n"})
    good = {
        "directory": directory(["ThisDocument", "A"]) == bytes.fromhex(DIRECTORY),
        "project": made["PROJECT"] == PROJECT_TEXT.replace(b"\n", b"\r\n"),
        "names": made["PROJECTwm"] == NAMES,
        "promise of no compiled code": made["VBA"]["_VBA_PROJECT"] == b"\xcc\x61\xff\xff\0\0\0",
        "other line ends": macros({"A": first + b"\r\n"}) == made,
        "another order": template({"A": first, "B": first.replace(b"A\"", b"B\"")})
        == template({"B": first.replace(b"A\"", b"B\""), "A": first}),
    }
    good |= {text: veiled(DESCRIBED_ID, *of) == text for of, text in DESCRIBED.items()}
    good |= {f"refusal of {what}": refused(source) for what, source in REFUSED.items()}
    faults = [name for name, passed in good.items() if not passed]
    print("makeDot: " + ("wrong: " + ", ".join(faults) if faults else "self-test passed"))
    return 1 if faults else 0


def main(arguments):
    if len(arguments) != 1:
        print(__doc__, file=sys.stderr)
        return 2
    if arguments[0] == "--self-test":
        return self_test()
    try:
        Path(arguments[0]).write_bytes(template(sources()))
    except (ValueError, OSError) as error:
        print(f"makeDot: {error}", file=sys.stderr)
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
