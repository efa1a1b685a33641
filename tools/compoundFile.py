"""The compound file: a file system of storages and streams in one file, as Office keeps its documents."""

import struct

SECTOR, MINI_SECTOR = 512, 64
MINI_CUTOFF = 4096  # Streams shorter than this lie in the mini stream.
NOTHING, CHAIN_END, FAT_SECTOR = 0xFFFFFFFF, 0xFFFFFFFE, 0xFFFFFFFD
STORAGE, STREAM, ROOT = 1, 2, 5
MAGIC = b"\xd0\xcf\x11\xe0\xa1\xb1\x1a\xe1"
MOST_FAT_SECTORS = 109  # That is how many the header names; more would need sectors of their own.


class CompoundFile:
    """Makes one, of version 3. `root` maps names to the bytes of streams or to the likes of itself."""

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
            raise ValueError("too much for one file")
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
            "<8s16xHHHHH10x9I", MAGIC, 0x3E, 3, 0xFFFE, 9, 6,
            fat_count, self.directory_start, 0, MINI_CUTOFF, self.mini_fat_start, self.mini_fat_sectors,
            CHAIN_END, 0, fat_places[0])  # fmt: skip
        rest = fat_places[1:] + [NOTHING] * (MOST_FAT_SECTORS - fat_count)
        return header + struct.pack(f"<{len(rest)}I", *rest) + self.sectors


def read(data):
    """A file's class id and its root, as CompoundFile takes them. Raises ValueError for what is no such file."""
    if data[:8] != MAGIC:
        raise ValueError("not a compound file")

    def chain(table, unit, start, content):
        pieces = []
        while start != CHAIN_END:
            pieces.append(content[start * unit : start * unit + unit])
            start = table[start]
        return b"".join(pieces)

    def numbers(table):
        return struct.unpack(f"<{len(table) // 4}I", table)

    sectors = data[SECTOR:]
    directory_start, mini_fat_start = struct.unpack_from("<I8xI", data, 48)
    fat_places = [place for place in struct.unpack_from("<109I", data, 76) if place != NOTHING]
    fat = numbers(b"".join(sectors[place * SECTOR : place * SECTOR + SECTOR] for place in fat_places))
    mini_fat = numbers(chain(fat, SECTOR, mini_fat_start, sectors))
    entries = [*struct.iter_unpack("<64sHBx3I16s20xIQ", chain(fat, SECTOR, directory_start, sectors))]
    mini = chain(fat, SECTOR, entries[0][7], sectors)

    def children(number):
        if number == NOTHING:
            return {}
        units, length, kind, left, right, child, _, start, size = entries[number]
        if kind == STORAGE:
            content = children(child)
        elif size >= MINI_CUTOFF:
            content = chain(fat, SECTOR, start, sectors)[:size]
        else:
            content = chain(mini_fat, MINI_SECTOR, start, mini)[:size]
        return {units[: length - 2].decode("utf-16-le"): content} | children(left) | children(right)

    return entries[0][6], children(entries[0][5])
