"""Shows that the campaign of signals can fail: results that are spoilt on purpose are found, and sound ones are not.

ZELVANE_COBAYE names the guinea pig.
"""
import os
import pathlib
import shutil
import signal
import tempfile
import unittest
import zipfile

import signaux
import signaux_modele as modele
from signaux_scenarios import Scenario

IDLE = "attendre 600000"


def rewrite(path, change):
    """Writes the archive anew; `change` gets each name and content and returns the content, or None to leave it out."""
    with zipfile.ZipFile(path) as archive:
        contents = {name: archive.read(name) for name in archive.namelist()}
    with zipfile.ZipFile(path, "w") as archive:
        for name, content in contents.items():
            content = change(name, content)
            if content is not None:
                archive.writestr(name, content)


class Rounds(unittest.TestCase):
    """Rounds with the real program, whose signal comes while it does nothing: so that the end is always the same."""

    def setUp(self):
        folder = pathlib.Path(tempfile.mkdtemp(prefix="zelvane-pannes-"))
        self.addCleanup(shutil.rmtree, folder, ignore_errors=True)
        signaux.ENTRIES = {"1": 40, "texte": 40}
        signaux.IMAGE_SIZES = {"1": 3000}
        self.campaign = signaux.Campaign(os.environ["ZELVANE_COBAYE"], folder / "travail", "essai")

    def wrong(self, steps, sig, spoil=None, again=(), **more):
        scenario = Scenario("1", steps + [IDLE], len(steps), [sig, *again], 0, 0, **more)
        return signaux.Round(self.campaign, 1, scenario, spoil).run().wrong

    def assertLost(self, wrong):
        self.assertTrue(wrong and wrong[0].startswith("LOSS"), wrong)

    @staticmethod
    def only_file(folder):
        """The file without the folder that goes with it."""
        shutil.rmtree(folder / "programme" / "temp")
        return folder / "documents" / "premier.qrt"

    SAVED = ["ouvrir @A@", "editer 1 v1", "sauver 1"]
    CHANGED = ["ouvrir @A@", "editer 1 v1"]

    def test_the_model_tells_what_the_program_holds(self):
        for kind in ("1", "texte"):
            self.assertEqual(self.campaign.control(kind).wrong, [])

    def test_what_is_saved_is_found_in_the_file(self):
        self.assertEqual(self.wrong(self.SAVED, signal.SIGKILL, self.only_file), [])

    def test_what_is_saved_may_also_be_offered(self):
        self.assertEqual(self.wrong(["ouvrir @A@", "editer 1 v1", "secours 1"], signal.SIGTERM), [])

    def test_a_polite_end_keeps_unsaved_changes(self):
        self.assertEqual(self.wrong(self.CHANGED, signal.SIGTERM), [])

    def test_a_second_signal_takes_nothing_along(self):
        self.assertEqual(self.wrong(self.CHANGED, signal.SIGTERM, again=[signal.SIGTERM]), [])

    def test_a_file_that_is_gone_is_a_loss(self):
        self.assertLost(self.wrong(self.SAVED, signal.SIGKILL, lambda folder: self.only_file(folder).unlink()))

    def test_a_file_cut_short_is_a_loss(self):
        def cut(folder):
            path = self.only_file(folder)
            os.truncate(path, path.stat().st_size // 2)
        self.assertLost(self.wrong(self.SAVED, signal.SIGKILL, cut))

    def test_one_byte_of_an_image_is_a_loss(self):
        def touch(name, content):
            return bytes([content[0] ^ 1]) + content[1:] if name.endswith(".jpg") else content
        self.assertLost(self.wrong(self.SAVED, signal.SIGKILL, lambda folder: rewrite(self.only_file(folder), touch)))

    def test_a_comment_that_is_gone_is_a_loss(self):
        def forget(name, content):
            return None if name == "Zelvane.txt" else content
        self.assertLost(self.wrong(self.SAVED, signal.SIGKILL, lambda folder: rewrite(self.only_file(folder), forget)))

    def test_one_value_of_an_entry_is_a_loss(self):
        def forge(name, content):
            return content.replace(b"v1-a00007-3", b"v1-a00007-4") if name == "Zelvane.qrt" else content
        self.assertLost(self.wrong(self.SAVED, signal.SIGKILL, lambda folder: rewrite(self.only_file(folder), forge)))

    def test_an_old_file_is_a_loss(self):
        def old(folder):
            self.campaign.templates.copy("1", "a", self.only_file(folder))
        self.assertLost(self.wrong(self.SAVED, signal.SIGKILL, old))

    def test_a_polite_end_without_its_last_copy_is_a_loss(self):
        def forget(folder):
            for copy in (folder / "programme" / "temp").glob("*.secours"):
                copy.unlink()
        self.assertLost(self.wrong(self.CHANGED, signal.SIGHUP, forget))

    def test_changes_that_a_copy_held_are_not_given_up_to_a_kill(self):
        def forget(folder):
            shutil.rmtree(folder / "programme" / "temp")
        self.assertEqual(self.wrong(self.CHANGED, signal.SIGKILL, forget), [])
        self.assertLost(self.wrong(self.CHANGED + ["secours 1"], signal.SIGKILL, forget))

    def test_what_was_taken_over_after_a_kill_is_not_lost_to_the_next_one(self):
        before = (*self.CHANGED, "secours 1")
        self.assertEqual(self.wrong(["reprendre"], signal.SIGKILL, before=before), [])
        self.assertLost(self.wrong(["reprendre"], signal.SIGKILL, self.only_file, before=before))

    def test_a_file_that_nobody_was_writing_is_a_loss(self):
        wrong = self.wrong(["ouvrir @A@", "ouvrir @B@", "editer 1 v1", "sauver 1"], signal.SIGTERM,
                           lambda folder: (folder / "documents" / "deuxieme.qrt").unlink(), second=True)
        self.assertLost(wrong)

    def test_what_is_left_beside_the_file_is_told(self):
        wrong = self.wrong(self.SAVED, signal.SIGINT, lambda folder: (folder / "documents" / "premier.qrt.Ab1").touch())
        self.assertEqual(wrong, ["LEFT at the target: premier.qrt.Ab1"])

    def test_a_step_that_is_refused_is_told(self):
        wrong = self.wrong(["ouvrir @A@", "inscrire 1 aZ1", "image 1 a00001 a.jpg /nulle/part"], signal.SIGTERM)
        self.assertEqual(wrong, ["STEP refused: image 1 a00001 a.jpg /nulle/part"])

    SAYS = "echo debut 1; echo fin 1 ok; echo debut 2"

    def impostor(self, *lines):
        """A program that does these lines of a shell in place of the guinea pig. The signal comes with SAYS."""
        path = self.campaign.folder / "imposteur"
        path.write_text("\n".join(["#!/bin/sh", *lines]) + "\n")
        path.chmod(0o755)
        self.campaign.program = str(path)
        return self.wrong(["attendre 0"], signal.SIGTERM)

    def test_a_process_that_hangs_is_told(self):
        self.addCleanup(setattr, signaux, "PATIENCE", signaux.PATIENCE)
        signaux.PATIENCE = 1.0
        wrong = self.impostor('[ "$1" = agir ] || exit 0', "trap '' TERM", self.SAYS, "while :; do :; done")
        self.assertIn("HANG the process did not end", wrong)

    def test_an_end_that_nobody_asked_for_is_told(self):
        wrong = self.impostor('[ "$1" = agir ] || exit 0', "trap '' TERM", self.SAYS, "exit 3")
        self.assertIn("STATUS 3", wrong)

    def test_a_next_start_that_fails_is_told(self):
        wrong = self.impostor('[ "$1" = agir ] || exit 3', self.SAYS, "while :; do sleep 0.01; done")
        self.assertEqual(wrong[0], "NEXT START status 3")


class Judgement(unittest.TestCase):
    """What is asked of a round that ended within a step."""

    PATH = pathlib.Path("/documents/premier.qrt")

    def story(self, *steps):
        """Steps that ended; the last one had begun only."""
        state = modele.State({"a": (("a", "x", "x", "x", "x"), "")}, {})
        story = modele.Story({self.PATH: (state, modele.TEXT)}, {})
        for step in [f"ouvrir {self.PATH}", *steps[:-1]]:
            story.tell(step, "ok")
        story.tell(steps[-1], None)
        return story

    def finding(self, kind, value):
        """One entry; `value` None: nothing could be opened."""
        rows = [["a"] + [value.format(column) for column in range(2, 6)] + [""]] if value else []
        return {"genre": kind, "chemin": str(self.PATH), "ouvert": bool(value), "lignes": rows, "fichiers": {}}

    def judge(self, story, polite, *found):
        return [wrong.split(" ")[0] for wrong in modele.judge(story, polite, [self.finding(*one) for one in found])]

    V1, V2 = "v1-a-{}", "v2-a-{}"

    def test_a_save_that_is_cut_leaves_everything_in_the_offer(self):
        story = self.story("editer 1 v1", "sauver 1")
        self.assertEqual(self.judge(story, False, ("fichier", None), ("secours", self.V1)), [])
        self.assertEqual(self.judge(story, False, ("fichier", None)), ["LOSS"])

    def test_a_polite_end_lets_a_save_end(self):
        story = self.story("editer 1 v1", "sauver 1")
        self.assertEqual(self.judge(story, True, ("fichier", self.V1)), [])
        self.assertEqual(self.judge(story, True, ("fichier", "autre"), ("secours", self.V1)), ["CUT"])

    def test_a_kill_may_take_what_no_copy_held(self):
        story = self.story("editer 1 v1", "secours 1", "editer 1 v2", "sauver 1")
        self.assertEqual(self.judge(story, False, ("fichier", None), ("secours", self.V1)), [])
        self.assertEqual(self.judge(story, False, ("fichier", None), ("secours", self.V2)), [])
        self.assertEqual(self.judge(story, False, ("fichier", None), ("secours", "x")), ["LOSS"])
        self.assertEqual(self.judge(story, True, ("fichier", None), ("secours", self.V1)), ["LOSS"])

    def test_entries_that_are_gone_or_new_are_a_loss(self):
        state = modele.State({"a": (("a", "x"), ""), "b": (("b", "x"), "")}, {})
        self.assertEqual(modele.shortfall({"lignes": [["a", "x", ""], ["b", "x", ""]], "fichiers": {}}, [state]), "")
        for rows in ([["a", "x", ""]], [["a", "x", ""], ["b", "x", ""], ["c", "x", ""]],
                     [["a", "x", ""], ["b", "x", ""], ["b", "x", ""]]):
            self.assertTrue(modele.shortfall({"lignes": rows, "fichiers": {}}, [state]))

    def test_changes_that_the_user_gave_up_may_go(self):
        story = self.story("editer 1 v1", "fermer 1 non")
        self.assertEqual(self.judge(story, False, ("fichier", "x")), [])
        self.assertEqual(self.judge(story, False, ("fichier", None)), ["LOSS", "LOSS"])


if __name__ == "__main__":
    unittest.main()
