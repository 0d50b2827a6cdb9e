"""Fails when an include points to a floor above its own, or from one library into another:
check_floors.py SOURCES [FILE…]. Tests and what only tests use may look at everything of their own library."""
import pathlib
import re
import sys

FLOORS = """core
platform/system platform/audio
platform/assets
platform/gpu
platform/controls
platform/ui
updates/feed fernhorn/model driftwood/util shaders
updates/archive fernhorn/format driftwood/style
updates/install fernhorn/fonts driftwood/bridges
updates/session fernhorn/dials fernhorn/buttons driftwood/controls
updates/dialogs updates/publisher fernhorn/header driftwood/text driftwood/menus
updates fernhorn/plugin driftwood/tables driftwood/windows driftwood/declarative
app plugin
gallery
bench docs""".split("\n")
RANK = {folder: rank for rank, line in enumerate(FLOORS) for folder in line.split()}
LIBRARIES = ("updates", "fernhorn", "shaders", "driftwood")


def floor_of(path):
    """The longest known folder that the file is in; none for what is no floor, such as artwork."""
    return next((str(f) for f in pathlib.PurePath(path).parents if str(f) in RANK), None)


def is_wrong(file, included):
    own, other = floor_of(file), floor_of(included)
    if own is None or other is None or own == other:
        return own is not None and "/testing/" in included and not is_for_tests(file)
    own_library, other_library = own.split("/")[0], other.split("/")[0]
    if own_library == other_library and is_for_tests(file):
        return False
    if "/testing/" in included:
        return not is_for_tests(file)
    crosses = own_library in LIBRARIES and other_library in LIBRARIES and own_library != other_library
    return crosses or RANK[other] >= RANK[own]


def is_for_tests(file):
    return "_test." in file or "/testing/" in file or file.startswith(("bench/", "docs/"))


root = pathlib.Path(sys.argv[1])
files = sys.argv[2:] or [str(p.relative_to(root)) for folder in {f.split("/")[0] for f in RANK}
                         for p in (root / folder).rglob("*.?pp")]
wrong = [f"{file} includes {included}" for file in sorted(files)
         for included in re.findall(r'^#include "(.+?)"', (root / file).read_text(), re.M)
         if is_wrong(file, included)]
print("\n".join(wrong), f"{len(files)} files read", sep="\n")
sys.exit(bool(wrong) or not files)
