#!/usr/bin/env python3
"""Puts a real web server, nginx, in front of the published files, in settings as they are found in the wild. With each
the application must either come to the published files or fail clean: the store right, an error shown, nothing lost,
and everything up to date after the next refresh from a server in order.
"""

import argparse
import os
import shutil
import socket
import threading
import urllib.parse

import desk
import store as s
from programs import SERVER_URL, Process, wait_for

PORT = urllib.parse.urlsplit(SERVER_URL).port
UPSTREAM_PORT = PORT + 1
NO_ERROR, CONNECTION_ERROR, SERVER_ERROR, INVALID_DATA = range(4)

PORTAL = "<html><body>Welcome to the rink's guest network. Please sign in.</body></html>"
UPSTREAM = f"location / {{ proxy_pass http://127.0.0.1:{UPSTREAM_PORT}; proxy_buffering off; %s }}"

# Name, what stands in the server's block, what the upstream does with a file, and how the refresh of the catalogue
# ends.
CASES = [
    ("as it comes", "", None, NO_ERROR),
    ("gzip", "gzip on; gzip_types *; gzip_min_length 1;", None, NO_ERROR),
    ("gzip, one request a connection",
     "gzip on; gzip_types *; gzip_min_length 1; keepalive_timeout 0;", None, NO_ERROR),
    ("connections closed now and then", "keepalive_requests 2;", None, NO_ERROR),
    ("no ranges, no tags", "max_ranges 0; etag off; if_modified_since off; add_header Last-Modified '';", None,
     NO_ERROR),
    ("cached for ever", "expires max; add_header Cache-Control 'public, immutable'; add_header Vary '*';", None,
     NO_ERROR),
    ("wrong types", "types { } default_type 'text/html; charset=utf-16'; add_header X-Content-Type-Options nosniff;",
     None, NO_ERROR),
    ("chunked", "sub_filter_types *; sub_filter 'nowhere to be found' ''; sub_filter_once on;", None, NO_ERROR),
    ("no length, ends with the connection",
     "sub_filter_types *; sub_filter 'nowhere to be found' ''; chunked_transfer_encoding off;", None, NO_ERROR),
    ("slow", "limit_rate 20k;", None, NO_ERROR),
    ("moved for good", "location / { return 301 /moved$request_uri; } location /moved/ { alias {tree}/; }", None,
     NO_ERROR),
    ("moved by an old proxy, twice",
     "location / { return 302 http://localhost:{port}/a$request_uri; } "
     "location /a/ { rewrite ^/a/(.*)$ /b/$1 redirect; } location /b/ { alias {tree}/; }", None, NO_ERROR),
    ("sets cookies", "add_header Set-Cookie 'session=1; HttpOnly'; add_header Set-Cookie 'x=2';", None, NO_ERROR),
    ("a ring", "location / { return 302 $request_uri; }", None, CONNECTION_ERROR),
    ("a ring that grows", "location / { return 307 /x$request_uri; }", None, CONNECTION_ERROR),
    ("a portal", f"location / {{ default_type text/html; return 200 \"{PORTAL}\"; }}", None, INVALID_DATA),
    ("a redirect to a portal",
     f"location / {{ return 302 /portal; }} location /portal {{ return 200 \"{PORTAL}\"; }}", None, INVALID_DATA),
    ("empty", "location / { return 200 ''; }", None, INVALID_DATA),
    ("no content", "location / { return 204; }", None, SERVER_ERROR),
    ("not modified", "location / { return 304; }", None, SERVER_ERROR),
    ("a part", "location / { return 206 'part'; }", None, SERVER_ERROR),
    ("forbidden", "location / { return 403; }", None, SERVER_ERROR),
    ("wants a password", "auth_basic 'Members'; auth_basic_user_file /dev/null;", None, SERVER_ERROR),
    ("down for repairs", "location / { add_header Retry-After 60 always; return 503; }", None, SERVER_ERROR),
    ("hangs up", "location / { return 444; }", None, CONNECTION_ERROR),
    ("says that it is compressed", "add_header Content-Encoding gzip;", None, CONNECTION_ERROR),
    ("upstream ends early", UPSTREAM % "", lambda body: (len(body), body[:len(body) // 2]), CONNECTION_ERROR),
    ("upstream ends early, compressed", "gzip on; gzip_types *; gzip_min_length 1;" + UPSTREAM % "",
     lambda body: (len(body), body[:len(body) // 2]), None),
    ("length too short", UPSTREAM % "", lambda body: (len(body) // 2, body), INVALID_DATA),
    ("no upstream", UPSTREAM % "", None, SERVER_ERROR),
]
# Those that a quick check takes: one of each way to go right or wrong.
QUICK = ["gzip", "moved by an old proxy, twice", "a portal", "upstream ends early"]

CONFIGURATION = """
{user}
daemon off;
worker_processes 1;
pid {folder}/nginx.pid;
error_log {folder}/error.log;
events {{ worker_connections 64; }}
http {{
  access_log {folder}/access.log;
  {paths}
  default_type application/octet-stream;
  server {{
    listen 127.0.0.1:{port};
    root {tree};
    {settings}
  }}
}}
"""


class Upstream:
    """Answers each request with what `spoil` makes of the file: the length to tell, and the bytes to send."""

    def __init__(self, tree, spoil):
        self.tree, self.spoil = tree, spoil
        self.listener = socket.create_server(("127.0.0.1", UPSTREAM_PORT))
        self.thread = threading.Thread(target=self.serve, daemon=True)
        self.thread.start()

    def serve(self):
        while True:
            try:
                connection, _ = self.listener.accept()
            except OSError:
                return
            with connection:
                request = connection.recv(65536).decode(errors="replace").split(" ")
                length, body = self.spoil(s.read(self.tree + request[1]))
                connection.sendall(f"HTTP/1.0 200 OK\r\nContent-Length: {length}\r\n\r\n".encode() + body)

    def close(self):
        self.listener.shutdown(socket.SHUT_RDWR)
        self.listener.close()
        self.thread.join()


class Nginx(Process):
    def __init__(self, folder, tree, settings):
        os.makedirs(folder, exist_ok=True)
        paths = " ".join(f"{kind}_temp_path {folder}/{kind};"
                         for kind in ("client_body", "proxy", "fastcgi", "uwsgi", "scgi"))
        settings = settings.replace("{tree}", tree).replace("{port}", str(PORT))
        path = os.path.join(folder, "nginx.conf")
        with open(path, "w", encoding="utf-8") as file:
            file.write(CONFIGURATION.format(user="user root;" if os.getuid() == 0 else "", folder=folder, port=PORT,
                                            paths=paths, tree=tree, settings=settings))
        super().__init__(["nginx", "-c", path, "-p", folder, "-e", os.path.join(folder, "error.log")], dict(os.environ))
        wait_for(self.answers, "nginx")

    def answers(self):
        if self.process.poll() is not None:
            raise s.Damage("nginx doesn't start: " + "\n".join(self.errors))
        try:
            socket.create_connection(("127.0.0.1", PORT), timeout=1).close()
            return True
        except OSError:
            return False


class Servers:
    def __init__(self, station):
        self.desk = station
        station.fill()
        station.demo.destroy()  # its files stay, and nginx takes its port
        self.base = os.path.join(station.folder, "base")
        s.copy(station.store, self.base)
        self.contents = s.known(s.published(station.tree))
        self.folder = os.path.join(station.folder, "nginx")

    def forget(self):
        """The store as the catalogue and the state alone leave it: everything has to be fetched anew."""
        s.drop(self.desk.store)
        s.copy(self.base, self.desk.store)
        s.drop(self.desk.path(f"rink-{desk.RINK}"))
        os.remove(self.desk.path("defs.b1"))
        os.utime(self.desk.path("rinks.b1"), (0, 0))

    def run(self, settings, run):
        nginx = Nginx(self.folder, self.desk.tree, settings)
        try:
            run()
        finally:
            nginx.end()
            nginx.destroy()

    def check(self, name, settings, spoil, expected):
        self.forget()
        upstream = Upstream(self.desk.tree, spoil) if spoil else None
        try:
            self.run(settings, self.desk.run_refreshed if expected == NO_ERROR else self.desk.run_failing)
        finally:
            if upstream:
                upstream.close()
        state = self.desk.read_state()
        self.desk.check_state()
        if expected is not None and state["errorKind"] != expected:
            raise s.Damage(f"the refresh ended with {state['errorKind']}: {state['errorLog']}")
        if state["errorKind"] != NO_ERROR:
            if not state["errorLog"]:
                raise s.Damage("nothing tells of the error")
            # Its date, which was falsified to have it fetched.
            shutil.copystat(os.path.join(self.base, "rinks.b1"), self.desk.path("rinks.b1"))
            s.check_whole(self.desk.store, self.contents)
            self.run("", self.desk.run_refreshed)
        s.check_whole(self.desk.store, self.contents)
        self.desk.check_up_to_date()
        if self.desk.read_state()["errorKind"] != NO_ERROR:
            raise s.Damage("the error stays when it is over: " + self.desk.read_state()["errorLog"])


def share(cases):
    with desk.Desk() as station:
        servers = Servers(station)
        for case in cases:
            name, settings, spoil, expected = next(entry for entry in CASES if entry[0] == case)
            try:
                servers.check(name, settings, spoil, expected)
            except (s.Damage, AssertionError) as damage:
                raise s.Damage(f"{name}: {damage}") from damage
            print(f"{name}: {'came to the files' if expected == NO_ERROR else 'failed clean, and healed'}", flush=True)
        return len(cases)


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--quick", action="store_true", help="a few of the settings alone")
    parser.add_argument("--only", help="that setting alone")
    parser.add_argument("--jobs", type=int, default=os.cpu_count())
    arguments = parser.parse_args()
    names = QUICK if arguments.quick else [case[0] for case in CASES]
    if arguments.only:
        names = [arguments.only]
    done = desk.in_parallel(share, [(names[first:last],) for first, last in desk.shares_of(len(names), arguments.jobs)])
    print(f"{sum(done)} settings of a real server: right or failed clean")


if __name__ == "__main__":
    main()
