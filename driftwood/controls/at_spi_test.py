"""What a screen reader sees of the buttons, over the real accessibility bus.

Usage: at_spi_test.py SAMPLE. Runs inside of an X server and a session bus of its own.
"""
import os
import subprocess
import sys
import time

import pyatspi
from gi.repository import GLib
from pyatspi import (STATE_CHECKED, STATE_ENABLED, STATE_FOCUSABLE, STATE_INDETERMINATE,
                     STATE_SENSITIVE)


def wait(what, seconds=20):
    """The first result that counts, of a function that may still fail."""
    end = time.monotonic() + seconds
    error = None
    while time.monotonic() < end:
        try:
            result = what()
            if result:
                return result
        except Exception as caught:  # the tree is still being built
            error = caught
        # What is known of other programs changes only while events are heard.
        while GLib.MainContext.default().iteration(False):
            pass
        time.sleep(0.1)
    raise AssertionError(f"did not happen in time; last: {error}")


def application():
    apps = pyatspi.Registry.getDesktop(0)
    return next((app for app in apps if app and app.name == "at_spi_sample"), None)


def find(root, name):
    return pyatspi.findDescendant(root, lambda node: node.name == name)


def do(node, name):
    action = node.queryAction()
    names = [action.getName(i) for i in range(action.nActions)]
    assert name in names, f"{node.name} has only {names}"
    action.doAction(names.index(name))


def states(node):
    return set(node.getState().getStates())


def check(root):
    push = find(root, "Press me")
    assert push.getRole() == pyatspi.ROLE_PUSH_BUTTON, push.getRoleName()
    assert {STATE_ENABLED, STATE_SENSITIVE, STATE_FOCUSABLE} <= states(push)
    do(push, "Press")
    wait(lambda: find(root, "Was pressed"))

    box = find(root, "Loop")
    assert box.getRole() == pyatspi.ROLE_CHECK_BOX, box.getRoleName()
    assert STATE_INDETERMINATE in states(box) and STATE_CHECKED not in states(box)
    do(box, "Toggle")
    wait(lambda: STATE_CHECKED in states(box) and STATE_INDETERMINATE not in states(box))
    do(box, "Toggle")
    wait(lambda: STATE_CHECKED not in states(box))

    disabled = find(root, "Out of reach")
    assert not {STATE_ENABLED, STATE_SENSITIVE} & states(disabled)

    corner = find(root, "More")
    do(corner, "ShowMenu")
    wait(lambda: find(root, "Menu opened"))


def main():
    environment = dict(os.environ, QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1", QT_QPA_PLATFORM="xcb")
    # The session bus starts the accessibility bus when it is first asked for. A launcher of our own
    # would race with that, and the two sides would now and then be on different ones.
    sample = subprocess.Popen([sys.argv[1]], env=environment)
    try:
        root = wait(application)
        wait(lambda: find(root, "Press me"))
        check(root)
    finally:
        sample.terminate()
        sample.wait()


main()
