#!/usr/bin/env python3
"""Holds a message file that tools/makeMsg.py made to its source, as other programs read it: msgconvert and gsf.

    tools/checkMsg.py SOURCE.eml MESSAGE.msg
    tools/checkMsg.py --self-test SOURCE.eml  checks makeMsg with a long message, and the checker with broken ones

Prints a line for each fault and ends with status 1 when there are any.
"""

import email
import email.policy
import struct
import subprocess
import sys
import tempfile
from pathlib import Path

from programs import output_of

MAKER = Path(__file__).resolve().parent / "makeMsg.py"
STRING8 = 0x001E


def read_mail(data):
    return email.message_from_bytes(data, policy=email.policy.default)


def plain(text):
    return text.replace("\r\n", "\n").strip()


def shown(mail):
    """What a mail program shows of a mail."""
    return {"From": str(mail["From"]), "Subject": str(mail["Subject"]), "text": plain(mail.get_content())}


def converted(path):
    with tempfile.TemporaryDirectory() as folder:
        mail = Path(folder) / "mail.eml"
        output_of("msgconvert", "--outfile", str(mail), str(path))
        return shown(read_mail(mail.read_bytes()))


def streams(path):
    """The file's streams, by name."""
    entries = [line.split() for line in output_of("gsf", "list", str(path)).decode().splitlines()[1:]]
    return {name: output_of("gsf", "cat", str(path), name) for kind, _, name in entries if kind == "f"}


def table_faults(found):
    """What is wrong between the table of properties and the streams that it names."""
    table = found.get("__properties_version1.0", b"")
    numbers, named = {}, {"__properties_version1.0"}
    for kind, number, _, value, _ in struct.iter_unpack("<HHIII", table[32:]):
        if kind not in (STRING8, 0x0102):
            numbers[number] = value
            continue
        name = f"__substg1.0_{number:04X}{kind:04X}"
        named.add(name)
        if len(found.get(name, b"")) + (kind == STRING8) != value or value <= 1:
            yield f"{name} has {len(found.get(name, b''))} bytes, the table says {value}"
    # Neither read nor unsent; no strings in Unicode.
    if numbers.get(0x0E07) != 0 or numbers.get(0x340D, 0x40000) & 0x40000:
        yield f"flags and store mask are {numbers.get(0x0E07)} and {numbers.get(0x340D)}"
    named |= {f"__nameid_version1.0/__substg1.0_{tag}" for tag in ("00020102", "00030102", "00040102")}
    if set(found) != named:
        yield "streams and table differ in " + ", ".join(sorted(set(found) ^ named))


def check(source, path):
    """The faults of a message file, one text each."""
    wanted = shown(read_mail(source))
    try:
        read, found = converted(path), streams(path)
        different = [part for part in wanted if read[part] != wanted[part]]
        faults = [f"msgconvert reads another {part}: {read[part][:80]!r}" for part in different]
        faults += table_faults(found)
    except (ValueError, LookupError, struct.error) as error:
        return [str(error)]
    for name, part in (("0037001E", wanted["Subject"]), ("1000001E", wanted["text"])):
        text = plain(found.get(f"__substg1.0_{name}", b"").decode("windows-1252"))
        if text != part:
            faults.append(f"gsf reads another text in {name}: {text[:80]!r}")
    if found.get("__substg1.0_001A001E") != b"IPM.Note":
        faults.append("it is no e-mail")
    return faults


def made_of(source, folder):
    """The message file of a source, made twice: both must be the same."""
    (folder / "source.eml").write_bytes(source)
    files = [folder / "first.msg", folder / "second.msg"]
    for file in files:
        output_of(str(MAKER), str(folder / "source.eml"), str(file))
    if files[0].read_bytes() != files[1].read_bytes():
        raise ValueError("one source made two different files")
    return files[0]


BROKEN = {
    "a changed subject": (b"Introducing", b"Introdocing"),
    "a changed text": (b"asks nothing", b"asks notting"),
    "another sender": (b"support@", b"sapport@"),
    "another class": (b"IPM.Note", b"IPM.Post"),
    "a draft": (bytes.fromhex("0300070E 06000000 00"), bytes.fromhex("0300070E 06000000 08")),
    "an announcement of Unicode": (bytes.fromhex("790E0000"), bytes.fromhex("790E0400")),
    "a string without its zero": (bytes.fromhex("1E001A00 06000000 09"), bytes.fromhex("1E001A00 06000000 08")),
    "a lost stream": ("0E1D001E".encode("utf-16-le"), "0E1E001E".encode("utf-16-le")),
    "a foreign file": (b"\xd0\xcf\x11\xe0", b"\xd0\xcf\x11\xe1"),
}


def self_test(source):
    with tempfile.TemporaryDirectory() as name:
        folder = Path(name)
        # Longer than any stream in small sectors.
        long_source = source + b"".join(b"Line %d\n" % number for number in range(20000))
        faults = [f"a long message: {fault}" for fault in check(long_source, made_of(long_source, folder))]
        whole = made_of(source, folder).read_bytes()
        broken = {kind: whole.replace(*change) for kind, change in BROKEN.items()}
        broken["half a file"] = whole[: len(whole) // 2]
        for kind, data in broken.items():
            file = folder / "broken.msg"
            file.write_bytes(data)
            if data == whole or not check(source, file):
                faults.append(f"not noticed: {kind}")
        (folder / "source.eml").write_bytes(source.replace(b"Introducing Veltro", b""))
        if subprocess.run([MAKER, folder / "source.eml", file], capture_output=True, check=False).returncode != 1:
            faults.append("a message without a subject was made")
    print("\n".join(faults + [f"checkMsg: self-test of {len(broken)} broken files, {len(faults)} faults"]))
    return faults


def main(arguments):
    if len(arguments) != 2:
        print(__doc__, file=sys.stderr)
        return 2
    if arguments[0] == "--self-test":
        return 1 if self_test(Path(arguments[1]).read_bytes()) else 0
    faults = check(Path(arguments[0]).read_bytes(), Path(arguments[1]))
    print("\n".join(faults + [f"checkMsg: {arguments[1]}: {len(faults)} faults"]))
    return 1 if faults else 0


sys.exit(main(sys.argv[1:]))
