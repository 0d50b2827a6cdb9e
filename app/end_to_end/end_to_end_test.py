"""The whole way of an update, with everything real: two packaged versions, the publisher's tool, a
web server over TLS, the installed program on a screen, its dialogs driven as a screen reader does.

Runs inside of an X server and a session bus of its own.
"""
import argparse
import os
import re
import shutil
import signal
import subprocess
import tempfile
import time
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

import pyatspi
from gi.repository import GLib

START = time.monotonic()
ARGUMENTS = [b"--first", b"two words", b"-style", b"fusion", b"not \xff UTF-8"]


def wait(what, seconds=60, why=""):
    """The first result that counts, of a function that may still fail."""
    end = time.monotonic() + seconds
    error = None
    while time.monotonic() < end:
        try:
            result = what()
            if result:
                return result
        except Exception as caught:  # the tree is still being built, or going
            error = caught
        while GLib.MainContext.default().iteration(False):
            pass
        time.sleep(0.1)
    raise AssertionError(f"{why or what} did not happen in time; last: {error}")


class Server:
    """nginx with a configuration and a folder of its own."""

    def __init__(self, place, options):
        self.url = f"https://{options.address}:{options.port}/"
        self.files = place / "www"
        self.files.mkdir(parents=True)
        (place / "log").mkdir()
        certificate = options.certificates
        (place / "nginx.conf").write_text(f"""
daemon off;
master_process off;
pid {place}/nginx.pid;
error_log {place}/log/error.log;
events {{ worker_connections 64; }}
http {{
  access_log {place}/log/access.log;
  client_body_temp_path {place}/body;
  proxy_temp_path {place}/proxy;
  fastcgi_temp_path {place}/fastcgi;
  uwsgi_temp_path {place}/uwsgi;
  scgi_temp_path {place}/scgi;
  types {{ application/rss+xml xml; application/x-xz xz; text/html html; }}
  server {{
    listen {options.address}:{options.port} ssl;
    ssl_certificate {certificate}/server.pem;
    ssl_certificate_key {certificate}/server.key;
    root {self.files};
    location = /moved.xml {{ return 302 http://{options.address}:{options.port}/appcast.xml; }}
  }}
}}
""")
        self.log = place / "log" / "access.log"
        nginx = shutil.which("nginx", path="/usr/sbin:" + os.environ["PATH"])
        self.process = subprocess.Popen(
            [nginx, "-p", str(place), "-e", f"{place}/log/error.log", "-c", f"{place}/nginx.conf"])
        wait(lambda: (place / "nginx.pid").exists(), 20, "nginx")

    def requests(self, name):
        return len(re.findall(rf"GET /{re.escape(name)} ", self.log.read_text()))

    def stop(self):
        self.process.terminate()
        self.process.wait()


class Program:
    """The installed program, by its process and through the accessibility bus."""

    def __init__(self, root, environment):
        self.root = root
        self.environment = environment

    def start(self):
        self.process = subprocess.Popen([str(self.root / "larkvox"), *ARGUMENTS],
                                        env=self.environment)
        wait(self.window, why="the window")

    def processes(self):
        """Those that run a version of this installation."""
        found = {}
        for entry in Path("/proc").iterdir():
            if entry.name.isdigit():
                try:
                    path = Path(os.readlink(entry / "exe"))
                except OSError:
                    continue
                if self.root / "versions" in path.parents and path.name == "larkvox":
                    found[int(entry.name)] = path
        return found

    def applications(self):
        desktop = pyatspi.Registry.getDesktop(0)
        return [app for app in desktop
                if app and app.name == "Larkvox" and app.get_process_id() in self.processes()]

    def window(self):
        return next((node for app in self.applications() for node in app
                     if node.name == "Larkvox" and node.childCount > 3), None)

    def find(self, name, role=None, within=None):
        for root in [within] if within else self.applications():
            node = pyatspi.findDescendant(
                root, lambda node: node.name == name and (role is None or node.getRole() == role) and
                node.getState().contains(pyatspi.STATE_SHOWING))
            if node:
                return node
        return None

    def press(self, name, within=None):
        node = wait(lambda: self.find(name, within=within), why=f"\"{name}\"")
        action = node.queryAction()
        names = [action.getName(i) for i in range(action.nActions)]
        action.doAction(names.index("Press") if "Press" in names else 0)

    def close(self, title, words):
        """A dialog that says so; the window has a button of that name, too."""
        dialog = self.dialog(title)
        assert words in dialog.description, dialog.description
        self.press("Close", dialog)
        wait(lambda: not self.find(title, pyatspi.ROLE_DIALOG), why=f"the end of \"{title}\"")

    def check(self):
        self.press("Menu")
        self.press("Check for Updates…")

    def dialog(self, title, seconds=60):
        try:
            return wait(lambda: self.find(title, pyatspi.ROLE_DIALOG), seconds, f"the dialog \"{title}\"")
        except AssertionError as error:
            raise AssertionError(f"{error}; shown: {self.shown()}") from None

    def shown(self):
        """What else there is, where something was missed."""
        return [(node.getRoleName(), node.name, node.description, node.getState().contains(pyatspi.STATE_SHOWING))
                for app in self.applications() for node in app] or self.processes()

    def end(self):
        for process in self.processes():
            os.kill(process, signal.SIGTERM)
        wait(lambda: not self.processes(), why="the end of the program")
        if hasattr(self, "process"):
            self.process.wait()


