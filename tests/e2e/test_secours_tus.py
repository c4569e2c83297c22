"""Commands that write their result over the flag of unsaved changes: nobody is asked about these changes any more, and
they are not lost, be it that the program is killed or that the user leaves it."""
from zelvane_e2e import ProgramTest, wait_until, write_catalogue

ENTRIES = [["Blue", "Mitchell", ""], ["Blue Train", "Coltrane", ""]]
NO_PRINTERS = {"CUPS_SERVER": "/nonexistent/cups.sock"}


class SilencedChanges(ProgramTest):

    def copies(self, home):
        """The rescue copies with changes that nobody will be asked about."""
        found = []
        for path in (home / "programme" / "temp").glob("*.secours"):
            head = path.read_bytes()[:2000]
            if b"\r\nTus=1\r\n" in head and b"\r\nTexte=1\r\n" in head:
                found.append(path)
        return found

    def add_an_entry(self):
        """A document with an entry that is not in its file."""
        self.path = write_catalogue(self.folder() / "disques.qrt", ["Titre", "Artiste", "Prêté"], ENTRIES)
        program = self.start(self.path, environment=NO_PRINTERS)
        program.table()
        program.key("ctrl+e")
        program.await_window("Ajouter une entrée")
        program.type("Hejira")
        program.key("ctrl+Return")
        program.find(name="3 entrée(s)")
        program.await_frame()
        return program

    def search_without_saving(self):
        program = self.program
        program.key("ctrl+f")
        program.find(name=lambda name: name.startswith("Pour que la recherche tienne compte"))
        program.key("Return")
        program.find(name="Voulez-vous enregistrer les changement dans cette catégorie?")
        program.key("Escape")
        program.await_window("Recherche")
        dialog = program.find(role="dialog", name="Recherche")
        wait_until(lambda: dialog.has("active"), "the search to have the keys")
        program.key("alt+t")
        program.type_lines(["blue"])
        program.find(name="'blue' à été trouvé 2 fois")
        return dialog

    # ---- the commands

    def leave_the_list_of_deletions(self):
        self.program.key("Delete")
        self.program.await_window("Supprimer de multiples entrées")
        self.program.key("Escape")
        self.program.await_frame()

    def leave_the_print_dialog(self):
        self.program.key("ctrl+p")
        self.program.find(name=lambda name: name.startswith("Redimensionnez les colonnes"))
        self.program.key("Return")
        self.program.await_window("Apperçu avant impression")
        self.program.key("Escape")
        self.program.await_frame()

    def leave_the_editor_of_results(self):
        dialog = self.search_without_saving()
        self.program.key("Home", "shift+Down", "Return")
        self.program.find(name="Attention, les modifications affecteront toutes les entrées sélectionnées !")
        self.program.key("Escape")
        wait_until(lambda: dialog.has("active"), "the search to have the keys")
        self.program.key("Escape")
        self.program.await_frame()

    def leave_the_print_dialog_of_results(self):
        dialog = self.search_without_saving()
        dialog.find(role="push button", name="Imprimer les résultats de la recherche").click()
        self.program.find(name=lambda name: name.startswith("Redimensionnez les colonnes"))
        self.program.key("Return")
        self.program.await_window("Apperçu avant impression")
        self.program.key("Escape")
        wait_until(lambda: dialog.has("active"), "the search to have the keys")
        self.program.key("Escape")
        self.program.await_frame()

    def paste_what_is_no_exchange(self):
        self.program.key("ctrl+v")
        wait_until(lambda: self.copies(self.program.home), "the rescue copy")

    # ---- what becomes of the changes

    def kill(self, program):
        wait_until(lambda: self.copies(program.home), "the rescue copy")
        program.kill()

    def leave(self, program):
        program.key("ctrl+q")
        self.assertEqual(program.wait_for_end(), 0, "nobody is asked")
        self.assertTrue(self.copies(program.home))

    def assert_offered(self, home):
        again = self.start(home=home)
        again.await_window("Récupérer des catégories")
        line = again.find(role="tree").row(0)
        self.assertEqual(line[:2], ["disques.qrt", str(self.path)])
        self.assertEqual(line[3:], ["3", "fermée sans enregistrer"])
        again.key("Return")
        wait_until(lambda: any("disques.qrt (récupéré)" in title for title in again.window_titles()), "the document")
        self.assertEqual(again.table().row(2)[0], "Hejira")
        again.kill()

    def assert_kept(self, command):
        for end in (self.kill, self.leave):
            with self.subTest(end.__name__):
                program = self.add_an_entry()
                command()
                end(program)
                self.assert_offered(program.home)

    def test_after_the_list_of_deletions(self):
        self.assert_kept(self.leave_the_list_of_deletions)

    def test_after_a_refused_paste(self):
        self.assert_kept(self.paste_what_is_no_exchange)

    def test_after_the_print_dialog(self):
        self.assert_kept(self.leave_the_print_dialog)

    def test_after_a_refused_edit_of_results(self):
        self.assert_kept(self.leave_the_editor_of_results)

    def test_after_the_print_dialog_of_results(self):
        self.assert_kept(self.leave_the_print_dialog_of_results)
