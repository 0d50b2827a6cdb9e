"""The smallest host: its prompt, a session that is restored, the window that shows it."""
import sys
import unittest

from desk import PLUGIN, Desk, missing, wait

LV2_PATH = None
STATE = f'''@prefix lv2: <http://lv2plug.in/ns/lv2core#> .
@prefix pset: <http://lv2plug.in/ns/ext/presets#> .
@prefix rdfs: <http://www.w3.org/2000/01/rdf-schema#> .
@prefix state: <http://lv2plug.in/ns/ext/state#> .
<> a pset:Preset ; lv2:appliesTo <{PLUGIN}> ; rdfs:label "kept" ;
  lv2:port [ lv2:symbol "drive" ; pset:value 9.0 ], [ lv2:symbol "mode" ; pset:value 2.0 ] ;
  state:state [ <{PLUGIN}#state> """{{"version": 1, "parameters": {{"page": 1.0}}, "texts": {{}}}}""" ] .
'''


class JalvTest(unittest.TestCase):
    def setUp(self):
        absent = missing("jalv", "jalv.gtk3", "jackd", "Xvfb", "openbox", "xdotool")
        if absent:
            self.skipTest(f"NOT TESTED: {', '.join(absent)} missing")
        self.desk = Desk(LV2_PATH)
        self.addCleanup(self.desk.close)
        self.desk.start_sound()
        kept = self.desk.place / "kept"
        kept.mkdir()
        (kept / "state.ttl").write_text(STATE)
        turned = self.desk.place / "turned"  # nothing but another page
        turned.mkdir()
        (turned / "state.ttl").write_text("\n".join(
            line for line in STATE.splitlines() if "lv2:port" not in line))

    def test_prompt_sets_what_the_session_has_restored(self):
        said = self.desk.run("jalv", "-l", self.desk.place / "kept", PLUGIN, input=(
            "controls\ndrive = -6\nset cutoff 500\ncontrols\nquit\n")).stdout
        first, *_, last = said.split("formant = ")[1:]
        for value in ("drive = 9.0", "mode = 2.0", "cutoff = 18000.0", "sibilance = 1.0"):
            self.assertIn(value, first)
        for value in ("drive = -6.0", "mode = 2.0", "cutoff = 500.0"):
            self.assertIn(value, last)

    def test_window_shows_the_session(self):
        pictures = {}
        for name, options in (("fresh", []), ("turned", ["-l", self.desk.place / "turned"])):
            host = self.desk.start("jalv.gtk3", *options, PLUGIN)
            x, y, width, height = self.desk.window("^Larkvox$")[1:]

            def drawn():
                rows = self.desk.part(x + 20, y + 60, width - 40, height - 120)
                return rows if len(set(rows)) > 100 else None
            wait(drawn, 15, "the window to be drawn")
            self.desk.run("sleep", "1")
            pictures[name] = drawn()
            host.terminate()
            host.wait(10)
            self.assertNotIn("Fatal", self.desk.log("jalv.gtk3.log"))
        self.assertTrue(pictures["fresh"] != pictures["turned"], "the page is not restored")


if __name__ == "__main__":
    LV2_PATH = sys.argv.pop(1)
    unittest.main(verbosity=2)
