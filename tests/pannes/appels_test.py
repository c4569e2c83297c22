"""The judge of failed calls can fail: each kind of loss, made on purpose, is found. So does the preloaded library."""
import os
import shutil
import signal
import subprocess
import sys
import tempfile
import unittest
from dataclasses import replace
from pathlib import Path

import appels_etat as etat
from appels_essais import Fault, Place, Programs, Run
from appels_juge import Expected, Scenario, judge, look_at_save
from appels_scenarios import Campaign

BUILD = os.environ.get("PANNES_BUILD", "build/dev")
FAULT = Fault("write", 1, "EIO")


def archive(path, entries, **images):
    text = etat.text_of([f"{entry}|||" for entry in entries]).encode("cp1252")
    etat.write_archive(path, {etat.TEXT: text, **{name + ".png": data for name, data in images.items()}})
    return etat.of_archive(path)


class Judging(unittest.TestCase):

    def setUp(self):
        self.base = Path(tempfile.mkdtemp(prefix="zelvane-juge-"))
        self.addCleanup(shutil.rmtree, self.base)
        self.place = Place(self.base)
        self.path = self.place.target / "essai.qrt"
        self.old, self.new = self.base / "old", self.base / "new"
        self.expected = Expected(archive(self.old, ["un"], a=b"1"), archive(self.new, ["un", "deux"], a=b"1", b=b"2"))
        self.scenario = Scenario("enregistrer", None, {}, target="essai.qrt")
        self.programs = Programs(BUILD, self.base)
        self.folder = self.place.base / "cat1"  # where nothing is offered from
        self.folder.mkdir()
        self.run_ = Run(lines=[f"DOSSIER {self.folder}", "ENREGISTRE 1", "FERME 1"])

    def judge(self, *lines):
        self.run_.lines[1:1] = lines
        self.run_.seen["enregistre"] = look_at_save(self.scenario, self.expected, self.place)("enregistre", self.run_)
        return judge(self.scenario, self.expected, self.place, self.run_, self.programs, FAULT)

    def found(self, text, *lines):
        wrong = self.judge(*lines)
        self.assertTrue(any(text in one for one in wrong), wrong)

    def test_a_save_that_went_well_is_not_blamed(self):
        shutil.copy(self.new, self.path)
        self.assertEqual(self.judge(), [])

    def test_a_refused_save_that_leaves_the_old_file_is_blamed_once_its_changes_are_gone(self):
        shutil.copy(self.old, self.path)
        self.found("LOST", "MSG msg62 Erreur")
        self.assertNotIn("the save claims", " ".join(self.judge()))

    def test_silence_is_found(self):
        shutil.copy(self.old, self.path)
        self.found("claims success without a word")

    def test_a_file_that_is_gone_is_found(self):
        self.found("LOST", "MSG msgArchive conservées")

    def test_one_byte_of_an_image_is_found(self):
        archive(self.path, ["un", "deux"], a=b"1", b=b"3")
        self.found("LOST")

    def test_an_image_less_is_found(self):
        archive(self.path, ["un", "deux"], a=b"1")
        self.found("LOST")

    def test_an_entry_less_is_found(self):
        archive(self.path, ["un"], a=b"1", b=b"2")
        self.found("LOST")

    def test_a_window_that_stays_is_enough_only_while_nothing_of_the_target_was_touched(self):
        kept = ("MSG msg62 Erreur", "SECOURS 0")
        self.run_.lines[-1] = "FERME 0"
        shutil.copy(self.old, self.path)
        self.assertEqual(self.judge(*kept), [])
        self.expected = replace(self.expected, before=None)
        self.found("LOST")
        self.path.unlink()
        self.assertNotIn("LOST", " ".join(self.judge()))

    def test_half_an_archive_is_found_though_the_folder_is_whole(self):
        shutil.unpack_archive(self.new, self.folder, "zip")
        self.path.write_bytes(self.new.read_bytes()[:200])
        self.found("half a file stands", "MSG msgArchive conservées")

    def test_half_a_backup_is_found(self):
        shutil.copy(self.new, self.path)
        (self.place.target / "essai.qrt.bak").write_bytes(self.old.read_bytes()[:-40])
        self.found("backup is not whole")

    def test_what_lies_about_is_found(self):
        shutil.copy(self.new, self.path)
        (self.place.target / ".zelvane-abc").mkdir()
        self.found(".zelvane-abc")

    def test_a_folder_that_stays_without_a_word_is_found(self):
        shutil.copy(self.new, self.path)
        (self.place.temporary / "cat7").mkdir()
        self.found("cat7")

    def test_a_crash_and_a_hang_are_found(self):
        shutil.copy(self.new, self.path)
        self.run_.status = -11
        self.found("SIGSEGV")
        self.run_.hung = True
        self.found("does not end")

    def test_an_opening_that_misses_an_image_is_found(self):
        scenario, expected = replace(self.scenario, judge="open"), replace(self.expected, shown=("all", ("ico",)))
        run = Run(lines=["OUVERT 1"], seen={"ouvert": ("all", ("icoerror",))})
        self.assertTrue(judge(scenario, expected, self.place, run, self.programs, FAULT))
        self.assertTrue(judge(scenario, expected, self.place, Run(lines=["OUVERT 0"]), self.programs, FAULT))

    def test_a_conversion_that_spoils_its_target_is_found(self):
        scenario = replace(self.scenario, judge="cli")
        for status, errors, source in ((0, "", self.old), (1, "", self.old), (1, "msg62", None)):
            if source:
                shutil.copy(source, self.path)
            else:
                self.path.unlink()
            run = Run(status=status, errors=errors)
            self.assertTrue(judge(scenario, self.expected, self.place, run, self.programs, FAULT))


