"""What the program under test is made to do, and what comes of it where nothing fails."""
import os
import shutil
import tempfile
from pathlib import Path

import appels_etat as etat
from appels_essais import Place, Programs
from appels_juge import Expected, Scenario, comparable, look_at_save

SAMPLES = ("essai.qrt", "ancien.qrt", "texte.qrt", "ancien14.qrt")


def working_folder(folder=None):
    """In memory a run takes a fraction of the time, and what is found there is the same."""
    if not folder and os.access("/dev/shm", os.W_OK):
        folder = "/dev/shm"
    if folder:
        os.makedirs(folder, exist_ok=True)
    return tempfile.TemporaryDirectory(prefix="zelvane-pannes-", dir=folder)


class Campaign:
    """The programs, the categories that they work on, and the scenarios. `sample` overrides the size of what is saved
    over and over."""

    def __init__(self, build, base, **sample):
        self.base = Path(os.path.realpath(base))
        self.programs = Programs(build, self.base)
        self.samples = {name: self.base / name for name in SAMPLES}
        etat.write_archive(self.samples["essai.qrt"], etat.sample_files(**sample))
        etat.write_archive(self.samples["ancien.qrt"], etat.sample_files(images=1, entries=3, size=2000))
        lines = {"texte.qrt": [f"Titre {i}|Auteur é||" for i in range(sample.get("entries", 400))],
                 "ancien14.qrt": ["Titre|||"]}
        for name, entries in lines.items():
            self.samples[name].write_bytes(etat.text_of(entries, "1.4").encode("cp1252"))
        self.left = {}  # temporary folders as killed programs leave them, by the scenario that does
        self.references = {}

    def scenarios(self):
        own, old = {"essai.qrt": self.samples["essai.qrt"]}, {"autre.qrt": self.samples["ancien.qrt"]}
        bare, old14 = {"texte.qrt": self.samples["texte.qrt"]}, {"autre.qrt": self.samples["ancien14.qrt"]}

        def subject(*words, files, **more):
            return Scenario(more.pop("name", words[0]), self.command(self.programs.subject, words), files, **more)

        def cli(*words, files, **more):
            return Scenario(more.pop("name", words[0]), self.command(self.programs.cli, words), files, judge="cli",
                            **more)

        return [
            subject("ouvrir", "essai.qrt", files=own, judge="open"),
            subject("ouvrir", "texte.qrt", files=bare, judge="open", source="texte.qrt", name="ouvrir14"),
            subject("enregistrer", "essai.qrt", files=own, target="essai.qrt"),
            subject("enregistrer", "texte.qrt", files=bare, target="texte.qrt", form="1.4", source="texte.qrt",
                    name="enregistrer14"),
            subject("sous", "essai.qrt", "autre.qrt", "2", files=own | old, target="autre.qrt"),
            subject("sous", "essai.qrt", "neuf.qrt", "2", files=own, target="neuf.qrt", name="sous-neuf"),
            subject("sous", "essai.qrt", "autre.qrt", "3", files=own | old14, target="autre.qrt", form="1.4",
                    name="sous14"),
            subject("secours", "essai.qrt", files=own, judge="rescue"),
            subject("laisses", files={}, judge="rescue", left="secours"),
            subject("laisses", files={}, judge="rescue", left="enregistrer", name="laisses-sans-copie"),
            subject("laisses-sous", "-", "autre.qrt", files=old, target="autre.qrt", left="secours"),
            cli("list", "--json", "essai.qrt", files=own),
            cli("convert", "--force", "essai.qrt", "autre.qrt", files=own | old, target="autre.qrt"),
            cli("convert", "--force", "--format=1.4", "essai.qrt", "autre.qrt", files=own | old14, target="autre.qrt",
                form="1.4", name="convert14"),
        ]

    @staticmethod
    def command(program, words):
        return lambda place: [program, *(place.target / word if word.endswith(".qrt") else word for word in words)]

    def named(self, name):
        return next(scenario for scenario in self.scenarios() if scenario.name == name)

    def place(self, scenario):
        place = Place(self.base, scenario.files)
        if scenario.left:
            if scenario.left not in self.left:
                self.reference(self.named(scenario.left))
            shutil.copytree(self.left[scenario.left], place.temporary, dirs_exist_ok=True)
        return place

    @staticmethod
    def look_at_all(stage, run):
        """What is open, and its icons."""
        if stage != "ouvert":
            return None
        icons = tuple(sorted(line.rsplit("\t", 1)[1] for line in run.lines if line.startswith("ENTREE ")))
        return etat.of_output(run.lines, run.value("DOSSIER")), icons

    def execute(self, scenario, place, fault=None, expected=None, before=None, **more):
        """`before(stage, run)` is what happens to the disk while the program waits; it may return a line to send."""
        judge = look_at_save(scenario, expected, place) if expected and scenario.judge == "save" else self.look_at_all

        def look(stage, run):
            sent = before(stage, run) if before else None
            return sent or judge(stage, run)
        return self.programs.run(scenario.command(place), place, fault, look, armed=scenario.judge == "cli", **more)

    def reference(self, scenario):
        """Where nothing fails: the run, and what is expected of the others."""
        if scenario.name not in self.references:
            place = self.place(scenario)
            try:
                self.references[scenario.name] = self.make_reference(scenario, place)
            finally:
                place.remove()
        return self.references[scenario.name]

    def make_reference(self, scenario, place):
        def before(stage, run):
            if stage == "enregistre":  # where a program that is killed now leaves its folder
                self.keep_left(scenario, place)
        after = None
        old = etat.of_file(place.target / scenario.target, scenario.form) if scenario.target else None
        run = self.execute(scenario, place, before=before)
        if run.ended_badly() or run.status != 0:
            raise SystemExit(f"{scenario.name}: fails by itself: {run}")
        if scenario.target:
            after = etat.of_file(place.target / scenario.target, scenario.form)
        elif scenario.judge == "rescue":
            self.keep_left(scenario, place)
            states, _ = self.programs.offered(place)
            after = states[0] if len(states) == 1 else None
        self.verify(scenario, after, run)
        lines = tuple(line.replace(str(place.base), "") for line in run.lines)
        return run, Expected(old, after, run.seen.get("ouvert"), lines, tuple(run.messages()))

    def keep_left(self, scenario, place):
        if scenario.name not in self.left:
            self.left[scenario.name] = self.base / f"laisse-{scenario.name}"
            shutil.copytree(place.temporary, self.left[scenario.name])

    def verify(self, scenario, after, run):
        """The reference itself is right."""
        source = etat.of_file(self.samples["essai.qrt"], "2")
        if scenario.name == "ouvrir" and run.seen["ouvert"][0] != source:
            raise SystemExit("ouvrir: what is open is not what the archive holds")
        if scenario.judge in ("save", "rescue"):
            entries = [value for entry in after.entries for value in entry] if after else []
            asked = "modifiée, Пётр" if scenario.form == "2" else "modifiée, ????"
            if asked not in entries or (scenario.form == "2" and "neuve.png" not in dict(after.images)):
                raise SystemExit(f"{scenario.name}: where nothing fails, the changes are not there")
        if scenario.target == "autre.qrt" and scenario.judge == "cli" and after != comparable(source, scenario.form):
            raise SystemExit(f"{scenario.name}: where nothing fails, the result is another one")
