"""A table of text opened by the plug-in that comes with the program, from the open dialog to a saved catalogue."""
import os
import pathlib
import subprocess

from zelvane_e2e import PROGRAM, ProgramTest, wait_until

PLUGIN = pathlib.Path(PROGRAM).resolve().parent.parent / "share" / "zelvane" / "plugins" / "ImporterCsv.dll"
CLI = pathlib.Path(PROGRAM).resolve().with_name("zelvane-cli")
TABLE = "Titre;Année;Pochette\r\nÉté;1977;p/ete.png\r\n\"Deux\nlignes\";1971;\r\nCourte\r\n"
PNG = bytes.fromhex("89504e470d0a1a0a0000000d4948445200000001000000010802000000907753de0000000c4944415408d763f8cfc000000301"
                    "0100c9fe92ef0000000049454e44ae426082")


class OpeningATable(ProgramTest):

    def start_with_plugin(self):
        home = self.session.new_home()
        folder = home / "programme" / "plugins"
        for part in (home / "programme", folder):
            part.mkdir(mode=0o700, exist_ok=True)
        (folder / PLUGIN.name).symlink_to(PLUGIN)
        return self.start(home=home)

    def table_of(self, text):
        folder = self.folder()
        (folder / "p").mkdir()
        (folder / "p" / "ete.png").write_bytes(PNG)
        path = folder / "disques.csv"
        path.write_bytes(text.encode("cp1252"))
        return path

    def choose(self, path):
        """Chooses the type of tables, and the file, in the open dialog."""
        program = self.program
        program.key("ctrl+o")
        chooser = program.find(role="dialog", name="Ouvrir une Categorie")
        chooser.find(role="combo box", name=lambda name: name.startswith("Zelvane 2")).click()
        program.key("End", "Return")
        chooser.find(role="text", name="Nom de fichier :").click()
        program.key("ctrl+a")
        program.type(str(path))
        program.key("Return")
        return program.find(role="dialog", name="Importer un tableau")

    def test_its_rows_become_a_catalogue(self):
        program = self.start_with_plugin()
        path = self.table_of(TABLE)
        dialog = self.choose(path)
        dialog.find(role="combo box", name="Windows-1252")
        dialog.find(role="table", name="Aperçu")
        program.key("Return")
        told = program.find(role="dialog", name="Importation d'un tableau")
        told.find(role="label", name=lambda name: "Lignes défectueuses : 1" in name)
        program.key("Return")

        table = program.table()
        self.assertEqual(table.titles(), ["Titre", "Année"])
        self.assertEqual([table.row(i)[:2] for i in range(table.row_count())],
                         [["Été", "1977"], ["Deux lignes", "1971"], ["Courte", ""]])

        saved = path.with_suffix(".qrt")
        program.key("ctrl+s")
        chooser = program.find(role="dialog", name="Enregistrer La Categorie Sous")
        chooser.find(role="text", name="Nom de fichier :").click()
        program.key("ctrl+a")
        program.type(str(saved))
        program.key("Return")
        wait_until(saved.exists, "the catalogue")
        program.await_window("Zelvane v2 - [disques.qrt]")
        program.close()
        listed = subprocess.run([CLI, "list", "--json", saved], check=True, capture_output=True, text=True).stdout
        for value in ("Été", "1977", "Deux lignes", "Courte", "ete.png"):
            self.assertIn(value, listed)

    def test_annuler_leads_back_to_the_open_dialog_and_leaves_nothing(self):
        program = self.start_with_plugin()
        self.choose(self.table_of(TABLE))
        program.key("Escape")
        program.find(role="dialog", name="Ouvrir une Categorie")
        program.key("Escape")
        program.await_frame()
        self.assertEqual(program.find_all(table=True), [])
        self.assertEqual(list((program.home / "programme" / "temp").glob("cat*")), [])
