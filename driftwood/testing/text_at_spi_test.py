"""What a screen reader sees of the text fields, over the real accessibility bus.

Usage: text_at_spi_test.py SAMPLE.
"""
import pyatspi
from pyatspi import (STATE_EDITABLE, STATE_ENABLED, STATE_FOCUSED, STATE_SHOWING)

from at_spi import do, find, run, states, wait

ERROR = "Constant names must only contain A-Z, a-z, 0-9 and the characters _ and $"


def text_of(node):
    text = node.queryText()
    return text.getText(0, text.characterCount)


def check(root):
    changes = []
    pyatspi.Registry.registerEventListener(
        lambda event: changes.append((event.source.name, event.type, event.any_data)),
        "object:text-changed")

    preset = find(root, "Preset")
    assert preset.getRole() in (pyatspi.ROLE_TEXT, pyatspi.ROLE_ENTRY), preset.getRoleName()
    assert {STATE_EDITABLE, STATE_ENABLED} <= states(preset)
    assert text_of(preset) == "Glass Horizon"
    assert preset.childCount == 0, "the line edit is the field's own affair"
    preset.queryEditableText().insertText(6, "Far ", 4)
    wait(lambda: text_of(preset) == "Glass Far Horizon")
    inserted = wait(lambda: [c for c in changes if c[0] == "Preset" and "insert" in c[1]])
    assert inserted[0][2] == "Far ", inserted
    box = preset.queryText().getCharacterExtents(0, pyatspi.DESKTOP_COORDS)
    assert box[2] > 0 and box[3] > 0, box

    label = find(root, "Shown only")
    assert label.getRole() in (pyatspi.ROLE_LABEL, pyatspi.ROLE_STATIC), label.getRoleName()
    assert STATE_EDITABLE not in states(label)

    # Its message is its description and an alert; the field itself stays what it is.
    name = find(root, "Constant")
    wait(lambda: STATE_FOCUSED in states(name))
    name.queryEditableText().setTextContents("a b")
    wait(lambda: name.description == ERROR)
    assert pyatspi.STATE_DEFUNCT not in states(name), states(name)
    alert = wait(lambda: pyatspi.findDescendant(
        root, lambda node: node.getRole() == pyatspi.ROLE_ALERT))
    assert alert.name == ERROR, alert.name
    assert STATE_SHOWING in states(alert)
    assert STATE_FOCUSED in states(name), "the alert leaves the keyboard where it is"
    name.queryEditableText().setTextContents("ab")
    wait(lambda: name.description != ERROR)

    gain = pyatspi.findDescendant(
        root, lambda node: node.name == "Gain" and STATE_EDITABLE in states(node))
    assert text_of(gain) == "-3 dB", text_of(gain)

    search = find(root, "Search presets")
    assert text_of(search) == "pad"
    do(find(search, "Clear the search"), "Press")
    wait(lambda: text_of(search) == "")

    assert STATE_ENABLED not in states(find(root, "Out of reach"))


run("text_at_spi_sample", "Preset", check)
