"""Pre-recorded texts are typed, and go from the columns of one category to those of another over the clipboard."""
import json
import os
import subprocess

from zelvane_e2e import PROGRAM, ProgramTest, wait_until, write_catalogue

COMMAND_LINE = PROGRAM.with_name("zelvane-cli")


class Texts(ProgramTest):

    def catalogue(self, name, titles):
        return write_catalogue(self.folder() / name, titles, [["a"] * len(titles)])

    def texts(self, path):
        """The texts of the columns as they are saved."""
        home = self.session.new_home()
        environment = {**os.environ, "ZELVANE_DOSSIER": str(home), "XDG_CONFIG_HOME": str(home),
                       "XDG_DATA_HOME": str(home)}
        said = subprocess.run([COMMAND_LINE, "list", "--json", path], check=True, stdin=subprocess.DEVNULL,
                              stdout=subprocess.PIPE, env=environment)
        return [column["texts"] for column in json.loads(said.stdout)["columns"]]

    def open_texts(self, path):
        program = self.start(path)
        program.table()
        program.menu("Edition", "Textes pré-enregistrés")
        program.find(role="dialog", name="Texte PréEnregistré")
        return program

    def shown(self, program, texts):
        """Waits until the list of the column in front shows these texts."""
        wait_until(lambda: self.listed(program) == texts, f"the texts {texts}")

    @staticmethod
    def listed(program):
        rows = program.find(role="list", name="Textes de la colonne")
        return [rows.cell(row, 0).name for row in range(rows.row_count())]

    def add(self, program, text):
        program.key("KP_Add")
        program.find(role="dialog", name=lambda name: name != "Texte PréEnregistré")
        program.type(text)
        program.key("Return")
        wait_until(lambda: self.listed(program)[-1] == text, f"the text {text}")

    def save(self, program, path):
        before = path.read_bytes()
        program.await_frame()
        program.key("ctrl+s")
        wait_until(lambda: path.read_bytes() != before, "the save")

    def end_dialog(self, program):
        program.key("Return")
        wait_until(lambda: not program.find_all(role="dialog"), "the end of the dialog")

    def test_texts_are_typed_copied_and_pasted_into_a_category_with_fewer_columns(self):
        source = self.catalogue("disques.qrt", ["Titre", "Genre", "Prêté"])
        giver = self.open_texts(source)
        self.shown(giver, ["...Aucune Info..."])
        self.add(giver, "inconnu")
        self.add(giver, "divers")
        giver.key("Right")
        self.shown(giver, ["...Aucune Info..."])
        self.add(giver, "rock")
        giver.key("alt+c")
        giver.find(role="dialog", name="Copier Texte Préenregistré")
        giver.key("Return")
        wait_until(lambda: len(giver.find_all(role="dialog")) == 1, "the end of the choice")
        self.end_dialog(giver)
        self.save(giver, source)
        self.assertEqual(self.texts(source), ["inconnu|divers", "rock", ""])
        self.assertFalse((giver.home / "programme" / "~qrtCopier.tmp").exists())

        target = self.catalogue("livres.qrt", ["Nom", "Prêté"])
        taker = self.open_texts(target)
        self.add(taker, "sans nom")
        taker.key("alt+o")
        mapping = taker.find(role="dialog", name="Coller")
        rows = mapping.find(table=True)
        self.assertEqual([rows.row(row) for row in range(rows.row_count())],
                         [["(1)Titre", "(1)Nom"], ["(2)Genre", "(2)Prêté"], ["(3)Prêté", "<perdu>"]])
        taker.key("Return")
        self.shown(taker, ["sans nom", "inconnu", "divers"])
        self.end_dialog(taker)
        self.save(taker, target)
        self.assertEqual(self.texts(target), ["sans nom|inconnu|divers", "rock"])

    def test_what_is_given_up_changes_nothing(self):
        path = self.catalogue("disques.qrt", ["Titre", "Prêté"])
        program = self.open_texts(path)
        self.add(program, "rock")
        program.key("Escape")
        wait_until(lambda: not program.find_all(role="dialog"), "the end of the dialog")
        program.await_frame()
        program.menu("Edition", "Textes pré-enregistrés")
        program.find(role="dialog", name="Texte PréEnregistré")
        self.shown(program, ["...Aucune Info..."])
