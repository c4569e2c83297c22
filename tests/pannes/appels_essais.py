"""Runs the program under test in a place of its own, with calls that fail, and keeps what it said."""
import mmap
import os
import select
import shutil
import signal
import struct
import subprocess
import tempfile
import time
from dataclasses import dataclass, field
from pathlib import Path

import appels_etat as etat

KINDS = ("open", "read", "pread", "fread", "write", "pwrite", "writev", "fwrite", "fsync", "close", "rename", "unlink",
         "rmdir", "ftruncate", "fallocate", "mkdir", "link", "copy", "flock", "opendir", "readdir", "chmod", "utimens",
         "stat")
COUNTS_SIZE = 8 * len(KINDS) + 8 + 1024
BALLAST = "plein"  # file that takes all room of a disk
PATIENCE = 20  # seconds; a run takes a fraction of one


@dataclass(frozen=True)
class Fault:
    kind: str
    rank: int
    error: str
    lasting: bool = False

    def __str__(self):
        return f"{self.kind}#{self.rank} {self.error}{' and all later ones' if self.lasting else ''}"

    def environment(self):
        return {"PANNE_GENRE": self.kind, "PANNE_RANG": str(self.rank), "PANNE_ERREUR": self.error,
                "PANNE_SUITE": "1" if self.lasting else "0"}


@dataclass
class Run:
    """What a run said and how it ended. `seen` holds what a look at the disk found at each stage."""
    lines: list = field(default_factory=list)
    errors: str = ""
    status: int = 0
    hung: bool = False
    counts: dict = field(default_factory=dict)
    injected: int = 0
    failed_path: str = ""
    seen: dict = field(default_factory=dict)

    def value(self, name):
        """What it last said of a name."""
        return next((line.split(" ", 1)[1] for line in reversed(self.lines) if line.startswith(name + " ")), None)

    def messages(self):
        return [line for line in self.lines if line.startswith(("MSG ", "QUESTION "))]

    def ended_badly(self):
        if self.hung:
            return "does not end"
        if self.status < 0:
            return f"ended by {signal.Signals(-self.status).name}"
        if self.status == 134 or self.status == 139:
            return f"ended with status {self.status}"
        return None


class Place:
    """Folders of a run: where the target lies, the temporary one, the program's and the settings'."""

    def __init__(self, base, files=None):
        self.base = Path(tempfile.mkdtemp(prefix="essai-", dir=base))
        self.target, self.temporary = self.base / "cible", self.base / "temp"
        self.program, self.settings = self.base / "programme", self.base / "reglages"
        for folder in (self.target, self.temporary, self.program, self.settings):
            folder.mkdir()
        for name, source in (files or {}).items():
            shutil.copyfile(source, self.target / name)

    def remove(self):
        shutil.rmtree(self.base, ignore_errors=True)

    def environment(self):
        return {"PATH": os.environ.get("PATH", "/usr/bin:/bin"), "LC_ALL": "C.UTF-8", "TZ": "UTC",
                "HOME": str(self.base), "XDG_CONFIG_HOME": str(self.settings), "ZELVANE_DOSSIER": str(self.program),
                "APPELS_TEMP": str(self.temporary)}

    def others(self, *names):
        """What lies beside the files that may lie there."""
        if not self.target.exists():
            return []
        return sorted(file.name for file in self.target.iterdir() if file.name not in (*names, BALLAST))

    def left(self):
        """In the temporary folder of the windows, and in that of commands, which have no settings here."""
        folders = [folder for folder in (self.temporary, self.program / "temp") if folder.exists()]
        return sorted(file.name for folder in folders for file in folder.iterdir() if file.name != BALLAST)


class Programs:
    """Where the build put what is run."""

    def __init__(self, build, base):
        build = Path(build).resolve()
        self.subject = build / "bin/appels_cobaye"
        self.cli = build / "bin/zelvane-cli"
        self.library = next(build.glob("**/libpanne_prechargee.so"))
        self.base = base

    def run(self, command, place, fault=None, look=None, extra=None, armed=False, preexec=None):
        """`look(stage, run)` is called while the program waits at a stage; what it returns is kept, and an answer in
        `run.answer` is sent."""
        run = Run()
        with tempfile.NamedTemporaryFile(dir=self.base) as counts:
            counts.truncate(COUNTS_SIZE)
            environment = place.environment() | {
                "LD_PRELOAD": str(self.library), "PANNE_COMPTES": counts.name, "PANNE_ARMEE": "1" if armed else "0",
                "PANNE_DOSSIERS": f"{place.target}:{place.temporary}:{place.program}"}
            environment |= (fault.environment() if fault else {}) | (extra or {})
            with subprocess.Popen([str(word) for word in command], env=environment, stdin=subprocess.PIPE,
                                  stdout=subprocess.PIPE, stderr=subprocess.PIPE, cwd=place.base,
                                  preexec_fn=preexec) as process:
                self.follow(process, run, look)
            self.read_counts(counts, run)
        return run

    @staticmethod
    def follow(process, run, look):
        """Reads what it says until it ends. Its errors are little: they fit into the pipe."""
        deadline = time.monotonic() + PATIENCE
        pending = b""
        output = process.stdout.fileno()
        while True:
            ready, _, _ = select.select([output], [], [], max(0, deadline - time.monotonic()))
            if not ready:
                process.kill()
                run.hung = True
                break
            piece = os.read(output, 65536)
            if not piece:
                break
            *lines, pending = (pending + piece).split(b"\n")
            for line in lines:
                text = line.decode("utf-8", "replace")
                run.lines.append(text)
                if text.startswith("ETAPE "):
                    Programs.pass_stage(process, run, text.split(" ", 1)[1], look)
        try:
            run.status = process.wait(max(0.1, deadline - time.monotonic()))
        except subprocess.TimeoutExpired:
            process.kill()
            run.hung = True
            run.status = process.wait()
        if pending:
            run.lines.append(pending.decode("utf-8", "replace"))
        run.errors = process.stderr.read().decode("utf-8", "replace")
        if run.hung:
            run.status = 0

    @staticmethod
    def pass_stage(process, run, stage, look):
        answer = None
        if look:
            run.seen[stage] = look(stage, run)
            answer = run.seen[stage] if isinstance(run.seen[stage], str) else None
        try:
            process.stdin.write(((answer + "\n") if answer else "").encode() + b"\n")
            process.stdin.flush()
        except BrokenPipeError:
            pass

    @staticmethod
    def read_counts(file, run):
        with mmap.mmap(file.fileno(), COUNTS_SIZE, prot=mmap.PROT_READ) as memory:
            numbers = struct.unpack_from(f"{len(KINDS) + 1}Q", memory)
            run.counts = {kind: count for kind, count in zip(KINDS, numbers) if count}
            run.injected = numbers[-1]
            run.failed_path = memory[8 * (len(KINDS) + 1):].split(b"\0")[0].decode("utf-8", "replace")

    def offered(self, place):
        """What the next start offers of what was left behind, opened: the states, and whatever it said."""
        run = self.run([self.subject, "laisses"], place)
        states, lines, folder = [], [], None
        for line in run.lines + ["DOSSIER"]:
            if line.startswith("DOSSIER"):
                if folder:
                    states.append(etat.of_output(lines, folder))
                lines, folder = [], line.partition(" ")[2]
            else:
                lines.append(line)
        return states, run
