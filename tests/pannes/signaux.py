#!/usr/bin/python3
"""Ends the program by signals at random moments, and looks each time whether anything was lost.

Each round starts the guinea pig (cobaye) in folders of its own, waits until it says that a step has begun, and sends one
signal, or two in a row, a drawn part of the step's duration later. Then the next start must yield every entry and every
byte of every image, from the file or from what is offered: see signaux_modele.py. A round is drawn from the seed and its
number; only the moment within a step is up to the machine. Status 1, with the folder kept, when a round fails.
"""
import argparse
import collections
import concurrent.futures
import json
import os
import pathlib
import random
import resource
import select
import shutil
import signal
import subprocess
import sys
import threading
import time

import signaux_modele as modele
import signaux_scenarios as scenarios

#: Seconds after which a process counts as hanging. Nothing else waits for a time.
PATIENCE = 120.0
#: Rounds that are done also where the machine is slow.
FEWEST = 60
#: Rounds that failed of which the folder is kept.
KEPT = 10

ENTRIES = {"1": 2000, "50": 4000, "2000": 3000, "texte": 4000}
IMAGE_SIZES = {"1": 1_000_000, "50": 60_000, "2000": 8_000}


class Templates:
    """The catalogues and images that rounds begin with, made once."""

    def __init__(self, folder, seed):
        self.folder = folder
        folder.mkdir(parents=True)
        self._seed = seed
        self._made = {}
        self._lock = threading.Lock()
        chance = random.Random(f"{seed}-sources")
        self.sources = {}
        for number in range(10):
            path = folder / f"source{number}"
            path.write_bytes(chance.randbytes(chance.randint(10_000, 400_000)))
            self.sources[str(path)] = modele.sha(path.read_bytes())

    def copy(self, kind, prefix, path):
        """Puts a catalogue at `path`; returns its state and form."""
        with self._lock:
            if (kind, prefix) not in self._made:
                images = None if kind == "texte" else int(kind)
                template = self.folder / f"{kind}-{prefix}.qrt"
                state = modele.make_catalogue(template, prefix, ENTRIES[kind], images, f"{self._seed}-{kind}",
                                              IMAGE_SIZES.get(kind, 0))
                self._made[kind, prefix] = template, state
            template, state = self._made[kind, prefix]
        shutil.copyfile(template, path)
        return state, modele.TEXT if kind == "texte" else modele.ARCHIVE


class GuineaPig:
    """One start of the guinea pig, in the folders of a round."""

    def __init__(self, program, folder, *arguments, script=""):
        self.log = []        # the lines that it said
        self.hangs = False
        self._rest = b""
        folders = {"HOME": "maison", "XDG_CONFIG_HOME": "reglages", "XDG_DATA_HOME": "donnees", "XDG_CACHE_HOME": "cache",
                   "XDG_RUNTIME_DIR": "runtime", "ZELVANE_DOSSIER": "programme", "TMPDIR": "tmp"}
        for name in folders.values():
            (folder / name).mkdir(mode=0o700, parents=True, exist_ok=True)
        environment = {name: value for name, value in os.environ.items()
                       if not name.startswith(("QT_", "XDG_", "LC_", "LANG", "WAYLAND", "DISPLAY", "DBUS"))}
        environment |= {name: str(folder / value) for name, value in folders.items()}
        environment |= {"QT_QPA_PLATFORM": "offscreen", "LC_ALL": "C.UTF-8", "TZ": "UTC"}
        # The script is a file: it is there as a whole, and nobody waits for anybody.
        (folder / "script").write_text(script, encoding="utf-8")
        with open(folder / "script", "rb") as read, open(folder / f"dit-{arguments[0]}", "ab") as said:
            self.process = subprocess.Popen([program, *arguments], stdin=read, stdout=subprocess.PIPE, stderr=said,
                                            env=environment, cwd=folder)

    def pump(self, limit):
        """Adds the lines that come within `limit` seconds to the log. False once there are no more."""
        pipe = self.process.stdout
        if not select.select([pipe], [], [], limit)[0]:
            return True
        read = os.read(pipe.fileno(), 1 << 16)
        *lines, self._rest = (self._rest + read).split(b"\n")
        self.log += [line.decode("utf-8") for line in lines]
        return bool(read)

    def lines(self):
        """Its lines as they come, until it ends or hangs."""
        deadline = time.monotonic() + PATIENCE
        given = 0
        goes_on = True
        while goes_on or given < len(self.log):
            if given < len(self.log):
                given += 1
                yield self.log[given - 1]
                continue
            goes_on = self.pump(1)
            if goes_on and time.monotonic() > deadline:
                self.hangs = True
                return

    def send(self, sig):
        try:
            self.process.send_signal(sig)
        except ProcessLookupError:
            pass

    def finish(self):
        """Its status; what hangs is ended."""
        if self.hangs:
            self.process.kill()
        self.process.stdout.close()
        return self.process.wait()


