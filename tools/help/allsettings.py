"""The tables of all settings, as README has them."""

import re
import sys
from html import escape
from pathlib import Path

sys.path.append(str(Path(__file__).resolve().parent.parent))
import settings  # noqa: E402  (tools/settings.py)

PLACE = "<!-- the tables of all settings -->\n"


def code(match):
    return "<code>" + match[1].replace(";", ";<wbr>") + "</code>"  # Long lists may be broken there.


def html(markdown):
    """Headings and tables; `names` become code."""
    lines = []
    for line in filter(None, markdown.splitlines()):
        text = re.sub(r"`([^`]*)`", code, escape(line, quote=False))
        if heading := re.fullmatch(r"\*\*(.*)\*\*", text):
            lines += ["</table>"] * bool(lines) + [f"<h2>{heading[1]}</h2>", "<table>"]
        elif not line.startswith("|--"):
            cell = "th" if lines[-1] == "<table>" else "td"
            lines.append("<tr>" + "".join(f"<{cell}>{each}</{cell}>" for each in text.strip("| ").split(" | ")) + "</tr>")
    return "\n".join([*lines, "</table>\n"])


def tables(header):
    return html(settings.tables(header.read_text(encoding="utf-8")))
