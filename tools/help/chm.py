"""Help files for Windows' viewer: made by chmcmd, read back by extract_chmLib."""

import subprocess
import tempfile
from html import escape
from pathlib import Path

import render

MARK = "veltro.png"

# The window: contents, index and search at the left, which follow the page; its place is remembered. Buttons to
# hide them, to go back and home, to print, and for options.
WINDOW_PROPERTIES, WINDOW_BUTTONS = 0x42520, 0x304E
# Left, top, right and bottom, the first time.
WINDOW_PLACE = "60,40,1040,740"

PROJECT = """[OPTIONS]
Compatibility=1.1 or later
Compiled file={name}.chm
Contents file={name}.hhc
Index file={name}.hhk
Binary Index=No
Default topic={first}
Default Window=main
Title={title}
Language=0x409 English (United States)
Full-text search=Yes

[WINDOWS]
main="{title}","{name}.hhc","{name}.hhk","{first}","{first}",,,,,{properties:#x},240,{buttons:#x},[{place}],,,,0,0,0,0

[FILES]
{files}
"""

LIST = """<!DOCTYPE HTML PUBLIC "-//IETF//DTD HTML//EN">
<html>
<body>
{lines}
</body>
</html>
"""


def entry(*parameters):
    """A line of the contents or the index."""
    inner = "".join(f'<param name="{key}" value="{escape(value)}">' for key, value in parameters)
    return f'<li><object type="text/sitemap">{inner}</object>'


def topic(page):
    return ("Name", page.title), ("Local", page.path)


def contents(help, book):
    lines = ["<ul>"]
    for chapter, paths in book.chapters:
        lines += [entry(("Name", chapter)), "<ul>", *(entry(*topic(help.pages[path])) for path in paths), "</ul>"]
    return LIST.format(lines="\n".join(lines + ["</ul>"]))


def index(help, book):
    topics = {}
    for page in help.pages_of(book):
        for word in page.keywords:
            topics.setdefault(word, []).extend(topic(page))
    lines = [entry(("Name", word), *topics[word]) for word in sorted(topics, key=str.lower)]
    return LIST.format(lines="\n".join(["<ul>", *lines, "</ul>"]))


def files_of(help, book, mark):
    """Everything that belongs into the help file, as bytes by path."""
    files = {page.path: render.whole(page, book, MARK).encode("ascii") for page in help.pages_of(book)}
    files |= {picture: (help.folder / picture).read_bytes() for picture in help.pictures_of(book)}
    return files | {"style.css": (help.folder / "style.css").read_bytes(), MARK: mark}


def compile_book(help, book, mark, target):
    """Makes <target>/<name>.chm and gives what went wrong, as an independent reader sees it."""
    chm = target / f"{book.name}.chm"
    chm.unlink(missing_ok=True)
    with tempfile.TemporaryDirectory() as temporary:
        folder = Path(temporary)
        files = files_of(help, book, mark)
        project = PROJECT.format(
            name=book.name,
            title=book.title,
            first=book.pages()[0],
            files="\n".join(files),
            properties=WINDOW_PROPERTIES,
            buttons=WINDOW_BUTTONS,
            place=WINDOW_PLACE,
        )
        files[f"{book.name}.hhc"] = contents(help, book).encode("ascii")
        files[f"{book.name}.hhk"] = index(help, book).encode("ascii")
        for path, data in {**files, f"{book.name}.hhp": project.encode("ascii")}.items():
            (folder / path).parent.mkdir(parents=True, exist_ok=True)
            (folder / path).write_bytes(data)
        # Its status says nothing: it is 0 for much that is missing.
        run = subprocess.run(
            ["chmcmd", "--no-html-scan", f"{book.name}.hhp"], cwd=folder, capture_output=True, text=True, check=False
        )
        made = folder / f"{book.name}.chm"
        if not made.exists():
            return [f"{chm.name}: not made: {run.stdout.strip()}"]
        chm.write_bytes(made.read_bytes())
    return faults_of(chm, files, book)


def faults_of(chm, files, book):
    """Holds a help file against what should be in it."""
    with tempfile.TemporaryDirectory() as temporary:
        folder = Path(temporary)
        run = subprocess.run(["extract_chmLib", chm, folder], capture_output=True, check=False)
        if run.returncode:
            return [f"{chm.name}: cannot be read"]
        found = {
            path.relative_to(folder).as_posix(): path.read_bytes() for path in folder.rglob("*") if path.is_file()
        }
    faults = [f"{chm.name}: lacks {path}" for path in files if path not in found]
    faults += [f"{chm.name}: spoiled: {path}" for path in files if found.get(path, files[path]) != files[path]]
    if book.pages()[0].encode("ascii") not in found.get("#SYSTEM", b""):
        faults.append(f"{chm.name}: does not open at its first page")
    if not found.get("#WINDOWS"):
        faults.append(f"{chm.name}: has no window with search")
    if not found.get("$FIftiMain"):
        faults.append(f"{chm.name}: cannot be searched")
    return faults
