"""What the tests of the outputs share: the program, the models, and what is written of each."""
import functools
import json
import subprocess
import sys
import tempfile
from pathlib import Path

import nasty

VORN = Path(sys.argv[1]).resolve()
ROOT = Path(__file__).resolve().parents[2]
FOLDER = tempfile.TemporaryDirectory(prefix="vorn-outputs-")


@functools.cache
def exports():
    """Every export by its name."""
    made = {path.stem: path for path in sorted((ROOT / "examples").glob("*.txt"))}
    models = {"nasty": nasty.nasty(), **{f"types-{store}": nasty.types(system) for system, store in nasty.SYSTEMS.items()}}
    for name, model in models.items():
        made[name] = Path(FOLDER.name) / f"{name}.txt"
        model.write(made[name])
    return made


@functools.cache
def saved(name, extension, *options):
    """The model of an export in a format, as a file."""
    path = Path(FOLDER.name) / ("-".join([name, *options]) + extension)
    encoding = "windows-1252" if exports()[name].parent == ROOT / "examples" else "utf-8"
    subprocess.run([VORN, "import", exports()[name], "-q", "--encoding", encoding, "-o", path, *options], check=True, capture_output=True)
    return path


@functools.cache
def saved_schema():
    """The JSON Schema of saved models, as the program prints it."""
    path = Path(FOLDER.name) / "schema.json"
    path.write_bytes(subprocess.run([VORN, "schema"], check=True, capture_output=True).stdout)
    return path


def parse(jobs):
    """`jobs` is of (parser, file); for each what that parser found, see check.mjs."""
    listed = json.dumps([{"parser": parser, "path": str(path)} for parser, path in jobs])
    done = subprocess.run(["node", Path(__file__).with_name("check.mjs"), saved_schema()], input=listed, capture_output=True, text=True)
    if done.returncode:
        raise RuntimeError(done.stderr[-2000:])
    return json.loads(done.stdout)
