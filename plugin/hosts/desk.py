"""A desk for trying the plug-in in hosts: a screen, a window manager and a sound server of its own, none
of which needs a device. As a program, desk.py FILE LV2_PATH: a picture of the plug-in in the smallest host."""
import os
import pathlib
import re
import shutil
import struct
import subprocess
import sys
import tempfile
import time
import zlib

PLUGIN = "https://www.fennick.example/plugins/larkvox"


def missing(*programs):
    """Those of the programs that are not installed."""
    return [program for program in programs if shutil.which(program) is None]


def wait(condition, seconds, what):
    """The first true answer of condition()."""
    end = time.monotonic() + seconds
    while True:
        answer = condition()
        if answer:
            return answer
        if time.monotonic() > end:
            raise AssertionError(f"waited {seconds} s for {what}")
        time.sleep(0.05)


class Desk:
    def __init__(self, lv2_path, width=1400, height=1000):
        self.place = pathlib.Path(tempfile.mkdtemp(prefix="larkvox-desk-"))
        self.processes = []
        run = self.place / "run"
        run.mkdir(mode=0o700)
        (self.place / "home").mkdir()
        self.environment = {
            **{name: value for name, value in os.environ.items()
               if name not in ("WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "QT_SCALE_FACTOR")},
            "HOME": str(self.place / "home"), "XDG_RUNTIME_DIR": str(run), "LC_ALL": "C.UTF-8",
            "LV2_PATH": f"{pathlib.Path(lv2_path).resolve()}:/usr/lib/lv2",
            "JACK_DEFAULT_SERVER": f"larkvox{os.getpid()}", "DBUS_SESSION_BUS_ADDRESS": "disabled:"}
        reading, writing = os.pipe()
        self.start("Xvfb", "-displayfd", str(writing), "-screen", "0", f"{width}x{height}x24",
                   "-fbdir", str(self.place), "-nolisten", "tcp", pass_fds=[writing])
        os.close(writing)
        with os.fdopen(reading) as answer:
            self.environment["DISPLAY"] = ":" + answer.readline().strip()
        self.start("openbox")

    def start_sound(self):
        self.start("jackd", "-n", self.environment["JACK_DEFAULT_SERVER"], "-r", "-d", "dummy",
                   "-r", "48000", "-p", "256")
        wait(lambda: self.run("jack_wait", "-s", self.environment["JACK_DEFAULT_SERVER"], "-c", check=False)
             .stdout.startswith("running") if shutil.which("jack_wait") else time.sleep(1.5) is None,
             20, "jackd")

    def start(self, *command, log=None, **options):
        with open(self.place / (log or pathlib.Path(command[0]).name + ".log"), "w") as output:
            process = subprocess.Popen([str(word) for word in command], env=self.environment,
                                       cwd=self.place, stdout=output, stderr=subprocess.STDOUT,
                                       text=True, **options)
        self.processes.append(process)
        return process

    def run(self, *command, check=True, timeout=60, **options):
        return subprocess.run([str(word) for word in command], env=self.environment, cwd=self.place,
                              capture_output=True, text=True, check=check, timeout=timeout, **options)

    def log(self, name):
        return (self.place / name).read_text(errors="replace")

    def window(self, name, seconds=20):
        """Where a window of that name stands: number, x, y, width, height."""
        def find():
            found = self.run("xdotool", "search", "--onlyvisible", "--name", name, check=False).stdout
            return found.split()[-1] if found.split() else None
        number = wait(find, seconds, f"the window {name}")
        shape = dict(re.findall(r"(\w+)=(-?\d+)",
                                self.run("xdotool", "getwindowgeometry", "--shell", number).stdout))
        return number, *(int(shape[key]) for key in ("X", "Y", "WIDTH", "HEIGHT"))

    def pixels(self):
        """The screen: width, height, rows of red, green and blue."""
        data = (self.place / "Xvfb_screen0").read_bytes()
        header = struct.unpack(">25I", data[:100])
        start, width, height, stride, colors = header[0], header[4], header[5], header[12], header[19]
        start += colors * 12
        rows = []
        for y in range(height):
            row = data[start + y * stride:start + y * stride + width * 4]
            rgb = bytearray(width * 3)
            rgb[0::3], rgb[1::3], rgb[2::3] = row[2::4], row[1::4], row[0::4]
            rows.append(bytes(rgb))
        return width, height, rows

    def picture(self, file, area=None):
        """A PNG of the screen, or of x, y, width, height of it."""
        width, height, rows = self.pixels()
        x, y, width, height = area or (0, 0, width, height)
        body = b"".join(b"\0" + row[x * 3:(x + width) * 3] for row in rows[y:y + height])

        def chunk(name, content):
            return (struct.pack(">I", len(content)) + name + content +
                    struct.pack(">I", zlib.crc32(name + content)))
        pathlib.Path(file).write_bytes(
            b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">2I5B", width, height, 8, 2, 0, 0, 0)) +
            chunk(b"IDAT", zlib.compress(body, 9)) + chunk(b"IEND", b""))

    def part(self, x, y, width, height):
        return [row[x * 3:(x + width) * 3] for row in self.pixels()[2][y:y + height]]

    def close(self):
        for process in reversed(self.processes):
            if process.poll() is None:
                process.terminate()
                try:
                    process.wait(10)
                except subprocess.TimeoutExpired:
                    process.kill()
                    process.wait()
        shutil.rmtree(self.place, ignore_errors=True)


def main(file, lv2_path):
    desk = Desk(lv2_path)
    try:
        desk.start_sound()
        desk.start("jalv.gtk3", PLUGIN)
        x, y, width, height = desk.window("^Larkvox$")[1:]
        desk.run("xdotool", "mousemove", 0, 0)
        time.sleep(2)
        area = x - 1, y - 40, width + 2, height + 22  # with the title, as the window manager counts
        pathlib.Path(file).parent.mkdir(parents=True, exist_ok=True)
        desk.picture(file, area)
    finally:
        desk.close()


if __name__ == "__main__":
    main(*sys.argv[1:3])
