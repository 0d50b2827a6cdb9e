"""What `package` makes, judged by the tools that will receive it.

package_test.py BUILD LARKVOX-APPCAST
"""
import hashlib
import json
import os
import subprocess
import sys
import tarfile
import tempfile
import unittest
from pathlib import Path

import gi

gi.require_version("Gio", "2.0")
from gi.repository import Gio, GLib

HERE = Path(__file__).resolve().parent
BUILD = APPCAST = None


def run(*command, **options):
    done = subprocess.run([str(word) for word in command], capture_output=True, text=True, **options)
    if done.returncode != 0:
        raise AssertionError(f"{command}: {done.returncode}\n{done.stdout}{done.stderr}")
    return done.stdout


def package(folder, *options):
    return Path(run(HERE / "package", BUILD, folder, "--fast", *options).strip())


class PackageTest(unittest.TestCase):
    def setUp(self):
        place = tempfile.TemporaryDirectory(prefix="larkvox package ")
        self.addCleanup(place.cleanup)
        self.place = Path(place.name)

    def test_archive_is_one_that_copies_install(self):
        key = self.place / "key"
        run(APPCAST, "keygen", key)
        public = Path(f"{key}.pub").read_text().strip()
        # Helpers hold the key among their constants.
        helper = self.place / "helper"
        helper.write_text(f"#!/bin/sh\n# {public}\n")
        archive = package(self.place / "one", "--only", "archive", "--version", "1.1.0",
                          "--key", public, "--helper", helper)
        self.assertRegex(archive.name, r"^larkvox-1\.1\.0-linux-\w+\.tar\.xz$")
        with tarfile.open(archive) as tar:
            members = tar.getmembers()
            tree = "Larkvox/versions/1.1.0/"
            manifest = json.load(tar.extractfile(tree + "manifest.json"))
            information = json.load(tar.extractfile(tree + "share/larkvox/Info.json"))
        self.assertEqual(manifest["version"], "1.1.0")
        self.assertEqual(manifest["publicKey"], public)
        self.assertEqual(manifest["identifier"], information["CFBundleIdentifier"])
        self.assertEqual(information["CFBundleShortVersionString"], "1.1.0")
        self.assertEqual({member.name for member in members if "/" in member.name
                          and "versions/" not in member.name},
                         {"Larkvox/larkvox", "Larkvox/add-to-menu", "Larkvox/current",
                          "Larkvox/versions"})
        programs = {member.name for member in members if member.isfile() and member.mode & 0o111}
        self.assertEqual(programs, {"Larkvox/larkvox", "Larkvox/add-to-menu", tree + "bin/larkvox",
                                    tree + "libexec/larkvox-install"})
        self.assertEqual(len({(member.mtime, member.uid, member.gid) for member in members}), 1)

        again = package(self.place / "two", "--only", "archive", "--version", "1.1.0",
                        "--key", public, "--helper", helper)
        self.assertEqual(hashlib.sha256(archive.read_bytes()).digest(),
                         hashlib.sha256(again.read_bytes()).digest())

        # The publisher's tool reads it by the rules of the copies that will install it.
        feed = archive.parent / "appcast.xml"
        run(APPCAST, "add", archive, "--feed", feed, "--key", key,
            "--url", "https://updates.example/")
        run(APPCAST, "verify", feed, "--public-key", str(key) + ".pub")

        # One that could never be updated again is not made.
        for words in (["--key", ""], ["--key", "no key"], ["--key", "A" + public[1:]]):
            with self.assertRaisesRegex(AssertionError, "key"):
                package(self.place / "three", "--only", "archive", "--helper", helper, *words)
            self.assertFalse(list((self.place / "three").glob("*.xz")))

    def test_debian_package(self):
        deb = package(self.place, "--only", "deb", "--version", "1.1.0")
        field = lambda name: run("dpkg-deb", "--field", deb, name).strip()
        self.assertEqual(field("Version"), "1.1.0")
        self.assertIn("libqt6widgets6", field("Depends"))
        tree = self.place / "tree"
        run("dpkg-deb", "--extract", deb, tree)
        names = {str(path.relative_to(tree)) for path in tree.rglob("*")}
        # The plug-in is complete, and nothing else is where hosts look.
        plugin = "usr/lib/lv2/larkvox.lv2/"
        self.assertLessEqual({plugin + name for name in
                              ("manifest.ttl", "larkvox.ttl", "larkvox.so", "larkvox_ui.so",
                               "Fernhorn_Fernhorn.bundle/Assets.json",
                               "Driftwood_Driftwood.bundle/Assets.json")}, names)
        run("lv2_validate", *(tree / plugin).glob("*.ttl"))
        # It is dpkg that updates this one.
        for name in ("usr/libexec", "usr/manifest.json", "usr/larkvox", "usr/add-to-menu"):
            self.assertNotIn(name, names)
        run("desktop-file-validate", tree / "usr/share/applications/larkvox.desktop")
        run("appstreamcli", "validate", "--no-net", "--pedantic",
            *(tree / "usr/share/metainfo").iterdir())
        for size in (16, 24, 32, 48, 64, 128, 256, 512):
            for scale, folder in ((1, f"{size}x{size}"), (2, f"{size}x{size}@2")):
                icon = (tree / f"usr/share/icons/hicolor/{folder}/apps/larkvox.png").read_bytes()
                self.assertEqual(int.from_bytes(icon[16:20], "big"), size * scale, folder)
        sums = run("dpkg-deb", "--info", deb, "md5sums")
        run("md5sum", "--check", "--quiet", "-", cwd=tree, input=sums)
        owners = {line.split()[1] for line in run("dpkg-deb", "--contents", deb).splitlines()}
        self.assertEqual(owners, {"root/root"})

    def test_menu_entry_starts_what_the_launcher_starts(self):
        root = self.place / 'a "b" $HOME `c` \\d e&'
        version = root / "versions/1.0.0"
        (version / "share").mkdir(parents=True)
        (version / "share/applications").symlink_to(HERE)
        (root / "current").symlink_to("versions/1.0.0")
        (root / "add-to-menu").write_bytes((HERE / "add-to-menu").read_bytes())
        said = self.place / "said"
        (root / "larkvox").write_text(f'#!/bin/sh\necho "$0" >"{said}.new"\nmv "{said}.new" "{said}"\n')
        (root / "larkvox").chmod(0o755)
        (version / "lib/lv2/larkvox.lv2").mkdir(parents=True)
        environment = {**os.environ, "XDG_DATA_HOME": str(self.place / "data"),
                       "HOME": str(self.place / "home")}
        run("sh", root / "add-to-menu", env=environment)
        plugin = self.place / "home/.lv2/larkvox.lv2"
        self.assertEqual(os.readlink(plugin), f"{root}/current/lib/lv2/larkvox.lv2")
        entry = self.place / "data/applications/larkvox.desktop"
        run("desktop-file-validate", entry)

        application = Gio.DesktopAppInfo.new_from_filename(str(entry))
        self.assertEqual(application.get_string("Icon"),
                         f"{root}/current/share/icons/hicolor/256x256/apps/larkvox.png")
        loop = GLib.MainLoop()
        self.assertTrue(application.launch([], None))
        GLib.timeout_add(20, lambda: not said.exists() or loop.quit())
        GLib.timeout_add_seconds(60, loop.quit)
        loop.run()
        self.assertEqual(said.read_text().strip(), str(root / "larkvox"))

        run("sh", root / "add-to-menu", "--remove", env=environment)
        self.assertFalse(entry.exists())


if __name__ == "__main__":
    APPCAST = Path(sys.argv.pop())
    BUILD = Path(sys.argv.pop())
    unittest.main(verbosity=2)
