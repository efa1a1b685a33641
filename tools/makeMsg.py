#!/usr/bin/env python3
"""Makes an Outlook message file of a plain-text e-mail.

    tools/makeMsg.py SOURCE.eml OUTPUT.msg

The message is one that was received and not read, in Outlook's 8-bit form (Windows-1252), which all versions
of Outlook open. The same source gives the same bytes.
"""

import email
import email.policy
import struct
import sys
from pathlib import Path

from compoundFile import CompoundFile

# --- the message: a stream for each property that has no fixed size, a table of all of them -----------------

MESSAGE_CLASS_ID = bytes.fromhex("0B0D020000000000C000000000000046")
ONE_OFF_PROVIDER = bytes.fromhex("812B1FA4BEA310199D6E00DD010F5402")
LONG, STRING8, BINARY = 0x0003, 0x001E, 0x0102
READABLE_AND_WRITABLE = 6
WITHOUT_UNICODE = 0x00000E79  # Store support mask: its bit 0x40000 would announce strings in Unicode.


def encoded(text):
    return text.encode("windows-1252")


def one_off(name, address):
    """The entry id of a sender who stands in no address book: an answer to the message needs it."""
    strings = b"".join(encoded(part) + b"\0" for part in (name, "SMTP", address))
    return bytes(4) + ONE_OFF_PROVIDER + bytes(4) + strings


def properties(source):
    """The message's properties as (id, type, value)."""
    sender = source["From"].addresses[0]
    subject = source["Subject"]
    text = source.get_content().rstrip("\n").replace("\n", "\r\n") + "\r\n"
    found = [
        (0x001A, STRING8, "IPM.Note"),
        (0x0037, STRING8, subject),
        (0x0070, STRING8, subject),  # The conversation's topic.
        (0x0E1D, STRING8, subject),  # Without prefixes such as "RE:".
        (0x1000, STRING8, text),
        (0x0E07, LONG, 0),  # Neither read (1) nor unsent (8).
        (0x340D, LONG, WITHOUT_UNICODE),
        (0x3FDE, LONG, 1252),  # The code pages of the body and of all strings.
        (0x3FFD, LONG, 1252),
    ]
    # The sender, and whom the sender stands for: the same.
    for entry_id, name, kind, address in ((0x0C19, 0x0C1A, 0x0C1E, 0x0C1F), (0x0041, 0x0042, 0x0064, 0x0065)):
        found += [
            (entry_id, BINARY, one_off(sender.display_name, sender.addr_spec)),
            (name, STRING8, sender.display_name),
            (kind, STRING8, "SMTP"),
            (address, STRING8, sender.addr_spec),
        ]
    return sorted(found)


def message(source):
    """The bytes of the message file."""
    # Named properties: there are none, but their table must be there.
    root = {"__nameid_version1.0": {f"__substg1.0_{tag}": b"" for tag in ("00020102", "00030102", "00040102")}}
    table = bytes(32)  # No recipients, no attachments.
    for number, kind, value in properties(source):
        if kind == LONG:
            entry = struct.pack("<II", value, 0)
        else:
            data = encoded(value) if kind == STRING8 else value
            if not data:  # Outlook 2003 to 2010 refuse the file.
                raise ValueError(f"property {number:04X} is empty")
            root[f"__substg1.0_{number:04X}{kind:04X}"] = data
            # The size of a string counts the zero that the stream leaves out.
            entry = struct.pack("<II", len(data) + (kind == STRING8), 0)
        table += struct.pack("<HHI", kind, number, READABLE_AND_WRITABLE) + entry
    root["__properties_version1.0"] = table
    return CompoundFile(MESSAGE_CLASS_ID, root).to_bytes()


def main(arguments):
    if len(arguments) != 2:
        print(__doc__, file=sys.stderr)
        return 2
    source, output = map(Path, arguments)
    try:
        output.write_bytes(message(email.message_from_bytes(source.read_bytes(), policy=email.policy.default)))
    except (ValueError, LookupError, OSError) as error:
        print(f"makeMsg: {source}: {error}", file=sys.stderr)
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
