"""A category made from nothing, seen from outside."""
import zipfile

from zelvane_e2e import ProgramTest, read_catalogue, wait_until, write_catalogue


class MakingACategory(ProgramTest):

    def new_category(self):
        """Opens the dialog beside a document that is open."""
        program = self.start(write_catalogue(self.folder() / "autre.qrt", ["Titre", "Prêté"], [["Dummy", ""]]))
        program.table()
        program.find(role="push button", name="Nouvelle Catégorie (Ctrl+N)").click()
        return program, program.find(role="dialog", name="Creer une categorie")

    def test_five_titles_and_a_dependant_column_are_typed_saved_and_reopened(self):
        program, dialog = self.new_category()
        for title in ["Titre", "Artiste", "Label", "Date", "Pistes"]:
            program.type(title)
            program.key("Return")
        program.type("Support")
        dialog.find(name="Dependant de", role="check box").click()
        dialog.find(role="combo box").click()
        program.key("Home", "Down", "Return")
        dialog.find(role="push button", name="Creer").click()

        titles = ["Titre", "Artiste", "Label", "Date", "Pistes", "Support", "Prêté"]
        # The other document shows too, behind this one.
        wait_until(lambda: titles in [table.titles() for table in program.find_all(table=True)], "the new category")
        program.find(role="page tab", name="Nouveau")
        program.find(name="0 entrée(s)")

        path = self.folder() / "disques.qrt"
        program.key("ctrl+s")
        program.find(role="dialog", name="Enregistrer La Categorie Sous")
        program.key("ctrl+a")
        program.type(str(path))
        program.key("Return")
        wait_until(lambda: path.exists() and zipfile.is_zipfile(path), "the file")
        self.assertEqual(read_catalogue(path), (titles, []))
        with zipfile.ZipFile(path) as archive:
            self.assertIn(b"\r\nDependant=2\r\n", archive.read("Zelvane.qrt"))

        program.close()
        program = self.start(path)
        self.assertEqual(program.table().titles(), titles)

    def test_a_category_without_a_title_is_told_and_cancelling_makes_none(self):
        program, dialog = self.new_category()

        dialog.find(role="push button", name="Creer").click()
        program.find(name="Une Colonne n'a pas de nom, donnez lui un nom ou supprimer là avant de poursuivre")
        program.key("Return")
        program.find(role="dialog", name="Creer une categorie")
        program.key("Escape")

        wait_until(lambda: not program.find_all(role="dialog"), "the end of the dialog")
        self.assertEqual([tab.name for tab in program.find_all(role="page tab")], ["autre.qrt"])
