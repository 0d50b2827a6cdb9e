"""What tests over the real accessibility bus share. They run inside of an X server and a session bus
of their own, with the program they look at as the first argument."""
import os
import subprocess
import sys
import time

import pyatspi
from gi.repository import GLib


def hear():
    """What is known of other programs changes only while events are heard."""
    while GLib.MainContext.default().iteration(False):
        pass


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
        hear()
        time.sleep(0.1)
    raise AssertionError(f"did not happen in time; last: {error}")


def find(root, name):
    return pyatspi.findDescendant(root, lambda node: node.name == name)


def do(node, name):
    action = node.queryAction()
    names = [action.getName(i) for i in range(action.nActions)]
    assert name in names, f"{node.name} has only {names}"
    action.doAction(names.index(name))


def states(node):
    return set(node.getState().getStates())


def run(name, first, check):
    """Starts the program, which calls itself `name`, and checks its tree once a node called `first`
    is there."""
    def application():
        apps = pyatspi.Registry.getDesktop(0)
        return next((app for app in apps if app and app.name == name), None)

    environment = dict(os.environ, QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1", QT_QPA_PLATFORM="xcb")
    # The session bus starts the accessibility bus when it is first asked for. A launcher of our own
    # would race with that, and the two sides would now and then be on different ones.
    sample = subprocess.Popen([sys.argv[1]], env=environment)
    try:
        root = wait(application)
        wait(lambda: find(root, first))
        check(root)
    finally:
        sample.terminate()
        sample.wait()
