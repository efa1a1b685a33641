"""Whole pages, for a help file and for the web."""

import posixpath
from html import escape
from urllib.parse import quote

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


def contents(help, book, at=None):
    """The book's contents as lists of links, for a page at the path `at`; its own entry is no link."""
    folder = posixpath.dirname(at or "")
    lines = ['<div class="contents">']
    for chapter, paths in book.chapters:
        lines.append(f"<h2>{escape(chapter)}</h2>\n<ul>")
        for path in paths:
            title = escape(help.pages[path].title)
            link = quote(posixpath.relpath(path, folder or "."))
            lines.append(f"<li>{title}</li>" if path == at else f'<li><a href="{link}">{title}</a></li>')
        lines.append("</ul>")
    return "\n".join(lines) + "\n</div>\n"
