"""A session of Ardour's, made by script, with automation; what it exports."""
import array
import pathlib
import subprocess
import sys
import unittest

from desk import PLUGIN, Desk, missing

LV2_PATH = None
HERE = pathlib.Path(__file__).resolve().parent
RATE = 48000
SECONDS = 5
# The range to be exported, which no script can set; in parts of a second that suit all rates.
RANGE = (f'<Locations><Location id="900001" name="session" start="a0" end="a{282240000 * SECONDS}" '
         'flags="IsSessionRange" locked="0" timestamp="0"/></Locations>')


def samples(file):
    """Those of the left channel of a file of 32-bit numbers."""
    data = file.read_bytes()
    start = data.index(b"data") + 8
    return array.array("f", data[start:start + (len(data) - start) // 8 * 8])[0::2]


def crossings(sound):
    return sum(a < 0 <= b for a, b in zip(sound, sound[1:]))


class ArdourTest(unittest.TestCase):
    def setUp(self):
        absent = missing("ardour7-lua", "ardour7-export", "Xvfb", "openbox")
        if absent:
            self.skipTest(f"NOT TESTED: {', '.join(absent)} missing")
        self.desk = Desk(LV2_PATH)
        self.addCleanup(self.desk.close)
        settings = self.desk.place / "home/.config/ardour7"
        settings.mkdir(parents=True)
        (settings / ".a7").touch()  # not the first start

    def export(self, folder, file):
        # Now and then the program does not get beyond its first line; on a busy machine it takes a while.
        for seconds in (15, 30, 60):
            try:
                self.desk.run("ardour7-export", "-b", "float", "-o", file, folder, "sung", timeout=seconds)
                return
            except subprocess.TimeoutExpired:
                pass
        self.fail("three exports did not end")

    def sung(self, folder):
        """What two exports of a new session sound like."""
        self.desk.run("ardour7-lua", HERE / "ardour_session.lua", folder, "sung", PLUGIN)
        session = folder / "sung.ardour"
        text = session.read_text()
        self.assertIn(PLUGIN, text)
        self.assertIn(f"{PLUGIN}#state", (folder / "plugins").rglob("state.ttl").__next__().read_text())
        session.write_text(text.replace("<Locations/>", RANGE))
        # The host itself makes one export in ten differently.
        exports = []
        for number in range(3):
            file = folder / f"{number}.wav"
            self.export(folder, file)
            sound = samples(file)
            self.assertEqual(len(sound), RATE * SECONDS)
            if sound in exports:
                break
            exports.append(sound)
        else:
            self.fail("three exports, and none like another")
        if not any(sound):
            print(f"{folder.name} is silent: {text}", file=sys.stderr, flush=True)
        return sound

    def test_automation_is_heard_the_same_in_every_export(self):
        # The host has been seen to save a session before all of it was there.
        sound = self.sung(self.desk.place / "first")
        if not any(sound):
            sound = self.sung(self.desk.place / "second")
        # Four octaves up in five seconds, from 27.5 Hz.
        for second in range(SECONDS):
            part = sound[second * RATE:(second + 1) * RATE]
            expected = sum(27.5 * 2 ** (4 * (second + i / 100) / SECONDS) for i in range(100)) / 100
            self.assertAlmostEqual(crossings(part) / expected, 1, delta=0.15, msg=f"second {second}")


if __name__ == "__main__":
    LV2_PATH = sys.argv.pop(1)
    unittest.main(verbosity=2)
