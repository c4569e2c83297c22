"""The first minute: an empty frame, a category from a template, its first entry, and the way back to it."""
import shutil
import zipfile

from zelvane_e2e import EXAMPLES, ProgramTest, read_catalogue, wait_until

BOOKS = ["Auteur", "Titre", "Editeur", "Année", "ISBN", "Genre", "Prêté"]


class TheFirstMinute(ProgramTest):

    def test_a_collection_from_a_template_is_found_again_after_a_restart(self):
        program = self.start()
        self.assertEqual(self.recents(), [])
        self.take_the_template(2)
        self.assertEqual(program.table().titles(), BOOKS)

        program.key("ctrl+e")
        program.await_window("Ajouter une entrée")
        program.type_lines(["Verne"])
        program.type("Vingt mille lieues")
        program.key("ctrl+Return")
        wait_until(lambda: program.table().row_count() == 1, "the first entry")
        path = self.folder() / "livres.qrt"
        self.save_as(path)
        program.close()

        program = self.start(home=program.home)
        program.await_frame()
        self.assertEqual(self.recents(), ["livres.qrt"])
        program.key("Return")
        self.assertEqual(program.table().titles(), BOOKS)
        self.assertEqual(program.table().row(0)[:2], ["Verne", "Vingt mille lieues"])

    def test_a_file_that_is_gone_is_shown_as_such_and_leaves_the_panel_where_it_is(self):
        path = self.folder() / "partie.qrt"
        shutil.copy(EXAMPLES / "bibliotheque.qrt", path)
        program = self.start(path)
        program.close_comments()
        program.table()
        program.close()
        path.unlink()

        program = self.start(home=program.home)
        program.await_frame()

        self.assertEqual(self.recents(), ["partie.qrt (introuvable)"])

    def test_a_sample_opens_as_a_new_category_and_the_sample_stays(self):
        before = (EXAMPLES / "bibliotheque.qrt").read_bytes()
        program = self.start()
        program.await_ready()

        program.find(role="push button", name="bibliotheque").click()
        program.close_comments()
        titles = program.table().titles()
        path = self.folder() / "essai.qrt"
        self.save_as(path)

        self.assertEqual((EXAMPLES / "bibliotheque.qrt").read_bytes(), before)
        self.assertEqual(read_catalogue(path)[0], titles)

    # ---- steps

    def recents(self):
        return [shown.cell(row, 0).name for shown in self.program.find_all(role="list")
                for row in range(shown.row_count())]

    def take_the_template(self, place):
        """Chooses a template in the dialog of a new category, by its place in the menu."""
        program = self.program
        program.await_ready()
        program.find(role="push button", name="Nouvelle catégorie").click()
        program.await_window("Creer une categorie")
        program.key("alt+m", *["Down"] * place, "Return")
        program.find(role="push button", name="Creer").click()
        program.await_window("Zelvane v2 - [Nouveau]")

    def save_as(self, path):
        self.program.key("ctrl+s")
        self.program.await_window("Enregistrer La Categorie Sous")
        self.program.key("ctrl+a")
        self.program.type(str(path))
        self.program.key("Return")
        wait_until(lambda: path.exists() and zipfile.is_zipfile(path), "the file")
        self.program.await_window(f"Zelvane v2 - [{path.name}]")
