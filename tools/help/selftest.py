"""Shows that each fault is found: a small help, and what is spoiled in it."""

import tempfile
from pathlib import Path

import allsettings
import checks
import chm
import pages
import web

PAGE = '<title>{0}</title>\n<meta name="keywords" content="{0}; sending">\n<p>{1}</p>\n'
GOOD = {
    "help/Veltro.book": "Help\nFirst\n    A b/one.htm\n    two.htm\n",
    "help/Manual.book": "Manual\nAll\n    two.htm\n",
    "help/A b/one.htm": PAGE.format(
        "One", '<a href="../two.htm#end">Two</a> <img src="../pictures/x.png" alt="x"> <b>&lt; Save</b> says '
        "<blockquote>Send it to <i>Ann</i> now?</blockquote> to ann@example.com"
    ),
    "help/two.htm": PAGE.format("Two", '<a id="end" href="#end">End</a>'),
    "help/style.css": "p { margin: 0 }\n",
    "help/pictures/x.png": "a picture",
    "addin/help.cpp": 'L"A%20b/one.htm", L"Manual.chm", L"< &Save", L"Send it "\n L"to " + name + L" now?"',
}
# What is spoiled in a file, and what is said of it. No text: the file is missing.
BAD = [
    ("help/two.htm", PAGE.format("Two", "End"), "no such place on the page: ../two.htm#end"),
    ("help/two.htm", None, "no such page: two.htm"),
    ("help/two.htm", PAGE.format("Two", '<a id="end" href="three.htm">'), "broken link: three.htm"),
    ("help/two.htm", PAGE.format("Two", '<a id="end" href="A%20b/one.htm">1</a>'), "leads out of Manual.chm"),
    ("help/two.htm", PAGE.format("Two", '<a id="end" href="#end"><b>Save</a></b>'), "closes nothing"),
    ("help/two.htm", PAGE.format("Two", '<i id="end">\xe9</i>'), "other characters than ASCII"),
    ("help/two.htm", PAGE.format("Two", '<i id="end">at www.place.test</i>'), "may not exist: www.place.test"),
    ("help/two.htm", PAGE.format("Two", '<i id="end">a@place.test</i>'), "may not exist: a@place.test"),
    ("help/two.htm", PAGE.format("Two", '<b id="end">Store</b>'), "the product shows no such text: Store"),
    ("help/two.htm", PAGE.format("Two", '<b id="end">Send it</b>'), "the product shows no such text: Send it"),
    ("help/two.htm", PAGE.format("Two", '<i id="end">End</i><p>'), "<p> is not closed"),
    ("help/two.htm", PAGE.format("Two", '<img id="end" src="pictures/x.png">'), "no alt text: pictures/x.png"),
    ("help/two.htm", '<i id="end">bare</i>', "no title"),
    ("help/two.htm", '<title>Two</title><i id="end">bare</i>', "no keywords"),
    ("help/three.htm", PAGE.format("Three", ""), "three.htm: in no contents"),
    ("help/pictures/x.png", None, "no such picture: ../pictures/x.png"),
    ("help/pictures/y.png", "another", "y.png: on no page"),
    ("help/Manual.book", None, "Manual.book: missing"),
    ("help/Veltro.book", "Help\nFirst\n    two.htm\n    two.htm\n", "listed twice: two.htm"),
    ("help/Veltro.book", "Help\nFirst\n    two.htm\n", "lacks A b/one.htm, which the product opens"),
]


def put(root, files):
    for name, text in files.items():
        path = root / name
        path.parent.mkdir(parents=True, exist_ok=True)
        if text is None:
            path.unlink()
        else:
            path.write_text(text, encoding="latin-1")


def source_faults(changes):
    with tempfile.TemporaryDirectory() as folder:
        root = Path(folder)
        put(root, GOOD)
        put(root, changes)
        return checks.check(pages.Help(root / "help"), root)


def book_results():
    """What is said of a good help file, and of spoiled ones."""
    with tempfile.TemporaryDirectory() as folder:
        root = Path(folder)
        put(root, GOOD)
        help = pages.Help(root / "help")
        book = help.books[-1]
        yield "", chm.compile_book(help, book, b"the mark", root)
        made, whole = root / "Veltro.chm", (root / "Veltro.chm").read_bytes()
        files = chm.files_of(help, book, b"the mark")
        yield "lacks three.htm", chm.faults_of(made, files | {"three.htm": b""}, book)
        yield "spoiled: two.htm", chm.faults_of(made, files | {"two.htm": b"other"}, book)
        for spoiled in (b"", whole[: len(whole) // 2]):
            made.write_bytes(spoiled)
            yield "Veltro.chm", chm.faults_of(made, files, book)


def web_results():
    """A folder of web pages, before it is written, written, and spoiled."""
    with tempfile.TemporaryDirectory() as folder:
        root = Path(folder)
        put(root, GOOD)
        files = web.files_of(pages.Help(root / "help"), b"the mark")
        made = root / "web"
        yield "A b/one.htm", web.behind(made, files)
        web.write(made, files)
        yield "", web.behind(made, files)
        put(made, {"two.htm": "other", "three.htm": "left over"})
        yield "two.htm", web.behind(made, files)
        yield "three.htm", web.behind(made, files)
        web.write(made, files)
        yield "", web.behind(made, files)


def table_result():
    made = allsettings.html("**A & B**\n\n| Name | For |\n|---|---|\n| `x` | `a;b` < 1 |\n")
    wanted = (
        "<h2>A &amp; B</h2>\n<table>\n<tr><th>Name</th><th>For</th></tr>\n"
        "<tr><td><code>x</code></td><td><code>a;<wbr>b</code> &lt; 1</td></tr>\n</table>\n"
    )
    return "", [] if made == wanted else ["tables: " + made]


def run():
    results = [("", source_faults({})), table_result()]
    results += [(expected, source_faults({name: text})) for name, text, expected in BAD]
    results += [*book_results(), *web_results()]
    wrong = [
        f"expected {expected or 'no fault'}: {faults}"
        for expected, faults in results
        if not (any(expected in fault for fault in faults) if expected else not faults)
    ]
    print("\n".join(wrong + [f"help: self-test: {len(results)} cases, {len(wrong)} wrong"]))
    return 1 if wrong else 0
