#!/usr/bin/python3
"""Holds a template that tools/makeDot.py made to its sources, as gsf-vba-dump and LibreOffice read it.

    tools/checkDot.py TEMPLATE.dot
    tools/checkDot.py --self-test   checks makeDot with a long module, and the checker with broken files

LibreOffice also runs the macros, on an object that notes what is asked of it. Prints a line for each fault and ends
with status 1 when there are any. Runs in Debian's own Python, the only one that LibreOffice has a library for.
"""

import re
import struct
import sys
import tempfile
from pathlib import Path

import compoundFile
import libreOffice
import makeDot
from libreOffice import UnoException
from programs import output_of

CLASS_ID = bytes.fromhex("0609020000000000C000000000000046")
WORD_FILE, TEMPLATE_FLAG = 0xA5EC, 1  # The first number of a Word file, and a bit of its sixth.
PROGRAM_ID = "Veltro.Buttons"
# What each macro asks of the object, and with how many arguments.
MACROS = {
    "vtEmptySubjectCheckWord": ("EmptySubjectCheck", 2),
    "vtDelayEmailSendingWord": ("DelayEmailSending", 2),
    "vtAddEmail": ("AddEmailAddressToList", 2),
    "vtPrefAcctExistsFalse": ("PrefAcctExistsFalse", 4),
    "vtSelPostroute": ("SelPostroute", 3),
}

# --- the readers -----------------------------------------------------------------------------------------------


def word_faults(path):
    """No reader looks at this. Nor at what is only for VBA's editor: makeDot's self-test does."""
    class_id, root = compoundFile.read(path.read_bytes())
    kind, flags = struct.unpack_from("<H8xH", root["WordDocument"])
    if class_id != CLASS_ID or kind != WORD_FILE or not flags & TEMPLATE_FLAG:
        yield "it is no template of Word"


def gsf_faults(sources, path):
    output = output_of("gsf-vba-dump", str(path))
    modules = re.findall(rb'<module name="(.*?)">\n<!\[CDATA\[(.*?)\]\]>\n</module>', output, re.S)
    wanted = {makeDot.DOCUMENT: makeDot.DOCUMENT_SOURCE} | sources
    read = {name.decode(errors="replace"): source for name, source in modules}
    if set(read) != set(wanted):
        yield f"gsf-vba-dump reads the modules {', '.join(read) or '(none)'}"
    for name in wanted.keys() & read.keys():
        source = wanted[name].replace(b"\n", b"\r\n")
        # It also writes what follows the source in its own memory.
        if not read[name].startswith(source) or b"\n" in read[name][len(source) :]:
            yield f"gsf-vba-dump reads another {name}"


def as_basic(source, kind="VBAModule"):
    """A module's source as LibreOffice shows it: with a head of its own, without attributes."""
    lines = [line for line in source.decode("ascii").split("\n") if not line.startswith("Attribute ")]
    return "\n".join([f"Rem Attribute VBA_ModuleType={kind}", "Option VBASupport 1", *lines, ""])


def office_faults(sources, document):
    libraries = document.BasicLibraries
    if makeDot.PROJECT not in libraries.ElementNames:
        yield f"LibreOffice reads the projects {', '.join(libraries.ElementNames)}"
        return
    library = libraries.getByName(makeDot.PROJECT)
    wanted = {name: as_basic(source) for name, source in sources.items()}
    wanted[makeDot.DOCUMENT] = as_basic(b"", "VBADocumentModule")
    read = {name: library.getByName(name) for name in library.ElementNames}
    for name in sorted(wanted.keys() | read.keys()):
        if read.get(name) != wanted.get(name):
            yield f"LibreOffice reads another {name}"


# --- the macros ------------------------------------------------------------------------------------------------


class Buttons:
    """Makes the object that the macros create, and notes what they ask of it."""

    def __init__(self):
        self.way, self.calls = "answering", []

    def create(self, name):
        if name != PROGRAM_ID or self.way == "absent":
            return None
        return libreOffice.AutomationObject(self.call)

    def call(self, name, arguments):
        self.calls.append((name, *arguments))
        if self.way == "failing":
            raise libreOffice.UnoRuntimeException("told to fail", None)
        return f"what {name} answers"


# A macro whose error shows ends a script just as an empty answer does, unless something else in Basic called it.
CALLER = """\
Option VBASupport 1
Public Function Called_{macro}({arguments}) As Variant
    On Error GoTo Failed
    Called_{macro} = {macro}({arguments})
    Exit Function
Failed:
    Called_{macro} = "error " & Err.Number
End Function
"""


