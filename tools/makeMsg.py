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

# --- the compound file: a file system of storages and streams in one file -----------------------------------

SECTOR, MINI_SECTOR = 512, 64
MINI_CUTOFF = 4096  # Streams shorter than this lie in the mini stream.
NOTHING, CHAIN_END, FAT_SECTOR = 0xFFFFFFFF, 0xFFFFFFFE, 0xFFFFFFFD
STORAGE, STREAM, ROOT = 1, 2, 5
MOST_FAT_SECTORS = 109  # That is how many the header names; more would need sectors of their own.


class CompoundFile:
    """Version 3. `root` maps names to the bytes of streams or to the likes of itself."""

    def __init__(self, class_id, root):
        self.sectors, self.fat = b"", []
        self.mini, self.mini_fat = b"", []
        self.entries = [None]
        child = self.add_children(root)
        mini_start = self.add_sectors(self.mini)
        self.entries[0] = self.entry("Root Entry", ROOT, child, mini_start, len(self.mini), class_id)
        self.mini_fat_sectors = -(-len(self.mini_fat) * 4 // SECTOR)
        self.mini_fat_start = self.add_sectors(self.table(self.mini_fat))
        while len(self.entries) * 128 % SECTOR:
            self.entries.append(struct.pack("<68x3I48x", NOTHING, NOTHING, NOTHING))
        self.directory_start = self.add_sectors(b"".join(self.entries))
        self.fat_start = len(self.fat)
        while len(self.table(self.fat)) > SECTOR * (len(self.fat) - self.fat_start):
            self.fat.append(FAT_SECTOR)
        if len(self.fat) - self.fat_start > MOST_FAT_SECTORS:
            raise ValueError("the message is too long")
        self.sectors += self.table(self.fat)

    @staticmethod
    def entry(name, kind, child=NOTHING, start=0, size=0, class_id=bytes(16), left=NOTHING, right=NOTHING):
        """A directory entry. All are black, which makes a valid tree of any shape."""
        units = (name + "\0").encode("utf-16-le")
        return struct.pack("<64sHBB3I16s20xIQ", units, len(units), kind, 1, left, right, child, class_id, start, size)

    @staticmethod
    def table(numbers):
        """The numbers as whole sectors."""
        padded = numbers + [NOTHING] * (-len(numbers) % (SECTOR // 4))
        return struct.pack(f"<{len(padded)}I", *padded)

    @staticmethod
    def chain(table, data, unit):
        """Adds a chain for the data to an allocation table: where it starts, and the data in whole sectors."""
        if not data:
            return CHAIN_END, b""
        start, count = len(table), -(-len(data) // unit)
        table += [*range(start + 1, start + count), CHAIN_END]
        return start, data.ljust(count * unit, b"\0")

    def add_sectors(self, data):
        start, padded = self.chain(self.fat, data, SECTOR)
        self.sectors += padded
        return start

    def add_stream(self, data):
        if len(data) >= MINI_CUTOFF:
            return self.add_sectors(data)
        start, padded = self.chain(self.mini_fat, data, MINI_SECTOR)
        self.mini += padded
        return start

    def add_children(self, children):
        """Adds the entries of a storage's children, as a search tree; gives the number of its top."""
        # Shorter names come first.
        return self.add_tree(sorted(children.items(), key=lambda child: (len(child[0]), child[0].upper())))

    def add_tree(self, children):
        if not children:
            return NOTHING
        number, middle = len(self.entries), len(children) // 2
        self.entries.append(None)
        name, content = children[middle]
        left, right = self.add_tree(children[:middle]), self.add_tree(children[middle + 1 :])
        if isinstance(content, dict):
            made = self.entry(name, STORAGE, self.add_children(content), left=left, right=right)
        else:
            made = self.entry(name, STREAM, NOTHING, self.add_stream(content), len(content), left=left, right=right)
        self.entries[number] = made
        return number

    def to_bytes(self):
        fat_count = len(self.fat) - self.fat_start
        fat_places = [*range(self.fat_start, self.fat_start + fat_count)]
        header = struct.pack(
            "<8s16xHHHHH10x9I", b"\xd0\xcf\x11\xe0\xa1\xb1\x1a\xe1", 0x3E, 3, 0xFFFE, 9, 6,
            fat_count, self.directory_start, 0, MINI_CUTOFF, self.mini_fat_start, self.mini_fat_sectors,
            CHAIN_END, 0, fat_places[0])  # fmt: skip
        rest = fat_places[1:] + [NOTHING] * (MOST_FAT_SECTORS - fat_count)
        return header + struct.pack(f"<{len(rest)}I", *rest) + self.sectors


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