class Preloading(unittest.TestCase):

    def setUp(self):
        self.base = Path(tempfile.mkdtemp(prefix="zelvane-prechargee-"))
        self.addCleanup(shutil.rmtree, self.base)
        self.programs, self.place = Programs(BUILD, self.base), Place(self.base)

    def python(self, code, fault=None, **extra):
        run = self.programs.run([sys.executable, "-ISc", code], self.place, fault, armed=True, extra=extra)
        return run, run.lines

    WRITE = ("import os; f = os.open('cible/a', os.O_CREAT | os.O_WRONLY)\n"
             "for i in range(3):\n try: print(os.write(f, b'1234'))\n except OSError as e: print(e.errno)")

    def test_it_stops_the_process_where_it_is_told_to(self):
        code = ("import os, signal\nchild = os.fork()\nif not child:\n exec(" + repr(self.WRITE) + ")\n os._exit(0)\n"
                "print(os.WSTOPSIG(os.waitpid(child, os.WUNTRACED)[1]), os.path.getsize('cible/a'))\n"
                "os.kill(child, signal.SIGCONT)\nos.waitpid(child, 0)\nprint(os.path.getsize('cible/a'))")
        _, lines = self.python(code, Fault("write", 2, "ARRET"))
        self.assertEqual([line for line in lines if " " in line or line == "12"], ["19 4", "12"])

    def test_it_counts_and_changes_nothing_else(self):
        run, lines = self.python(self.WRITE)
        self.assertEqual(lines, ["4", "4", "4"])
        self.assertEqual((run.counts["open"], run.counts["write"], run.injected), (1, 3, 0))

    def test_the_call_asked_for_fails_and_no_other(self):
        run, lines = self.python(self.WRITE, Fault("write", 2, "ENOSPC"))
        self.assertEqual((lines, run.injected), (["4", "28", "4"], 1))
        self.assertEqual(self.python(self.WRITE, Fault("write", 2, "COURT"))[1], ["4", "2", "4"])
        self.assertEqual(self.python(self.WRITE, Fault("write", 1, "COUPE"))[1], ["2", "28", "4"])
        self.assertEqual(self.python(self.WRITE, Fault("write", 2, "EIO", lasting=True))[1], ["4", "5", "5"])

    def test_files_elsewhere_are_left_alone(self):
        run, lines = self.python(self.WRITE.replace("cible/", ""), Fault("write", 1, "EIO"))
        self.assertEqual((lines, run.injected, run.counts), (["4", "4", "4"], 0, {}))


class Forcing(unittest.TestCase):

    def test_a_file_that_was_written_is_forced_to_the_disk_and_so_is_its_name(self):
        base = Path(tempfile.mkdtemp(prefix="zelvane-force-"))
        self.addCleanup(shutil.rmtree, base)
        programs, place = Programs(BUILD, base), Place(base)
        archive(place.target / "essai.qrt", ["un"], a=b"1")
        run = programs.run([programs.cli, "convert", place.target / "essai.qrt", place.target / "autre.qrt"], place,
                           armed=True, extra={"PANNE_DOSSIERS": str(place.target)})
        self.assertEqual((run.status, run.counts.get("fsync")), (0, 2))


class Losing(unittest.TestCase):
    """All of it at once: a program that saves badly."""

    def test_a_program_that_drops_an_image_is_found(self):
        base = tempfile.mkdtemp(prefix="zelvane-perte-")
        self.addCleanup(shutil.rmtree, base)
        campaign = Campaign(BUILD, base, entries=3, size=3000)
        scenario = campaign.named("enregistrer")
        _, expected = campaign.reference(scenario)
        place = campaign.place(scenario)

        def drop(stage, run):
            if stage == "modifie":
                (Path(run.value("DOSSIER")) / "neuve.png").unlink()
        run = campaign.execute(scenario, place, None, expected, drop)
        wrong = judge(scenario, expected, place, run, campaign.programs, FAULT)
        self.assertTrue(any("LOST" in one for one in wrong), (wrong, run))


class Vanishing(unittest.TestCase):
    """What a cleaner of temporary folders takes from a conversion."""

    def test_an_image_that_goes_before_the_new_file_is_written_is_in_it_all_the_same(self):
        base = Path(tempfile.mkdtemp(prefix="zelvane-disparue-"))
        self.addCleanup(shutil.rmtree, base)
        programs, place = Programs(BUILD, base), Place(base)
        source = archive(place.target / "essai.qrt", ["un"], a=b"1", b=b"2", c=b"3")
        # The last file is on the disk, and its date is being set: what follows is the reading, then the writing.
        counts = base / "counts"
        counts.write_bytes(bytes(4096))
        command = [programs.cli, "convert", place.target / "essai.qrt", place.target / "autre.qrt"]
        environment = place.environment() | Fault("utimens", 4, "ARRET").environment() | {
            "LD_PRELOAD": str(programs.library), "PANNE_COMPTES": str(counts), "PANNE_DOSSIERS": str(place.program)}
        with subprocess.Popen(command, env=environment, cwd=place.base) as process:
            self.assertTrue(os.WIFSTOPPED(os.waitpid(process.pid, os.WUNTRACED)[1]))
            images = list(place.program.glob("temp/**/*.png"))
            self.assertEqual(sorted(image.name for image in images), ["a.png", "b.png", "c.png"])
            for image in images[:2]:
                image.unlink()
            process.send_signal(signal.SIGCONT)
            self.assertEqual(process.wait(60), 0)
        self.assertEqual(etat.of_archive(place.target / "autre.qrt"), source)


if __name__ == "__main__":
    unittest.main()