def tree(root):
    """All of an installation but what it remembers."""
    found = {}
    for path in sorted(root.rglob("*")):
        name = path.relative_to(root)
        if name.parts[0] != "state":
            found[str(name)] = (path.lstat().st_mode,
                                os.readlink(path) if path.is_symlink() else
                                path.read_bytes() if path.is_file() else None)
    return found


class Trial:
    def __init__(self, place, options):
        self.options = options
        self.place = place
        self.server = Server(place / "server", options)
        with ThreadPoolExecutor() as packers:
            versions = ("1.0.0", "1.1.0")
            self.archives = dict(zip(versions, packers.map(self.package, versions)))
        # For what is refused, and looked at again and again, a few files do.
        self.small = {version: self.repack(version) for version in versions}
        home = place / "home"
        self.root = home / "Applications" / "Larkvox"
        self.root.parent.mkdir(parents=True)
        subprocess.run(["tar", "--extract", "--directory", self.root.parent, "--file",
                        self.archives["1.0.0"]], check=True)
        environment = dict(os.environ, HOME=str(home), XDG_CONFIG_HOME=str(home / ".config"),
                           QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1", QT_QPA_PLATFORM="xcb",
                           LANG="C.UTF-8", LANGUAGE="en", XDG_RUNTIME_DIR=str(place / "runtime"),
                           QT_XCB_GL_INTEGRATION="none")  # the waveform is not what is looked at
        (place / "runtime").mkdir(mode=0o700)
        self.program = Program(self.root, environment)

    def package(self, version):
        made = subprocess.run(
            [f"{self.options.sources}/packaging/package", self.options.build,
             str(self.place / "archives"), "--version", version, "--only", "archive", "--program",
             self.options.program, "--helper", self.options.helper, "--key",
             Path(f"{self.options.key}.pub").read_text().strip(), "--fast"],
            check=True, capture_output=True, text=True)
        return Path(made.stdout.split()[-1])

    def repack(self, version, change=lambda text: text):
        """An archive of the version's programs alone, with the text of its manifest changed."""
        with tempfile.TemporaryDirectory(dir=self.place) as folder:
            subprocess.run(["tar", "--extract", "--directory", folder, "--file",
                            self.archives[version], "--exclude", "*/share/*"], check=True)
            manifest = next(Path(folder).glob("Larkvox/versions/*/manifest.json"))
            text = manifest.read_text()
            manifest.write_text(change(text))
            target = self.place / f"small-{version}-{abs(hash(change(text)))}.tar"
            subprocess.run(["tar", "--create", "--directory", folder, "--sort=name",
                            "--format=ustar", "--owner=0", "--group=0", "--numeric-owner",
                            "--mode=go-w", "--file", target, "Larkvox"], check=True)
        return target

    def publish(self, archive, edit=lambda feed: feed, signed=True):
        """Puts a feed with this archive on the server, and its signature."""
        for old in self.server.files.iterdir():
            if old.suffix != ".sig":  # from which the next one counts on
                old.unlink()
        served = self.server.files / archive.name
        shutil.copy(archive, served)
        notes = self.place / "notes.html"
        notes.write_text("<h2>Better</h2><p>Everything is <b>better</b> now.</p>")
        feed = self.server.files / "appcast.xml"
        subprocess.run([self.options.appcast, "add", str(served), "--feed", str(feed), "--key",
                        self.options.key, "--url", self.server.url, "--notes", str(notes)],
                       check=True, stdout=subprocess.DEVNULL)
        text = feed.read_text()
        feed.write_text(edit(text))
        if signed:
            subprocess.run([self.options.appcast, "sign", str(feed), "--key", self.options.key],
                           check=True, stdout=subprocess.DEVNULL)

    def refused(self, what, archive, title, words, edit=lambda feed: feed):
        """An update that must come to nothing."""
        before = tree(self.root)
        self.publish(archive, edit)
        self.program.check()
        self.program.press("Install Update")
        self.program.close(title, words)
        # The helper may still be removing what it had unpacked.
        wait(lambda: tree(self.root) == before, why=f"{what}: the installation as it was")
        print(f"{time.monotonic() - START:.0f} s: refused:", what, flush=True)

    def refusals(self):
        genuine = self.small["1.1.0"]

        def signature_of_other_bytes(feed):
            with tempfile.TemporaryDirectory() as folder:
                shutil.copy(self.small["1.0.0"], folder)
                other = Path(folder) / "feed.xml"
                subprocess.run([self.options.appcast, "add",
                                str(Path(folder) / self.small["1.0.0"].name), "--feed",
                                str(other), "--key", self.options.key, "--url", self.server.url],
                               check=True, stdout=subprocess.DEVNULL)
                pattern = r'edSignature="([^"]*)"'
                theirs = re.search(pattern, other.read_text()).group(1)
                return re.sub(pattern, f'edSignature="{theirs}"', feed)

        refusal = "The update was refused"
        self.refused("the signature of other bytes", genuine, refusal, "isn’t signed by the maker",
                     signature_of_other_bytes)
        self.refused("an older archive behind a newer item", self.small["1.0.0"], refusal,
                     "isn’t the version that was announced",
                     lambda feed: feed.replace("1.0.0</sparkle:version>", "1.9.0</sparkle:version>"))
        changed = self.repack("1.1.0", lambda text: text.replace('"Larkvox"', '"Otherwise"'))
        self.refused("another product", changed, refusal, "but another program")
        changed = self.repack("1.1.0", lambda text: re.sub(r'linux-\w+', "linux-other", text))
        self.refused("another platform", changed, refusal, "another kind of computer",
                     lambda feed: re.sub(r'sparkle:os="[^"]*"', 'sparkle:os="linux"', feed))
        self.refused("longer than announced", genuine, refusal, "the size that was announced",
                     lambda feed: re.sub(r'length="\d+"', 'length="1000"', feed))
        self.refused("an archive at an address without TLS", genuine,
                     "Larkvox couldn’t get the update", "isn’t encrypted",
                     lambda feed: re.sub(r'url="[^"]*"', f'url="{self.server.url}moved.xml"', feed))

    def lists(self):
        """Lists of updates that are not believed, and one that was cut off from its folder."""
        genuine = self.small["1.1.0"]
        title = "Larkvox couldn’t look for updates"

        def looked(what, words):
            self.program.check()
            self.program.close(title, words)
            print(f"{time.monotonic() - START:.0f} s: not believed:", what, flush=True)

        self.publish(genuine, lambda feed: feed.replace("</title>", "!</title>"), signed=False)
        looked("a list that was changed on the server", "isn’t signed by the maker")
        feed, signature = (self.server.files / name for name in ("appcast.xml", "appcast.xml.sig"))
        self.publish(self.small["1.0.0"])
        old = feed.read_bytes(), signature.read_bytes()
        self.publish(self.small["1.0.0"])
        newest = signature.read_bytes()
        self.program.check()
        self.program.close("You’re up to date", "is the newest version")
        feed.write_bytes(old[0])
        signature.write_bytes(old[1])
        looked("an older list than before", "older list of updates")
        signature.unlink()
        looked("a list without a signature", "isn’t signed by the maker")
        signature.write_bytes(newest)  # lists that follow each other fast count on from it, not from the clock
        # A folder that is moved while it runs updates itself in its new place.
        moved = self.root.with_name("Moved")
        self.root.rename(moved)
        self.root = self.program.root = moved

    def update(self):
        self.publish(self.archives["1.1.0"])
        downloads = self.server.requests(self.archives["1.1.0"].name)
        old = set(self.program.processes())
        self.program.check()
        dialog = self.program.dialog("A new version is available")
        assert dialog.description == "Larkvox 1.1.0 is available; you have 1.0.0.", dialog.description
        notes = wait(lambda: self.program.find("Release notes"))
        assert "Everything is better now." in notes.queryText().getText(0, -1)
        assert self.server.requests(self.archives["1.1.0"].name) == downloads
        self.program.press("Install Update")
        self.program.press("Install and Relaunch")
        running = wait(lambda: {process: path for process, path in self.program.processes().items()
                                if process not in old} if not old & set(self.program.processes())
                       else None, why="the new program in place of the old one")
        assert len(running) == 1, running
        process, path = running.popitem()
        assert path == self.root / "versions/1.1.0/bin/larkvox", path
        words = Path(f"/proc/{process}/cmdline").read_bytes().split(b"\0")[1:-1]
        assert words == ARGUMENTS, words
        wait(lambda: self.program.find("1.1.0 (1)"), why="the version on the window")
        assert os.readlink(self.root / "current") == "versions/1.1.0"
        print(f"{time.monotonic() - START:.0f} s: updated to 1.1.0", flush=True)
        # It is the second start, so it asks.
        self.program.press("Don’t Check", self.program.dialog("Check for updates automatically?"))
        self.program.check()
        self.program.close("You’re up to date", "Larkvox 1.1.0 is the newest version.")

    def run(self):
        try:
            self.publish(self.small["1.0.0"])
            print(f"{time.monotonic() - START:.0f} s: packaged", flush=True)
            self.program.start()
            self.program.check()
            self.program.close("You’re up to date", "Larkvox 1.0.0 is the newest version.")
            self.refusals()
            self.lists()
            self.update()
            # Its start is confirmed by now or at its end: the next one is the same.
            self.program.end()
            self.program.start()
            assert list(self.program.processes().values()) == \
                [self.root / "versions/1.1.0/bin/larkvox"]
        finally:
            self.program.end()
            self.server.stop()


def main():
    parser = argparse.ArgumentParser()
    for name in ("build", "sources", "program", "helper", "appcast", "key", "certificates",
                 "address", "port"):
        parser.add_argument(f"--{name}", required=True)
    options = parser.parse_args()
    with tempfile.TemporaryDirectory(prefix="larkvox-trial-") as place:
        Trial(Path(place).resolve(), options).run()


main()
