"""Coming back after a kill: unsaved changes, images and comments are offered, opened or thrown away."""
import shutil
import signal
import time

from zelvane_e2e import EXAMPLES, ProgramTest, read_catalogue, wait_until, write_catalogue


class ComingBackAfterAKill(ProgramTest):

    def temporary(self, home):
        return home / "programme" / "temp"

    def other(self):
        """A catalogue that opens without a word."""
        return write_catalogue(self.folder() / "livres.qrt", ["Titre", "Prêté"], [["Nana", ""]])

    def left(self, home):
        """What lies below the folder of temporary folders."""
        return sorted(path.name for path in self.temporary(home).iterdir())

    def copy(self, home):
        """The rescue copy that holds unsaved changes, if there is one."""
        return next((path for path in self.temporary(home).glob("*.secours") if b"\r\nTexte=1\r\n" in path.read_bytes()),
                    None)

    def edit(self):
        """Opens an example and sorts it by its second title, which makes it a document with unsaved changes."""
        self.path = self.folder() / "discotheque.qrt"
        shutil.copy(EXAMPLES / "discotheque.qrt", self.path)
        program = self.start(self.path)
        self.comments = program.close_comments()
        _, entries = read_catalogue(self.path)
        table = program.table()
        wait_until(lambda: table.row(0) == entries[0], "the table")
        table.click_title(1)
        wait_until(lambda: table.row(0) != entries[0], "the new order")
        self.first = table.row(0)
        return program

    def edit_and_kill(self):
        program = self.edit()
        wait_until(lambda: self.copy(program.home), "the rescue copy")
        program.kill()
        return program.home

    def test_unsaved_changes_come_back_with_their_images(self):
        home = self.edit_and_kill()
        images = {path.name for path in self.temporary(home).glob("cat*/*") if not path.name.startswith("Zelvane")}
        self.assertTrue(images)

        program = self.start(self.other(), home=home)
        program.find(role="push button", name="Ouvrir")
        line = program.find(role="tree").row(0)
        self.assertEqual(line[:2], ["discotheque.qrt", str(self.path)])
        self.assertEqual(line[3:], ["624", "non enregistrées"])
        program.key("Return")
        self.assertEqual(program.close_comments(), self.comments)

        wait_until(lambda: any("discotheque.qrt (récupéré)" in title for title in program.window_titles()),
                   "the document")
        # The table of the window behind it comes first.
        wait_until(lambda: program.find_all(table=True)[-1].row(0) == self.first, "the order that was never saved")
        found = {path.name for path in self.temporary(home).glob("cat*/*")}
        self.assertLessEqual(images, found)
        program.find_all(table=True)[-1].cell(2, 0).click()
        program.find(name="1 selectionnée(s)")
        program.key("ctrl+s")
        dialog = program.find(role="dialog", name=lambda name: "Enregistrer La Categorie Sous" in name)
        wait_until(lambda: dialog.find(role="text", name="Nom de fichier :").text == "discotheque.qrt",
                   "the name of the file that it came from")

    def test_what_is_thrown_away_is_never_offered_again(self):
        home = self.edit_and_kill()

        program = self.start("/nulle/part.qrt", home=home)
        program.find(name="Erreur lors de l'ouverture : le fichier n'existe pas")
        program.key("Return")
        program.find(role="push button", name="Jeter").click()
        program.find(role="push button", name="Oui").click()

        wait_until(lambda: self.left(home) == [], "the end of the folder")
        wait_until(lambda: len(program.window_titles()) == 1, "the end of the dialog")

    def test_later_is_later(self):
        home = self.edit_and_kill()
        before = self.left(home)

        program = self.start(self.other(), home=home)
        program.find(role="push button", name="Plus tard")
        program.key("Escape")
        wait_until(lambda: not program.find_all(role="push button", name="Plus tard"), "the end of the dialog")
        self.assertLessEqual(set(before), set(self.left(home)))
        program.close()

        program = self.start(self.other(), home=home)
        program.find(role="push button", name="Plus tard")

    def test_a_polite_end_leaves_the_changes_at_once(self):
        for end in (signal.SIGTERM, signal.SIGHUP, signal.SIGINT):
            with self.subTest(end=end):
                program = self.edit()
                program.send(end)
                self.assertEqual(program.wait_for_end(), -end)
                self.assertIsNotNone(self.copy(program.home))

    def test_a_polite_end_without_changes_leaves_nothing(self):
        program = self.start(EXAMPLES / "discotheque.qrt")
        program.close_comments()
        wait_until(lambda: self.left(program.home), "the document's folder")
        program.send(signal.SIGTERM)
        program.wait_for_end()
        self.assertEqual(self.left(program.home), [])

    def test_a_running_programs_documents_are_not_offered(self):
        first = self.edit()
        wait_until(lambda: self.copy(first.home), "the rescue copy")
        # Of another session, so that it does not hand its file over.
        second = self.start(self.other(), home=first.home, runtime=self.folder())
        second.table()
        time.sleep(1)
        self.assertEqual(second.find_all(role="push button", name="Plus tard"), [])
        second.close()
        first.close()