class Clock:
    """How long steps take here and now. The machine may be at work on something else, which this follows: what came too
    late comes earlier the next time."""

    def __init__(self):
        self._taken = {}

    def expected(self, kind, step):
        return self._taken.get((kind, step.split(" ")[0]), 0.02)

    def learn(self, kind, step, seconds):
        before = self.expected(kind, step)
        self._taken[kind, step.split(" ")[0]] = before + (seconds - before) / 4

    def correct(self, kind, step, in_time):
        self.learn(kind, step, self.expected(kind, step) * (1.1 if in_time else 0.7))


class Round:
    """One round, from a seed to a verdict. `spoil`, for tests, is called with the folder once the process has ended."""

    def __init__(self, campaign, number, scenario, spoil=None):
        self.campaign = campaign
        self.number = number
        self.scenario = scenario
        self.folder = campaign.folder / f"tour-{number}"
        self.target = self.folder / "documents"
        self.steps = []
        self.delays = []
        self.wrong = []
        self.left = []      # temporary things beside the file that a killed process could not take away
        self.hit = False    # the step was still under way when the signal was sent
        self._spoil = spoil

    def run(self):
        story = self._prepare()
        self._run_before(story)
        pig = GuineaPig(self.campaign.program, self.folder, "agir", script="\n".join(self.steps) + "\n")
        self._drive(pig)
        status = pig.finish()
        if pig.hangs:
            self.wrong.append("HANG the process did not end")
        self._tell(story, pig.log, status)
        if self._spoil:
            self._spoil(self.folder)
        modele.keep(self.folder, self.campaign.folder / f"tour-{self.number}-avant")
        self._judge(story)
        self._tidy()
        return self

    def _prepare(self):
        self.target.mkdir(parents=True)
        copy = self.campaign.templates.copy
        first, second, third = (self.target / f"{name}.qrt" for name in ("premier", "deuxieme", "troisieme"))
        files = {first: copy(self.scenario.kind, "a", first)}
        if self.scenario.second:
            files[second] = copy("1", "b", second)
        if self.scenario.replaced:
            files[third] = copy("1", "c", third)
        names = {"@A@": first, "@B@": second, "@C@": third}
        names |= {f"@{pathlib.Path(path).name}@": path for path in self.campaign.templates.sources}
        self._names = names
        self.steps = [self._named(step) for step in self.scenario.steps]
        return modele.Story(files, self.campaign.templates.sources)

    def _named(self, step):
        for mark, path in self._names.items():
            step = step.replace(mark, str(path))
        return step

    def _run_before(self, story):
        """A run that did all its steps and was killed then."""
        steps = [self._named(step) for step in self.scenario.before]
        if not steps:
            return
        pig = GuineaPig(self.campaign.program, self.folder, "agir", script="\n".join(steps) + "\n")
        for line in pig.lines():
            if line == "attend":
                pig.send(signal.SIGKILL)
        if pig.finish() != -signal.SIGKILL:
            self.wrong.append("STATUS before")
        self._retell(story, steps, pig.log)

    def _drive(self, pig):
        """Sends the signals once the step has begun, and learns how long steps take."""
        began = {}
        clock, kind = self.campaign.clock, self.scenario.kind
        for line in pig.lines():
            word, _, rest = line.partition(" ")
            if word == "debut":
                began[rest] = time.monotonic()
                if int(rest) == self.scenario.target + 1:
                    self._send(pig)
            elif word == "fin":
                number, _, _ = rest.partition(" ")
                if not self.delays:
                    clock.learn(kind, self.steps[int(number) - 1], time.monotonic() - began[number])

    def _send(self, pig):
        kind, step = self.scenario.kind, self.steps[self.scenario.target]
        expected = self.campaign.clock.expected(kind, step)
        pauses = [self.scenario.fraction * expected, self.scenario.gap * expected]
        for sig, pause in zip(self.scenario.signals, pauses):
            time.sleep(pause)
            if not self.delays:
                pig.pump(0)
                self.hit = not any(line.startswith(f"fin {self.scenario.target + 1} ") for line in pig.log)
                self.campaign.clock.correct(kind, step, self.hit)
            pig.send(sig)
            self.delays.append(pause)

    def _tell(self, story, log, status):
        self._retell(story, self.steps, log)
        self.wrong += [f"STEP refused: {step}" for step in story.odd]
        expected = {-sig for sig in self.scenario.signals} | ({0} if self.steps[-1].startswith("quitter") else set())
        if status not in expected:
            self.wrong.append(f"STATUS {status}")

    @staticmethod
    def _retell(story, steps, log):
        ended = dict(line.split(" ")[1:] for line in log if line.startswith("fin "))
        for line in log:
            if line.startswith("debut "):
                number = line.split(" ")[1]
                story.tell(steps[int(number) - 1], ended.get(number))

    def _judge(self, story):
        self.left = modele.leftovers(self.target, story)
        paths = sorted(story.settled.keys() | story.writing)
        pig = GuineaPig(self.campaign.program, self.folder, "constater", *map(str, paths))
        findings = [json.loads(line) for line in pig.lines() if line.startswith("{")]
        status = pig.finish()
        if pig.hangs or status != 0:
            self.wrong.append(f"NEXT START status {status}")
        self.wrong += modele.judge(story, self.scenario.polite, findings)
        if self.scenario.polite:
            self.wrong += [f"LEFT at the target: {name}" for name in self.left]

    def _tidy(self):
        shutil.rmtree(self.folder, ignore_errors=True)
        before = self.campaign.folder / f"tour-{self.number}-avant"
        if self.wrong and self.campaign.may_keep():
            before.rename(self.folder)
        else:
            shutil.rmtree(before, ignore_errors=True)


