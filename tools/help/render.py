"""Whole pages, for a help file and for the web."""

import posixpath
from html import escape
from urllib.parse import quote

# The web page that is opened first.
START = "index.htm"

PAGE = """<!DOCTYPE html>
<html lang="en">
<head>
<meta http-equiv="Content-Type" content="text/html; charset=windows-1252">
<meta name="viewport" content="width=device-width">
<title>{title}</title>
<link rel="stylesheet" type="text/css" href="{root}style.css">
</head>
<body>
<div class="head"><img src="{root}{mark}" width="32" height="32" alt=""> {book}</div>
{contents}<div class="page">
<h1>{title}</h1>
{body}</div>
</body>
</html>
"""


def root_of(path):
    return "../" * path.count("/")


def whole(page, book, mark, contents=""):
    return PAGE.format(
        title=escape(page.title),
        book=escape(book.title),
        root=root_of(page.path),
        mark=mark,
        contents=contents,
        body=page.body(),
    )


def link(title, path, at):
    """To `path`, from the page at the path `at`."""
    target = quote(posixpath.relpath(path, posixpath.dirname(at) or "."))
    return escape(title) if path == at else f'<a href="{target}">{escape(title)}</a>'


def contents(help, book, at):
    """The contents for the page at the path `at`: the pages of its own chapter, and the other chapters' first. The
    start page has all."""
    lines = ['<div class="contents">']
    if at != START:
        lines.append(f"<h2>{link('All topics', START, at)}</h2>")
    for chapter, paths in book.chapters:
        if at in paths or at == START:
            pages = [f"<li>{link(help.pages[path].title, path, at)}</li>" for path in paths]
            lines += [f"<h2>{escape(chapter)}</h2>", "<ul>", *pages, "</ul>"]
        else:
            lines.append(f"<h2>{link(chapter, paths[0], at)}</h2>")
    return "\n".join(lines) + "\n</div>\n"
