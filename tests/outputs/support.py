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
def limit_exports():
    """Models at the limits of what servers take, and of foreign keys between all types."""
    made = {}
    for name, model in {"edges": nasty.edges(), **{f"pairs-{store}": nasty.pairs(system) for system, store in nasty.SYSTEMS.items()}}.items():
        made[name] = Path(FOLDER.name) / f"{name}.txt"
        model.write(made[name])
    return made


@functools.cache
def random_exports():
    """Exports of made-up models by their names; every second one has no foreign keys, so that they are generated."""
    made = {}
    for seed in range(200):
        path = Path(FOLDER.name) / f"random-{seed}.txt"
        subprocess.run([VORN.parent / "make-export", "--tables", str(2 + seed % 4), "--columns", str(3 + seed % 5), "--seed", str(seed),
                        "--varied", "-o", path], check=True)
        if seed % 2:
            sections = path.read_bytes().split(b"\x1c")
            sections[10] = b"\r".join(record for record in sections[10].split(b"\r") if b"FKEY" not in record)
            path.write_bytes(b"\x1c".join(sections))
        made[path.stem] = path
    return made


@functools.cache
def acceptance_exports():
    """The exports of the acceptance cases that can be imported."""
    folder = Path(FOLDER.name) / "acceptance"
    folder.mkdir()
    subprocess.run([VORN.parent / "acceptance-tests", "--write-exports", folder], check=True)
    return {path.stem: path for path in sorted(folder.glob("*.txt"))
            if not subprocess.run([VORN, "import", path, "-q", "-o", path.with_suffix(".json")], capture_output=True).returncode}


def find_export(name):
    return next(group()[name] for group in (exports, limit_exports, acceptance_exports, random_exports) if name in group())


@functools.cache
def saved(name, extension, *options):
    """The model of an export in a format, as a file."""
    path = Path(FOLDER.name) / ("-".join([name, *options]) + extension)
    export = find_export(name)
    encoding = "utf-8" if export == Path(FOLDER.name) / f"{name}.txt" and not name.startswith("random-") else "windows-1252"
    subprocess.run([VORN, "import", export, "-q", "--encoding", encoding, "-o", path, *options], check=True, capture_output=True)
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
