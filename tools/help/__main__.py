"""The product's help, from the sources in resources/help/.

    python3 tools/help                      checks the sources, and that docs/help is up to date
    python3 tools/help --books FOLDER       also makes the help files for Windows in FOLDER, and reads them back
    python3 tools/help --write              brings docs/help up to date
    python3 tools/help --pictures FOLDER    renews the pictures from those that ./dev demo --windows left in FOLDER
    python3 tools/help --self-test          checks that faults are found

The help files need chmcmd (Free Pascal), extract_chmLib (chmlib) and rsvg-convert (librsvg), the pictures convert
(ImageMagick). Status 1: something is wrong.
"""

import argparse
import subprocess
import sys
from pathlib import Path

import allsettings
import checks
import chm
import pages
import pictures
import selftest
import web

ROOT = Path(__file__).resolve().parent.parent.parent
SOURCES = ROOT / "resources/help"
WEB = ROOT / "docs/help"
MARK = ROOT / "resources/veltro.svg"


def drawn_mark():
    """For Windows' viewer, which shows no drawings."""
    command = ["rsvg-convert", "--width", "64", "--height", "64", MARK]
    return subprocess.run(command, check=True, stdout=subprocess.PIPE).stdout


def make_books(help, folder):
    folder.mkdir(parents=True, exist_ok=True)
    mark = drawn_mark()
    return [fault for book in help.books for fault in chm.compile_book(help, book, mark, folder)]


def check_web(files, write):
    if write:
        web.write(WEB, files)
    return [
        f"docs/help/{path}: differs from its source; python3 tools/help --write renews it"
        for path in web.behind(WEB, files)
    ]


def main():
    parser = argparse.ArgumentParser(
        prog="tools/help", description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter
    )
    parser.add_argument("--books", type=Path, metavar="FOLDER")
    parser.add_argument("--write", action="store_true")
    parser.add_argument("--pictures", type=Path, metavar="FOLDER")
    parser.add_argument("--self-test", action="store_true")
    options = parser.parse_args()
    if options.self_test:
        return selftest.run()
    faults = pictures.renew(options.pictures, SOURCES / "pictures") if options.pictures else []
    tables = allsettings.tables(ROOT / "settings/modRegKeys.h")
    help = pages.Help(SOURCES, {allsettings.PLACE: tables})
    faults += checks.check(help, ROOT)
    if not faults:
        faults += check_web(web.files_of(help, MARK.read_bytes()), options.write)
        faults += make_books(help, options.books) if options.books else []
    print("\n".join(faults + [f"help: {len(help.pages)} pages, {len(help.books)} books, {len(faults)} faults"]))
    return 1 if faults or not help.pages else 0


sys.exit(main())
