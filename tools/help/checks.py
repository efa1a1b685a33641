"""What must be true of the help's sources, beside the product's code."""

import re

ROOMS = ["mail", "settings", "accounts", "support", "update", "checks", "addin"]
# Adjacent literals; not the names of Outlook's members.
LITERALS = re.compile(r'(?<!\bcall\()(?<!\bget\()(?<!\bput\()(?:L"(?:[^"\\]|\\.)*"\s*)+')
LITERAL = re.compile(r'L"((?:[^"\\]|\\.)*)"')
# A web address with a host, or a mail address outside the domains that are kept free for examples.
PLACE = re.compile(r"://\w\S*|\bwww\.\S+|[\w.]+@(?!example\.(?:com|net|org)\b)\w[\w.]*")
# A shorter text that the product shows must be all of what it shows there.
SENTENCE = 20


def plain(text):
    """Without access keys and layout."""
    return " ".join(text.replace("&", "").split()).rstrip(": ")


def literals(root):
    """The texts of the product's sources."""
    texts = set()
    for room in ROOMS:
        for path in sorted((root / room).rglob("*")):
            if path.suffix in (".h", ".cpp"):
                for group in LITERALS.findall(path.read_text(encoding="utf-8")):
                    joined = "".join(LITERAL.findall(group))
                    texts.add(re.sub(r"\\[rn]", " ", joined).replace('\\"', '"').replace("\\\\", "\\"))
    library = root / "resources/library.txt"
    texts.update(re.findall(r"^\d+=(.*)$", library.read_text(encoding="utf-8"), re.M) if library.exists() else [])
    return texts


def opened(texts):
    """The help files and topics that the product opens."""
    books = {text.removesuffix(".chm") for text in texts if text.endswith(".chm")}
    topics = {text.replace("%20", " ") for text in texts if text.endswith(".htm")}
    return books, topics


def unknown_texts(page, texts):
    """What the page says is on the screen, but is nowhere in the product."""
    whole = {plain(text) for text in texts}
    everything = "\n".join(whole)

    def known(part, alone):
        part = plain(part)
        if not part:
            return True
        wordings = {part, part.removesuffix(" - Veltro"), part.replace("Veltro", "%"), part.removeprefix("Veltro ")}
        long = not alone or len(part) >= SENTENCE
        return bool(wordings & whole) or (long and any(wording in everything for wording in wordings))

    for tag, shown in page.shown:
        parts = shown.split("\0")
        if not all(known(part, tag == "b" and len(parts) == 1) for part in parts):
            yield shown.replace("\0", "...")


def check_books(help, texts):
    books, topics = opened(texts)
    names = {book.name for book in help.books}
    for name in sorted(books - names):
        yield f"{name}.book: missing, but the product opens {name}.chm"
    for book in help.books:
        listed = book.pages()
        for path in listed:
            if path not in help.pages:
                yield f"{book.name}.book: no such page: {path}"
        for path in sorted({path for path in listed if listed.count(path) > 1}):
            yield f"{book.name}.book: listed twice: {path}"
    everything = next((book.pages() for book in help.books if book.name == "Veltro"), [])
    for path in sorted(topics - set(everything)):
        yield f"Veltro.book: lacks {path}, which the product opens"
    for path in sorted(set(help.pages) - set(everything)):
        yield f"{path}: in no contents; Veltro.book lists all pages"


def check_page(help, page, texts):
    yield from page.faults
    for link in page.links:
        target, anchor = page.resolve(link), link.partition("#")[2]
        if target not in help.pages:
            yield f"broken link: {link}"
        elif anchor and anchor not in help.pages[target].anchors:
            yield f"no such place on the page: {link}"
        for book in help.books:
            if target in help.pages and page.path in book.pages() and target not in book.pages():
                yield f"leads out of {book.name}.chm: {link}"
    for image in page.images:
        if page.resolve(image) not in help.pictures():
            yield f"no such picture: {image}"
    for place in PLACE.findall(page.text + " ".join(page.links)):
        yield f"a place that may not exist: {place}"
    for shown in unknown_texts(page, texts):
        yield f"the product shows no such text: {shown}"


def check(help, root):
    texts = literals(root)
    faults = list(help.faults) + list(check_books(help, texts))
    for page in help.pages.values():
        faults += [f"{page.path}: {fault}" for fault in check_page(help, page, texts)]
    used = {page.resolve(image) for page in help.pages.values() for image in page.images}
    return faults + [f"{picture}: on no page" for picture in sorted(help.pictures() - used)]
