"""A database server of the tests' own: a data folder and a socket that nobody else uses, for as long as the tests run."""
import os
import re
import shutil
import subprocess
import tempfile
import time
from pathlib import Path


class Server:
    USER = ""  # whom the server runs as where the tests run as the superuser, which servers refuse

    def __init__(self):
        self.folder = Path(tempfile.mkdtemp(prefix="vorn-server-"))
        self.unprivileged = []
        if os.geteuid() == 0:
            shutil.chown(self.folder, self.USER, self.USER)
            self.unprivileged = ["setpriv", f"--reuid={self.USER}", f"--regid={self.USER}", "--clear-groups"]
        self.process = None
        try:
            self.install()
            self.start()
        except BaseException:
            self.stop()
            raise

    def start(self):
        # It ends with the tests, however they end.
        self.process = subprocess.Popen([*self.unprivileged, "setpriv", "--pdeathsig=INT", *map(str, self.command())], cwd=self.folder,
                                        stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        for _ in range(300):
            if self.process.poll() is not None:
                break
            if self.is_ready():
                return
            time.sleep(0.1)
        raise RuntimeError("the server does not start")

    def stop(self):
        if self.process:
            self.process.terminate()
            self.process.wait()
        shutil.rmtree(self.folder)

    def run(self, command, **options):
        """What the command prints; an error where it fails or, of errors that it goes on after, prints any."""
        done = subprocess.run(list(map(str, command)), capture_output=True, cwd=self.folder, **options)
        errors = re.findall(r"^(?:psql:.*)?ERROR.*", done.stderr.decode(), re.MULTILINE)
        if done.returncode or errors:
            raise RuntimeError(f"{len(errors)} errors\n" + "\n".join(errors)[:4000] if errors else done.stderr.decode()[-2000:])
        return done.stdout.decode()
