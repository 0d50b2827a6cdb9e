"""What a screen reader sees and hears of a plug-in window, over the real accessibility bus.

Usage: at_spi_test.py SAMPLE.
"""
import pyatspi
from pyatspi import STATE_CHECKED, STATE_SELECTED

from at_spi import do, find, run, states, wait

ROLES = {
    "The maker's website": pyatspi.ROLE_LINK,
    "Page": pyatspi.ROLE_PAGE_TAB_LIST,
    "Bands": pyatspi.ROLE_PAGE_TAB,
    "Carrier": pyatspi.ROLE_PAGE_TAB,
    "1.2.0 Available": pyatspi.ROLE_PUSH_BUTTON,
    "Waves": pyatspi.ROLE_PANEL,
    "Sine": pyatspi.ROLE_RADIO_BUTTON,
    "Saw": pyatspi.ROLE_RADIO_BUTTON,
    "Mute": pyatspi.ROLE_CHECK_BOX,
    "Stutter": pyatspi.ROLE_PUSH_BUTTON,
    "Automate": pyatspi.ROLE_PUSH_BUTTON,
}

heard = []


def listen(event):
    heard.append((event.source.name, event.type.minor, bool(event.detail1)))


def check(root):
    for name, role in ROLES.items():
        node = find(root, name)
        assert node is not None, name
        assert node.getRole() == role, f"{name} is a {node.getRoleName()}"
    assert [child.name for child in find(root, "Page")] == ["Bands", "Carrier"]
    assert [child.name for child in find(root, "Waves")] == ["Sine", "Saw"]
    assert find(root, "Saw").description == "Wave"
    assert STATE_SELECTED in states(find(root, "Bands"))
    assert STATE_CHECKED in states(find(root, "Sine"))

    pyatspi.Registry.registerEventListener(listen, "object:state-changed:checked",
                                           "object:state-changed:selected")
    # What the user does is told, for what it changes as well.
    do(find(root, "Mute"), "Toggle")
    wait(lambda: ("Mute", "checked", True) in heard)
    assert STATE_CHECKED in states(find(root, "Mute"))
    do(find(root, "Saw"), "Press")
    wait(lambda: ("Saw", "checked", True) in heard and ("Sine", "checked", False) in heard)
    do(find(root, "Carrier"), "Press")
    wait(lambda: ("Carrier", "selected", True) in heard)
    assert STATE_SELECTED not in states(find(root, "Bands"))

    # What automation does is not.
    wait(lambda: len(heard) == 5)
    do(find(root, "Automate"), "Press")
    wait(lambda: find(root, "Automated"))
    do(find(root, "Mute"), "Toggle")  # comes behind whatever else there was
    wait(lambda: len(heard) > 5)
    assert heard[5:] == [("Mute", "checked", True)], heard[5:]


run("fernhorn_sample", "Mute", check)