def run(document, macro, arguments):
    """What a macro gives."""
    library = document.BasicLibraries.getByName(makeDot.PROJECT)
    name = f"CallerOf_{macro}"
    if not library.hasByName(name):
        names = ", ".join(f"A{number}" for number in range(len(arguments)))
        library.insertByName(name, CALLER.format(macro=macro, arguments=names))
    place = f"vnd.sun.star.script:{makeDot.PROJECT}.{name}.Called_{macro}?language=Basic&location=document"
    result, _, _ = document.getScriptProvider().getScript(place).invoke(arguments, (), ())
    return None if result == "" else result  # LibreOffice has an empty text for an empty result.


def macro_faults(sources, document, buttons):
    written = re.findall(r"^Public Function (\w+)", sources["VeltroMacros"].decode("ascii"), re.M)
    if set(written) != set(MACROS):
        yield "there are other macros than those that are tried"
    for macro, (method, count) in MACROS.items():
        arguments = tuple(f"argument {number}" for number in range(count))
        asked = [(method, *arguments)]
        for buttons.way, calls, result in (
            ("answering", asked, f"what {method} answers"),
            ("failing", asked, None),
            ("absent", [], None),
        ):
            buttons.calls = []
            try:
                found = run(document, macro, arguments)
            except UnoException as error:
                yield f"{macro}, Veltro {buttons.way}: {error.Message}"
                continue
            if (buttons.calls, found) != (calls, result):
                yield f"{macro}, Veltro {buttons.way}: asks {buttons.calls} and gives {found!r}"


# --- all of it -------------------------------------------------------------------------------------------------


class Checker:
    def __init__(self, office, buttons):
        self.office, self.buttons = office, buttons

    def opened_faults(self, sources, path):
        with self.office.opened(path) as document:
            faults = list(office_faults(sources, document))
            # What is read wrongly need not be run.
            return faults or list(macro_faults(sources, document, self.buttons))

    def check(self, sources, path):
        """The faults of a template, one text each."""
        faults = []
        for look in (
            lambda: word_faults(path),
            lambda: gsf_faults(sources, path),
            lambda: self.opened_faults(sources, path),
        ):
            try:
                faults += look()
            except (ValueError, LookupError, OSError, struct.error) as error:
                faults.append(str(error))
            except UnoException as error:
                faults.append(error.Message)
        return faults


# --- the self-test ---------------------------------------------------------------------------------------------


def replaced(data, old, new):
    if old not in data:
        raise ValueError(f"nothing to break: {old!r}")
    return data.replace(old, new, 1)


def in_stream(name, old, new):
    def change(root):
        storage = root if name in root else root["Macros"]
        storage[name] = replaced(storage[name], old, new)

    return change


def in_directory(old, new):
    def change(root):
        modules = [makeDot.DOCUMENT, *sorted(makeDot.sources())]
        root["Macros"]["VBA"]["dir"] = makeDot.compressed(replaced(makeDot.directory(modules), old, new))

    return change


def elsewhere(root):
    """Has VeltroMacros start behind its start."""
    right = makeDot.module("VeltroMacros")
    wrong = replaced(right, makeDot.long(0x31, 0), makeDot.long(0x31, 1))
    in_directory(right, wrong)(root)


def in_code(change_of_code):
    def change(root):
        modules = root["Macros"]["VBA"]
        modules["VeltroMacros"] = change_of_code(modules["VeltroMacros"])

    return change


def renamed(path, name):
    def change(root):
        *storages, old = path
        for storage in storages:
            root = root[storage]
        root[name] = root.pop(old)

    return change


