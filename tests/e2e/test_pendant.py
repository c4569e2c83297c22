"""What comes in the middle of a save: signals, keys, another start of the program. The file is made whole first."""
import os
import signal
import zipfile

from zelvane_e2e import ProgramTest, read_catalogue, wait_until, write_catalogue, xdotool

IMAGES = 50
TITLES = ["Titre", "Prêté"]


class DuringASave(ProgramTest):

    def setUp(self):
        self.path = self.folder() / "disques.qrt"
        self.images = {f"i{i}.jpg": os.urandom(60_000) for i in range(IMAGES)}
        text = write_catalogue(self.folder() / "texte", TITLES, [[f"{i:05}", ""] for i in range(IMAGES)])
        # Stored as they are: the program compresses them when it saves, which takes its time.
        with zipfile.ZipFile(self.path, "w", zipfile.ZIP_STORED) as archive:
            archive.write(text, "Zelvane.qrt")
            for name, content in self.images.items():
                archive.writestr(name, content)

    def left(self, home):
        return sorted(path.name for path in (home / "programme" / "temp").iterdir())

    def whole(self):
        """The titles of the file when nothing of it is missing, else None."""
        try:
            with zipfile.ZipFile(self.path) as archive:
                if all(archive.read(name) == content for name, content in self.images.items()):
                    return [entry[0] for entry in read_catalogue(self.path)[1]]
        except (OSError, zipfile.BadZipFile, KeyError, EOFError):
            pass
        return None

    def stop_in_a_save(self):
        """The program in the middle of a save of its first document, standing still."""
        counts = self.folder() / "counts"
        counts.write_bytes(bytes(4096))
        program = self.start(self.path, environment={
            "LD_PRELOAD": os.environ["ZELVANE_E2E_FAILURES"], "PANNE_DOSSIERS": str(self.path.parent),
            "PANNE_COMPTES": str(counts), "PANNE_GENRE": "pwrite", "PANNE_RANG": "5", "PANNE_ERREUR": "ARRET"})
        table = program.table()
        wait_until(lambda: table.row(0)[0] == "00000", "the table")
        table.click_title(0)
        wait_until(lambda: table.row(0)[0] == f"{IMAGES - 1:05}", "the other order")
        program.key("ctrl+s")
        program.await_stop()
        self.assertGreater(self.path.stat().st_size, 0, "some of the new file")
        self.assertFalse(zipfile.is_zipfile(self.path), "not all of it")
        return program

    def saved_order(self):
        return [f"{i:05}" for i in reversed(range(IMAGES))]

    def test_a_signal_ends_the_program_once_the_file_is_whole(self):
        for end in (signal.SIGTERM, signal.SIGHUP, signal.SIGINT):
            for times in (1, 2):
                with self.subTest(end=end, times=times):
                    self.setUp()
                    program = self.stop_in_a_save()
                    program.send(end)
                    program.send(signal.SIGCONT)
                    if times == 2 and program.running:
                        program.send(end)
                    self.assertEqual(program.wait_for_end(), -end)
                    self.assertEqual(self.whole(), self.saved_order())
                    self.assertEqual(self.left(program.home), [], "all is in the file")

    def test_keys_and_another_start_wait_until_the_file_is_whole(self):
        other = write_catalogue(self.folder() / "livres.qrt", TITLES, [["Nana", ""]])
        program = self.stop_in_a_save()
        xdotool("key", "ctrl+w")  # the X server keeps it
        later = self.start(other, home=program.home)
        self.program = program
        program.send(signal.SIGCONT)
        program.find(role="page tab", name="livres.qrt")
        self.assertEqual(self.whole(), self.saved_order())
        self.assertEqual(later.wait_for_end(), 0)
        wait_until(lambda: not program.find_all(role="page tab", name="disques.qrt"), "the end of the first document")
        program.find(role="page tab", name="livres.qrt")
        self.assertTrue(program.running)
        self.assertEqual(program.log.read_text(errors="replace"), "")


if __name__ == "__main__":
    import unittest
    unittest.main()