class Campaign:
    def __init__(self, program, folder, seed):
        self.program = str(pathlib.Path(program).resolve())
        self.folder = pathlib.Path(folder).resolve()
        self.seed = seed
        shutil.rmtree(self.folder, ignore_errors=True)
        self.templates = Templates(self.folder / "modeles", seed)
        self.clock = Clock()
        self.rounds = []
        self._kept = 0
        self._lock = threading.Lock()

    def may_keep(self):
        with self._lock:
            self._kept += 1
            return self._kept <= KEPT

    def scenario(self, number):
        return scenarios.draw(random.Random(f"{self.seed}-{number}"))

    def round(self, number):
        done = Round(self, number, self.scenario(number)).run()
        with self._lock:
            self.rounds.append(done)
            if len(self.rounds) % 100 == 0:
                print(f"{len(self.rounds)} rounds, {sum(bool(one.wrong) for one in self.rounds)} failed", flush=True)
        if done.wrong:
            self.report(done)
        return done

    def report(self, done):
        scenario = done.scenario
        where = done.folder if done.folder.exists() else "not kept"
        pauses = ", ".join(f"{pause * 1000:.1f} ms" for pause in done.delays)
        print(f"FAILED round {done.number} of seed {self.seed}: {scenario.kind}, {scenario.name} after {pauses} in step"
              f" {scenario.target + 1}, \"{done.steps[scenario.target]}\"; {where}", flush=True)
        for wrong in done.wrong:
            print(f"    {wrong[:400]}", flush=True)

    def control(self, kind):
        """A round without a signal: the model must tell to the letter what the program holds, and nothing is left."""
        steps = ["ouvrir @A@", "editer 1 v1Ж" if kind != "texte" else "editer 1 v1é", "secours 1", "appliquer 1 v2",
                 "secours-entier 1", "inscrire 1 aZ1", "sauver 1"]
        if kind != "texte":
            steps += ["image 1 a00001 a00001.jpg @source1@", "image 1 a00003 neuf.png @source2@", "sauver 1",
                      "sans-image 1 a00001", "editer 1 v3", "sauver-sous 1 2 @C@"]
        steps += ["dire 1", "quitter oui"]
        return Control(self, f"controle-{kind}", scenarios.Scenario(kind, steps, -1, [], 0, 0)).run()


