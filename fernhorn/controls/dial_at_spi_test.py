"""What a screen reader sees of the dials, over the real accessibility bus.

Usage: dial_at_spi_test.py SAMPLE.
"""
import time

import pyatspi
from pyatspi import STATE_ENABLED, STATE_FOCUSABLE, STATE_SENSITIVE

from at_spi import do, find, hear, run, states, wait

announced = []


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


def check(root):
    pyatspi.Registry.registerEventListener(
        lambda event: announced.append((event.source.name, event.type)),
        "object:property-change:accessible-value",
        "object:property-change:accessible-description")
    dial = find(root, "Cutoff")
    assert dial.getRole() == pyatspi.ROLE_SLIDER, dial.getRoleName()
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

    disabled = find(root, "Out of reach")
    assert not {STATE_ENABLED, STATE_SENSITIVE} & states(disabled)

    # Automation moves the other dial, and nobody hears of it.
    played = find(root, "Played")
    before = played.queryValue().currentValue
    wait(lambda: abs(played.queryValue().currentValue - before) > 20)
    hear()
    names = {name for name, _ in announced}
    assert names == {"Cutoff"}, announced


run("dial_at_spi_sample", "Cutoff", check)
