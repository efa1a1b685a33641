#!/usr/bin/env python3
"""A service that knows the newest version of Veltro, on this machine alone: for trying the check for updates.

Prints its address, and answers every question with the version that is given, until the shell that has started it
ends.
"""

import argparse
import http.server
import os

ANSWER = """<?xml version="1.0"?>
<SOFTWARELIST>
<FREEVERSION>{version}</FREEVERSION>
<FREEDOWNLOAD>https://www.corvane.example/veltro/download_process.asp</FREEDOWNLOAD>
<MSG>{message}</MSG>
<DOWNLOADLINK>https://www.corvane.example/veltro/download_process.asp</DOWNLOADLINK>
<UPGRADEPOLICYLINK>https://www.corvane.example/veltro/upgrades.htm</UPGRADEPOLICYLINK>
<FEATURESRELEASELINK>https://www.corvane.example/veltro/features.htm</FEATURESRELEASELINK>
</SOFTWARELIST>
"""


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("version")
    parser.add_argument("--message", default="")
    options = parser.parse_args()
    body = ANSWER.format(version=options.version, message=options.message).encode()

    class Handler(http.server.BaseHTTPRequestHandler):
        def do_GET(self):
            self.send_response(200)
            self.send_header("Content-Type", "text/xml; charset=utf-8")
            self.send_header("Content-Length", str(len(body)))
            self.end_headers()
            self.wfile.write(body)

        def log_message(self, *_):
            pass

    server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), Handler)
    server.timeout = 1
    parent = os.getppid()
    print(f"http://127.0.0.1:{server.server_port}", flush=True)
    while os.getppid() == parent:
        server.handle_request()


main()
