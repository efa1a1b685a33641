"""The sources of the help: pages, and books that say in which order they stand."""

import posixpath
import re
from dataclasses import dataclass, field
from html.parser import HTMLParser
from pathlib import Path
from urllib.parse import unquote

EMPTY_ELEMENTS = {"meta", "img", "br", "hr", "wbr"}
# What the reader sees on the screen, to be worded as the product words it.
SHOWN = {"b", "blockquote"}
# Stands in a shown text where the product puts a name or number.
VARIABLE = "\0"


@dataclass
class Page(HTMLParser):
    """One page: a title, keywords for the index, and the body below them."""

    path: str
    source: str
    title: str = ""
    keywords: list = field(default_factory=list)
    links: list = field(default_factory=list)
    images: list = field(default_factory=list)
    anchors: set = field(default_factory=set)
    shown: list = field(default_factory=list)
    text: str = ""
    faults: list = field(default_factory=list)

    def __post_init__(self):
        super().__init__()
        self.open, self.shown_text = [], None
        self.feed(self.source)
        self.close()
        self.faults += [f"<{tag}> is not closed" for tag in self.open]
        self.faults += [] if self.title else ["no title"]
        self.faults += [] if self.keywords else ["no keywords"]

    def body(self):
        return re.split(r'<meta name="keywords"[^>]*>\n', self.source, maxsplit=1)[-1]

    def resolve(self, link):
        """The file that a link of this page leads to."""
        target = unquote(link.partition("#")[0])
        return posixpath.normpath(posixpath.join(posixpath.dirname(self.path), target)) if target else self.path

    def handle_starttag(self, tag, attrs):
        attributes = dict(attrs)
        if tag not in EMPTY_ELEMENTS:
            self.open.append(tag)
        if "id" in attributes:
            self.anchors.add(attributes["id"])
        if tag == "a":
            self.links.append(attributes.get("href", ""))
        elif tag == "meta":
            self.keywords += [word.strip() for word in attributes.get("content", "").split(";")]
        elif tag == "img":
            self.images.append(attributes.get("src", ""))
            if not attributes.get("alt"):
                self.faults.append(f"no alt text: {attributes.get('src')}")
        elif tag in SHOWN and self.shown_text is None:
            self.shown_text = ""
        elif tag == "i" and self.shown_text is not None:
            self.shown_text += VARIABLE
        elif self.shown_text is not None:
            self.shown_text += " "

    def handle_endtag(self, tag):
        if not self.open or self.open.pop() != tag:
            self.faults.append(f"</{tag}> closes nothing")
        if tag in SHOWN and not SHOWN.intersection(self.open):
            self.shown.append((tag, self.shown_text or ""))
            self.shown_text = None

    def handle_data(self, data):
        self.text += data
        if self.open[-1:] == ["title"]:
            self.title += data
        if self.shown_text is not None and self.open[-1:] != ["i"]:
            self.shown_text += data


@dataclass
class Book:
    """A help file: its title, and its chapters with the paths of their pages."""

    name: str
    title: str
    chapters: list

    def pages(self):
        return [page for _, pages in self.chapters for page in pages]


def read_book(path):
    """The first line is the title; then each chapter's name and, indented, its pages."""
    lines = [line for line in path.read_text(encoding="ascii").splitlines() if line.strip()]
    chapters = []
    for line in lines[1:]:
        if line.startswith(" "):
            chapters[-1][1].append(line.strip())
        else:
            chapters.append((line, []))
    return Book(path.stem, lines[0], chapters)


class Help:
    """All of resources/help/. Faults are texts that name the file."""

    def __init__(self, folder, made=None):
        """`made`: texts that stand in the pages where the keys are."""
        self.folder = Path(folder)
        self.faults = []
        self.books = [read_book(path) for path in sorted(self.folder.glob("*.book"))]
        self.pages = {}
        for path in sorted(self.folder.rglob("*.htm")):
            name = path.relative_to(self.folder).as_posix()
            try:
                source = path.read_bytes().decode("ascii")
                for place, text in (made or {}).items():
                    source = source.replace(place, text)
                self.pages[name] = Page(name, source)
            except UnicodeDecodeError:
                self.faults.append(f"{name}: other characters than ASCII; write them as &#nnn;")

    def pictures(self):
        return {path.relative_to(self.folder).as_posix() for path in self.folder.glob("pictures/*.png")}

    def pages_of(self, book):
        return [self.pages[path] for path in book.pages() if path in self.pages]

    def pictures_of(self, book):
        return sorted({page.resolve(image) for page in self.pages_of(book) for image in page.images})