class Control(Round):
    def _tell(self, story, log, status):
        super()._tell(story, log, status)
        said = [json.loads(line[5:]) for line in log if line.startswith("etat ")]
        document = story.documents[0]
        missing = modele.shortfall(said[0] if said else None, document.states[-1:])
        if missing:
            self.wrong.append(f"MODEL {missing}")
        temporary = self.folder / "programme" / "temp"
        self.wrong += [f"LEFT behind: {path.name}" for path in temporary.iterdir()]


def table(campaign, seconds):
    """The figures, a line for each signal."""
    kinds = collections.defaultdict(list)
    for done in campaign.rounds:
        kinds[done.scenario.name if len(done.scenario.signals) == 1 else "two in a row"].append(done)

    def count(rounds, word):
        return sum(any(wrong.startswith(word) for wrong in done.wrong) for done in rounds)

    print(f"\n{'signal':<14}{'rounds':>8}{'in the step':>13}{'lost':>7}{'save cut':>10}{'other':>7}{'killed, left a file':>21}")
    order = [sig.name[3:] for sig in scenarios.SIGNALS] + ["two in a row"]
    for name, rounds in [(name, kinds[name]) for name in order] + [("all", campaign.rounds)]:
        lost, cut = count(rounds, "LOSS"), count(rounds, "CUT")
        other = sum(bool(done.wrong) for done in rounds) - sum(
            any(wrong.startswith(("LOSS", "CUT")) for wrong in done.wrong) for done in rounds)
        left = sum(bool(done.left) and not done.scenario.polite for done in rounds)
        hit = sum(done.hit for done in rounds)
        print(f"{name:<14}{len(rounds):>8}{hit:>13}{lost:>7}{cut:>10}{other:>7}{left:>21}")
    print(f"seed {campaign.seed}, {seconds:.0f} s")


def main():
    options = argparse.ArgumentParser(description=__doc__.split("\n", 1)[0])
    options.add_argument("--cobaye", required=True, help="the guinea pig")
    options.add_argument("--travail", required=True, help="a folder that may be emptied")
    options.add_argument("--tours", type=int, default=100, help="rounds")
    options.add_argument("--graine", default=str(int(time.time())), help="seed")
    options.add_argument("--tour", type=int, action="append", help="only this round of the seed")
    options.add_argument("--duree", type=float, default=float("inf"),
                         help=f"seconds after which no further round begins, once there were {FEWEST}")
    options.add_argument("--processus", type=int, default=2, help="rounds at the same time")
    asked = options.parse_args()
    # Who started this may ignore some, as shells do for what runs in the background; the program would ignore them too.
    for ending in (signal.SIGHUP, signal.SIGTERM, signal.SIGQUIT):
        signal.signal(ending, signal.SIG_DFL)
    signal.signal(signal.SIGINT, signal.default_int_handler)
    # A core file of each killed process would fill the disk.
    resource.setrlimit(resource.RLIMIT_CORE, (0, 0))

    start = time.monotonic()
    campaign = Campaign(asked.cobaye, asked.travail, asked.graine)
    print(f"seed {campaign.seed}: {len(asked.tour or range(asked.tours))} rounds", flush=True)
    controls = [campaign.control(kind) for kind in scenarios.KINDS]
    for control in controls:
        if control.wrong:
            print(f"FAILED without a signal: {control.number}: {control.wrong}", flush=True)
    wanted = asked.tour or range(1, asked.tours + 1)

    def round_in_time(number):
        if time.monotonic() - start < asked.duree or len(campaign.rounds) < FEWEST:
            campaign.round(number)

    with concurrent.futures.ThreadPoolExecutor(asked.processus) as pool:
        list(pool.map(round_in_time, wanted))
    if len(campaign.rounds) < len(wanted):
        print(f"the machine is slow: {len(campaign.rounds)} of {len(wanted)} rounds in time")
    table(campaign, time.monotonic() - start)
    done = controls + campaign.rounds
    failed = sum(bool(one.wrong) for one in done)
    print(f"{len(done) - failed} passed, {failed} failed")
    sys.exit(1 if failed else 0)


if __name__ == "__main__":
    main()
