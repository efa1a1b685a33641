"""The help as web pages in docs/help/, which work from disk."""

import render

MARK = "veltro.svg"


class Start:
    """The start page, which is nothing but the contents."""

    path, title = render.START, "All topics"

    def __init__(self, contents):
        self.contents = contents

    def body(self):
        return self.contents


def files_of(help, mark):
    """All files of docs/help, as bytes by path."""
    book = next(book for book in help.books if book.name == "Veltro")
    pages = [(page, render.contents(help, book, page.path)) for page in help.pages_of(book)]
    pages.append((Start(render.contents(help, book, render.START)), ""))
    files = {page.path: render.whole(page, book, MARK, contents).encode("ascii") for page, contents in pages}
    files |= {picture: (help.folder / picture).read_bytes() for picture in help.pictures_of(book)}
    return files | {"style.css": (help.folder / "style.css").read_bytes(), MARK: mark}


def present(folder):
    return {path.relative_to(folder).as_posix(): path.read_bytes() for path in folder.rglob("*") if path.is_file()}


def behind(folder, files):
    """The files of the folder that differ from what they should be."""
    there = present(folder)
    return sorted(path for path in there | files if there.get(path) != files.get(path))


def write(folder, files):
    for path in behind(folder, files):
        if path in files:
            (folder / path).parent.mkdir(parents=True, exist_ok=True)
            (folder / path).write_bytes(files[path])
        else:
            (folder / path).unlink()
