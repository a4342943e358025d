"""Files parsed by the parsers of check.mjs, all in one call of Node."""
import json
import subprocess
from pathlib import Path

CHECK = Path(__file__).with_name("check.mjs")


def parse(schema, jobs):
    """`jobs` is of (parser, path); for each what the parser found, or {"error": TEXT}."""
    listed = json.dumps([{"parser": parser, "path": str(path)} for parser, path in jobs])
    done = subprocess.run(["node", CHECK, schema], input=listed, capture_output=True, text=True)
    if done.returncode:
        raise RuntimeError(done.stderr[-2000:])
    return json.loads(done.stdout)
