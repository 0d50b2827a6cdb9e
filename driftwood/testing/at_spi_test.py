"""What a screen reader sees of the buttons, over the real accessibility bus.

Usage: at_spi_test.py SAMPLE.
"""
import pyatspi
from pyatspi import (STATE_CHECKED, STATE_ENABLED, STATE_FOCUSABLE,
                     STATE_INDETERMINATE, STATE_SELECTED, STATE_SENSITIVE)

from at_spi import do, find, run, states, wait


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

    toggle = find(root, "Solo")
    assert toggle.getRole() in (pyatspi.ROLE_CHECK_BOX, pyatspi.ROLE_TOGGLE_BUTTON)
    # Qt 6.4 tells nobody that something can be checked; the role says so.
    assert {STATE_CHECKED, STATE_SELECTED} <= states(toggle), states(toggle)
    do(toggle, "Toggle")
    wait(lambda: STATE_CHECKED not in states(toggle))

    disabled = find(root, "Out of reach")
    assert not {STATE_ENABLED, STATE_SENSITIVE} & states(disabled)

    corner = find(root, "More")
    do(corner, "ShowMenu")
    wait(lambda: pyatspi.STATE_SHOWING in states(find(corner, "Duplicate")))
    do(find(corner, "Duplicate"), "Press")
    wait(lambda: find(root, "Duplicated"))

    waveform = find(root, "Waveform")
    assert waveform.description == "Sine", waveform.description
    do(waveform, "Press")
    wait(lambda: pyatspi.STATE_EXPANDED in states(waveform))
    do(wait(lambda: find(waveform, "Square")), "Press")
    wait(lambda: waveform.description == "Square")

    tabs = find(root, "Section")
    assert tabs.getRole() == pyatspi.ROLE_PAGE_TAB_LIST, tabs.getRoleName()
    names = [tab.name for tab in tabs]
    assert names == ["Oscillator", "Filter"], names
    assert all(tab.getRole() == pyatspi.ROLE_PAGE_TAB for tab in tabs)
    assert STATE_SELECTED in states(tabs[0]) and STATE_SELECTED not in states(tabs[1])
    do(tabs[1], "Press")
    wait(lambda: STATE_SELECTED in states(find(root, "Filter")))

    gain = find(root, "Gain")
    assert gain.getRole() == pyatspi.ROLE_SLIDER, gain.getRoleName()
    value = gain.queryValue()
    assert (value.minimumValue, value.maximumValue) == (-60, 12)
    value.currentValue = -6
    wait(lambda: find(root, "Gain").description == "-6 dB")
    do(find(root, "Detune"), "Increase")
    wait(lambda: abs(find(root, "Detune").queryValue().currentValue - 0.01) < 1e-6)

    level = pyatspi.findDescendant(
        root, lambda node: node.name == "Level" and node.getRole() == pyatspi.ROLE_SLIDER)
    assert level.description == "Mixed", level.description
    try:
        level.queryValue()
        raise AssertionError("objects that disagree have no number")
    except NotImplementedError:
        pass
    do(level, "Increase")
    wait(lambda: level.description == "6 %")
    do(find(root, "Decrease Level"), "Press")
    wait(lambda: level.description == "5 %")

    do(find(root, "Poly"), "Toggle")
    wait(lambda: STATE_CHECKED in states(find(root, "Poly")))
    assert STATE_CHECKED not in states(find(root, "Mono"))

    # The toolkit calls a combo box by its text; what names it is the label beside it.
    category = pyatspi.findDescendant(
        root, lambda node: node.getRole() == pyatspi.ROLE_COMBO_BOX and node.name == "Bass")
    assert pyatspi.STATE_EXPANDABLE in states(category), states(category)


run("at_spi_sample", "Press me", check)