BOTH_READERS = "gsf-vba-dump", "LibreOffice"
# What is wrong with a file, how it comes to be, and what is then told.
BROKEN = {
    "a module that starts elsewhere": (elsewhere, BOTH_READERS),
    "half a module": (in_code(lambda code: code[: len(code) // 2]), BOTH_READERS),
    "a module with a changed letter": (in_code(lambda code: replaced(code, b"x", b"y")), BOTH_READERS),
    "a lost module": (renamed(("Macros", "VBA", "VeltroMacros"), "VeltroMacro"), BOTH_READERS),
    "macros elsewhere": (renamed(("Macros",), "Makros"), BOTH_READERS),
    "another name of the project": (in_directory(b"Veltro", b"Valtro"), ("LibreOffice reads the projects",)),
    "another name of a module": (in_directory(b"VeltroHelper", b"VeltroHelpar"), ("gsf-vba-dump reads the modules",)),
    "a module as a class": (in_stream("PROJECT", b"Module=V", b"Class=V"), ("LibreOffice reads another",)),
    "a document": (in_stream("WordDocument", b"\xf1\x12\xbf", b"\xf0\x12\xbf"), ("no template",)),
    "no file of Word": (in_stream("WordDocument", b"\xec\xa5", b"\xec\xa4"), ("no template",)),
}
# Macros that are read as they were written, and do not what they must: the change of the sources, and what is then
# told.
MISBEHAVING = {
    "arguments in another order": (b"(Item, Cancel)\n", b"(Cancel, Item)\n", "'argument 1', 'argument 0'"),
    "an argument less": (b"(AccountInUse, PreferredAccount, ", b"(AccountInUse, ", "Veltro answering: asks"),
    "another method": (b"Buttons.DelayEmailSending", b"Buttons.EmptySubjectCheck", "asks [('EmptySubjectCheck'"),
    "a lost answer": (b"vtAddEmail = Buttons", b"Address = Buttons", "vtAddEmail, Veltro answering: asks"),
    "an answer without Veltro": (b"If Buttons Is Nothing Then", b"vtEmptySubjectCheckWord = True\n   '", "absent"),
    "an error that shows": (b"On Error Resume Next", b"On Error GoTo 0", "Veltro failing: asks"),
    "a macro that does not compile": (b"Exit Function", b"Exit Funktion", "asks [] and gives None"),
    "a macro that is not tried": (b"\nPublic", b"\nPublic Function vtOther()\nEnd Function\nPublic", "other macros"),
}


class SelfTest:
    def __init__(self, checker, folder):
        self.checker, self.file = checker, folder / "tried.dot"
        self.sources, self.faults, self.count = makeDot.sources(), [], 0

    def told(self, sources, data):
        self.file.write_bytes(data)
        return self.checker.check(sources, self.file)

    def expect(self, passed, what):
        self.count += 1
        if not passed:
            self.faults.append(what)

    def long_module(self):
        # More than VBA compresses at once, and than a small stream holds. Not just any text: gsf-vba-dump loses its
        # way in one whose first 4096 bytes, or next ones, come to a whole number of eights of tokens.
        lines = b"".join(b"' %d line %d\n" % (7 * number, number**3) for number in range(400))
        sources = {"Long": b'Attribute VB_Name = "Long"\n' + lines, "Short": b'Attribute VB_Name = "Short"\n'}
        self.file.write_bytes(makeDot.template(sources))
        told = list(gsf_faults(sources, self.file))
        with self.checker.office.opened(self.file) as document:
            told += office_faults(sources, document)
        self.expect(not told, f"a long module: {told}")

    def broken_files(self):
        whole = makeDot.template(self.sources)
        for kind, (change, wanted) in BROKEN.items():
            class_id, root = compoundFile.read(whole)
            change(root)
            told = "\n".join(self.told(self.sources, compoundFile.CompoundFile(class_id, root).to_bytes()))
            self.expect(all(text in told for text in wanted), f"{kind}: {told or 'not noticed'}")
        other_class = compoundFile.CompoundFile(bytes(16), compoundFile.read(whole)[1]).to_bytes()
        half = whole[: len(whole) // 2]
        for kind, data in (("another class", other_class), ("half a file", half), ("an empty file", b"")):
            self.expect(self.told(self.sources, data), f"{kind}: not noticed")

    def macros(self):
        for kind, (old, new, wanted) in MISBEHAVING.items():
            sources = self.sources | {"VeltroMacros": replaced(self.sources["VeltroMacros"], old, new)}
            told = "\n".join(self.told(sources, makeDot.template(sources)))
            self.expect(wanted in told and "reads" not in told, f"{kind}: {told or 'not noticed'}")

    def run(self):
        self.long_module()
        self.broken_files()
        self.macros()
        print("\n".join(self.faults + [f"checkDot: self-test of {self.count} cases, {len(self.faults)} faults"]))
        return self.faults


def main(arguments):
    if len(arguments) != 1:
        print(__doc__, file=sys.stderr)
        return 2
    try:
        buttons = Buttons()
        with libreOffice.started(buttons.create) as office, tempfile.TemporaryDirectory() as folder:
            checker = Checker(office, buttons)
            if arguments[0] == "--self-test":
                return 1 if SelfTest(checker, Path(folder)).run() else 0
            faults = checker.check(makeDot.sources(), Path(arguments[0]))
    except (ValueError, OSError) as error:
        faults = [str(error)]
    print("\n".join(faults + [f"checkDot: {arguments[0]}: {len(faults)} faults"]))
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
