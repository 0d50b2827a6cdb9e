"""Sessions of Ardour's with automation, made by script: what they export, and what a dial that is dragged
in the real window writes into them."""
import array
import pathlib
import re
import subprocess
import sys
import time
import unittest

from desk import PLUGIN, Desk, missing, wait

LV2_PATH = None
HERE = pathlib.Path(__file__).resolve().parent
FORMANT_PORT, PITCH_PORT = 4, 21
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
        absent = missing("ardour", "ardour7-lua", "ardour7-export", "Xvfb", "openbox", "jackd", "xdotool")
        if absent:
            self.skipTest(f"NOT TESTED: {', '.join(absent)} missing")
        self.desk = Desk(LV2_PATH, 1600, 1100)
        self.addCleanup(self.desk.close)
        settings = self.desk.place / "home/.config/ardour7"
        settings.mkdir(parents=True)
        (settings / ".a7").touch()  # not the first start

    def make_session(self, folder, automation):
        """The session's file; the automation is that of the script."""
        self.desk.run("ardour7-lua", HERE / "ardour_session.lua", folder, "sung", PLUGIN, automation)
        return folder / "sung.ardour"

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
        session = self.make_session(folder, f"{PITCH_PORT}:-2400:2400:{SECONDS}:Play")
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

    def open_window(self, session):
        """Ardour's window with the session, and the plug-in's: their numbers, where the latter stands."""
        run = self.desk.run
        host = self.desk.start("ardour", "--no-splash", "--no-announcements", session)

        def click(window, x, y, *options):
            run("xdotool", "mousemove", window[1] + x, window[2] + y, "sleep", "0.3", "click", *options, 1)
            time.sleep(1)

        # First it says that the sound device is another one, then it asks for one.
        for _ in range(8):
            time.sleep(3)
            run("xdotool", "key", "Return")
            time.sleep(3)
            if run("xdotool", "search", "--onlyvisible", "--name", "Audio/MIDI Setup", check=False).stdout:
                break
        window = self.desk.window("Audio/MIDI Setup")
        click(window, 285, 29)
        run("xdotool", "key", "Down", "Return")  # JACK
        time.sleep(1)
        window = self.desk.window("Audio/MIDI Setup")
        click(window, window[3] - 70, 332)
        main = self.desk.window("sung - Ardour", 30)
        time.sleep(2)
        run("xdotool", "key", "shift+e")  # the strip at the side
        time.sleep(1)
        click(main, 159, 324)  # the track
        click(main, 38, 179, "--repeat", "2", "--delay", "80")  # the plug-in on it
        return host, main, self.desk.window("Voice: Larkvox", 15)

    def test_a_drag_in_the_window_is_written_between_touch_and_release(self):
        self.desk.start_sound()
        for attempt in range(3):
            session = self.make_session(self.desk.place / f"touched{attempt}", f"{FORMANT_PORT}:-12:12:60:Touch")
            try:
                host, main, window = self.open_window(session)
                break
            except AssertionError as error:
                print(f"attempt {attempt + 1}: {error}", file=sys.stderr, flush=True)
                self.desk.picture(session.with_suffix(".png"))
                self.desk.processes[-1].kill()
        else:
            self.skipTest("NOT TESTED: the host did not get as far as the plug-in's window")
        run = self.desk.run
        time.sleep(2)
        run("xdotool", "windowactivate", "--sync", main[0], "key", "space")
        time.sleep(1.5)
        run("xdotool", "mousemove", window[1] + 268, window[2] + 156, "sleep", "0.2", "mousedown", 1)
        for _ in range(12):
            run("xdotool", "mousemove_relative", "--", 0, -5, "sleep", "0.05")
        run("xdotool", "mouseup", 1)
        time.sleep(1.5)
        run("xdotool", "windowactivate", "--sync", main[0], "key", "space")
        time.sleep(1)
        run("xdotool", "windowactivate", "--sync", main[0], "key", "ctrl+s")
        lane = rf'automation-id="parameter-{FORMANT_PORT}".*?<events>(.*?)</events>'

        def written():
            values = [float(line.split()[1])
                      for line in re.search(lane, session.read_text(), re.S).group(1).strip().splitlines()]
            return values if len(values) > 2 else None
        values = wait(written, 20, "the touched values")
        host.kill()
        first, *_, end, last = values
        self.assertEqual((first, end, last), (-12, 12, 12), "what lies outside the touch stays as it was")
        touched = [value for value in values if value > 12]
        self.assertGreater(len(touched), 8)
        self.assertEqual(touched, sorted(touched), "an upward drag with steps back in it")
        self.assertAlmostEqual(touched[-1] - touched[0], 11 * 60 - 60, delta=120)


if __name__ == "__main__":
    LV2_PATH = sys.argv.pop(1)
    unittest.main(verbosity=2)
