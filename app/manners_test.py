"""The program on a desktop: started twice, used by keys, with its other windows in front.

Runs inside of an X server and a session bus of its own, with a window manager.
"""
import os
import subprocess
import sys
import tempfile
import time
from pathlib import Path

import pyatspi
from at_spi import find, states, wait


class Desktop:
    def __init__(self, place):
        self.opened = place / "opened"
        opener = place / "xdg-open"  # a desktop on which nothing opens a page
        opener.write_text(f'#!/bin/sh\necho "$1" >>"{self.opened}"\nexit 3\n')
        opener.chmod(0o755)
        self.environment = dict(os.environ, PATH=f"{place}:{os.environ['PATH']}", LANGUAGE="en",
                                HOME=str(place), XDG_CONFIG_HOME=str(place),
                                QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1", QT_QPA_PLATFORM="xcb",
                                QT_XCB_GL_INTEGRATION="none")
        self.manager = subprocess.Popen(["openbox"], stderr=subprocess.DEVNULL)
        wait(lambda: "Openbox" in self.tell("wmctrl", "-m"))

    @staticmethod
    def tell(*words):
        return subprocess.run(words, capture_output=True, text=True).stdout

    def start(self, **variables):
        return subprocess.Popen([sys.argv[1]], env=dict(self.environment, **variables))

    def application(self):
        return next((app for app in pyatspi.Registry.getDesktop(0)
                     if app and app.name == "Larkvox"), None)

    def shown(self, name):
        node = find(self.application(), name)
        return node if node and pyatspi.STATE_SHOWING in states(node) else None

    def focused(self):
        node = pyatspi.findDescendant(
            self.application(), lambda node: pyatspi.STATE_FOCUSED in states(node))
        return node.name if node else None

    def keys(self, *names):
        for name in names:
            subprocess.run(["xdotool", "key", name], check=True)
            time.sleep(0.1)

    def front(self):
        return self.tell("xdotool", "getactivewindow", "getwindowname").strip()

    def open_about(self):
        self.keys("F10")
        wait(lambda: self.shown("Check for Updates…"))
        self.keys("Return")
        wait(lambda: self.front() == "About Larkvox")


def uses_keys(desktop, program):
    wait(lambda: desktop.shown("Help") and desktop.front() == "Larkvox")
    assert desktop.focused() in (None, "Larkvox"), desktop.focused()
    desktop.keys("space", "Return")
    desktop.keys("shift+F10")
    wait(lambda: desktop.shown("Check for Updates…"))
    desktop.keys("Escape")
    assert not desktop.opened.exists(), "a key has pressed what had no focus ring"
    desktop.keys("Tab")
    wait(lambda: desktop.focused() == "Help")
    desktop.keys("Return")
    wait(lambda: desktop.shown("This page couldn’t be opened"))
    assert desktop.opened.read_text().strip().endswith("Help/en.html")
    # In front of the main window, the program's keys work all the same.
    wait(lambda: desktop.front() == "Larkvox" and desktop.focused() == "Copy Address")
    desktop.keys("F10")
    wait(lambda: desktop.shown("Check for Updates…"))
    desktop.keys("Escape")
    desktop.open_about()
    desktop.keys("ctrl+w")
    wait(lambda: not desktop.shown("About Larkvox"))
    assert program.poll() is None


def starts_once(desktop, program):
    def comes_forward(how):
        second = desktop.start()
        assert second.wait(timeout=20) == 0
        wait(lambda: desktop.front() == "Larkvox", 10), how
        assert program.poll() is None

    subprocess.run(["xdotool", "getactivewindow", "windowminimize"], check=True)
    wait(lambda: desktop.front() != "Larkvox")
    comes_forward("minimised")
    subprocess.run(["wmctrl", "-s", "1"], check=True)
    wait(lambda: desktop.front() != "Larkvox")
    comes_forward("from another desktop")


def ends_with_its_window(desktop, program):
    desktop.open_about()
    window = desktop.tell("xdotool", "search", "--onlyvisible", "--name", "^Larkvox$").split()[0]
    subprocess.run(["wmctrl", "-i", "-c", window], check=True)
    assert program.wait(timeout=20) == 0


def quits_from_a_dialog(desktop):
    # At once: the one before is just gone. The screen is 480 points high now, too low by 92.
    program = desktop.start(QT_SCALE_FACTOR="1.25")
    wait(lambda: desktop.shown("Help") and desktop.front() == "Larkvox")
    for name in ("Close", "Larkvox is now available as an Audio Unit.", "Help"):
        place = desktop.shown(name).queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
        assert place.y >= 0 and place.y + place.height <= 480, (name, place)
    desktop.open_about()
    desktop.keys("ctrl+q")
    assert program.wait(timeout=20) == 0


def main():
    with tempfile.TemporaryDirectory() as place:
        desktop = Desktop(Path(place))
        program = desktop.start()
        try:
            uses_keys(desktop, program)
            starts_once(desktop, program)
            ends_with_its_window(desktop, program)
            quits_from_a_dialog(desktop)
        finally:
            program.kill()
            desktop.manager.terminate()


main()
