"""What a screen reader sees and hears of a plug-in window, over the real accessibility bus.

Usage: at_spi_test.py SAMPLE.
"""
import time

import pyatspi
from pyatspi import (STATE_CHECKED, STATE_ENABLED, STATE_FOCUSABLE, STATE_SELECTED,
                     STATE_SENSITIVE)

from at_spi import do, find, hear, run, states, wait

ROLES = {
    "The maker's website": pyatspi.ROLE_LINK,
    "Page": pyatspi.ROLE_PAGE_TAB_LIST,
    "Bands": pyatspi.ROLE_PAGE_TAB,
    "Carrier": pyatspi.ROLE_PAGE_TAB,
    "1.2.0 Available": pyatspi.ROLE_PUSH_BUTTON,
    "Cutoff": pyatspi.ROLE_SLIDER,
    "Waves": pyatspi.ROLE_PANEL,
    "Sine": pyatspi.ROLE_RADIO_BUTTON,
    "Saw": pyatspi.ROLE_RADIO_BUTTON,
    "Mute": pyatspi.ROLE_CHECK_BOX,
    "Stutter": pyatspi.ROLE_PUSH_BUTTON,
    "Direction": pyatspi.ROLE_PUSH_BUTTON,
    "Automate": pyatspi.ROLE_PUSH_BUTTON,
}

announced = []  # values
heard = []  # states


def drag_beyond_the_screen(dial):
    """With the pointer itself, which comes back to where it was."""
    def mouse(kind, x, y):
        pyatspi.Registry.generateMouseEvent(x, y, kind)
        time.sleep(0.03)

    value = dial.queryValue()
    value.currentValue = 100
    place = dial.queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
    x, y = place.x + place.width // 2, place.y + 10
    mouse("abs", x, y)
    mouse("b1p", x, y)
    for _ in range(16):
        mouse("rel", 0, -10)
    assert y < 150, "the screen ends before the drag does"
    wait(lambda: abs(value.currentValue - 850) < 5)  # the first 10 points only begin the drag
    mouse("rel", 0, 1)
    mouse("b1r", -1, -1)


def check_dials(root):
    pyatspi.Registry.registerEventListener(
        lambda event: announced.append((event.source.name, event.type)),
        "object:property-change:accessible-value",
        "object:property-change:accessible-description")
    dial = find(root, "Cutoff")
    assert {STATE_ENABLED, STATE_SENSITIVE, STATE_FOCUSABLE} <= states(dial)
    assert dial.description == "440.0 Hz", dial.description
    value = dial.queryValue()
    assert (value.minimumValue, value.maximumValue, value.currentValue) == (0, 1000, 440)
    assert abs(value.minimumIncrement - 20) < 0.01, value.minimumIncrement

    do(dial, "Increase")
    wait(lambda: abs(dial.queryValue().currentValue - 460) < 0.01)
    assert dial.description == "460.0 Hz", dial.description
    dial.queryValue().currentValue = 250
    wait(lambda: abs(dial.queryValue().currentValue - 250) < 0.01)
    do(dial, "Press")  # the field to type into
    field = wait(lambda: pyatspi.findDescendant(dial, lambda n: n.getRole() == pyatspi.ROLE_TEXT))
    assert field.name == "Cutoff", field.name
    drag_beyond_the_screen(dial)
    assert not {STATE_ENABLED, STATE_SENSITIVE} & states(find(root, "Out of reach"))

    # Automation moves the other dial, and nobody hears of it.
    played = find(root, "Played")
    before = played.queryValue().currentValue
    wait(lambda: abs(played.queryValue().currentValue - before) > 20)
    hear()
    names = {name for name, _ in announced}
    assert names == {"Cutoff"}, announced

    # Nor of the field that shows what it plays, until something is typed.
    do(played, "Press")
    field = wait(lambda: pyatspi.findDescendant(played, lambda n: n.getRole() == pyatspi.ROLE_TEXT))
    shown = field.queryText().getText(0, -1)
    hear()
    told = []
    pyatspi.Registry.registerEventListener(
        lambda event: told.append((event.type, event.any_data)), "object:text-changed",
        "object:text-caret-moved", "object:text-selection-changed")
    wait(lambda: field.queryText().getText(0, -1) != shown)
    time.sleep(0.3)
    hear()
    assert not told, told
    field.queryEditableText().setTextContents("5")
    wait(lambda: told)


def check_buttons(root):
    assert [child.name for child in find(root, "Page")] == ["Bands", "Carrier"]
    assert [child.name for child in find(root, "Waves")] == ["Sine", "Saw"]
    assert find(root, "Saw").description == "Wave"
    assert STATE_SELECTED in states(find(root, "Bands"))
    assert STATE_CHECKED in states(find(root, "Sine"))

    pyatspi.Registry.registerEventListener(
        lambda event: heard.append((event.source.name, event.type.minor, bool(event.detail1))),
        "object:state-changed:checked", "object:state-changed:selected")
    # What the user does is told, for what it changes as well.
    do(find(root, "Mute"), "Toggle")
    wait(lambda: ("Mute", "checked", True) in heard)
    assert STATE_CHECKED in states(find(root, "Mute"))
    do(find(root, "Saw"), "Press")
    wait(lambda: ("Saw", "checked", True) in heard and ("Sine", "checked", False) in heard)
    do(find(root, "Carrier"), "Press")
    wait(lambda: ("Carrier", "selected", True) in heard)
    assert STATE_SELECTED not in states(find(root, "Bands"))

    turned = []
    pyatspi.Registry.registerEventListener(
        lambda event: turned.append((event.source.name, event.source.description)),
        "object:property-change:accessible-description")
    do(find(root, "Direction"), "Press")
    wait(lambda: ("Direction", "Left") in turned)

    # What automation does is not.
    wait(lambda: len(heard) == 5)
    do(find(root, "Automate"), "Press")
    wait(lambda: find(root, "Automated"))
    do(find(root, "Mute"), "Toggle")  # comes behind whatever else there was
    wait(lambda: len(heard) > 5)
    assert heard[5:] == [("Mute", "checked", True)], heard[5:]


def check(root):
    for name, role in ROLES.items():
        node = find(root, name)
        assert node is not None, name
        assert node.getRole() == role, f"{name} is a {node.getRoleName()}"
    check_dials(root)
    check_buttons(root)


run("fernhorn_sample", "Mute", check)
