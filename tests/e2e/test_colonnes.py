"""The columns of an open category are changed, and what is saved is what a model of it holds."""
import json
import os
import pathlib
import subprocess
import sys

from zelvane_e2e import PROGRAM, ProgramTest, wait_until

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "cli"))
from modele_colonnes import Catalogue, Colonne  # noqa: E402

COMMAND_LINE = PROGRAM.with_name("zelvane-cli")
COLUMNS = [("Titre", 2000), ("Artiste", 1500), ("Date", 800), ("Prêté", 600)]
# Lines of every length: what they lack was never written.
ENTRIES = [["abbey road", "beatles", "1969", "", ""], ["thriller"], ["blue train", "coltrane"],
           ["nevermind", "nirvana", "1991", "paul - 010205", ""]]


class Columns(ProgramTest):

    def catalogue(self):
        """The file, and the model of it."""
        path = self.folder() / "disques.qrt"
        model = Catalogue([Colonne(*column) for column in COLUMNS], ENTRIES, tri=0)
        text = model.texte().partition("[ListItems]")[0] + f"[ListItems]\r\nCount={len(ENTRIES)}\r\n"
        text += "".join(f"It{rank}={'|'.join(values)}\r\n" for rank, values in enumerate(ENTRIES, 1))
        path.write_bytes(text.encode("cp1252"))
        return path, model

    def listed(self, path):
        home = self.session.new_home()
        environment = {**os.environ, "ZELVANE_DOSSIER": str(home), "XDG_CONFIG_HOME": str(home),
                       "XDG_DATA_HOME": str(home)}
        said = subprocess.run([COMMAND_LINE, "list", "--json", path], check=True, stdin=subprocess.DEVNULL,
                              stdout=subprocess.PIPE, env=environment)
        return json.loads(said.stdout)

    def titles(self, model):
        # The dialog's list counts as a table too.
        table = self.program.find(role="frame", name="disques.qrt").find(table=True)
        wait_until(lambda: table.titles() == model.titres(), f"the columns {model.titres()}")

    def choose(self, field, line):
        """Goes to a list by the letter of its label and takes a line, from 1."""
        self.program.key(f"alt+{field}", *["Down"] * line)

    def test_columns_are_changed_by_the_keys_and_saved(self):
        path, model = self.catalogue()
        program = self.start(path)
        self.titles(model)

        program.key("ctrl+m")
        program.find(role="dialog", name="Editer une Catégorie")
        program.type("Genre")
        program.key("Return")
        model.add("Genre")
        self.titles(model)  # behind the dialog, which is still open
        self.choose("o", 1)
        program.key("alt+u")
        program.type("Album")
        program.key("Return")
        model.rename(1, "Album")
        self.titles(model)
        self.choose("l", 2)  # the line without one is taken already
        program.key("alt+g")
        model.dependant(2)
        program.find(name="ok changement effectué")
        program.key("Return")
        program.find(role="dialog", name="Editer une Catégorie")

        program.key("alt+d", "Home")
        for place in range(1, 5):  # to the right end
            program.key("alt+Down")
            model.move(place, "right")
            self.titles(model)
        for place in range(5, 1, -1):  # and to the left one
            program.key("alt+Up")
            model.move(place, "left")
            self.titles(model)
        program.key("Home", "Down", "Down", "alt+Up")
        model.move(3, "left")
        self.titles(model)
        program.key("Return")
        wait_until(lambda: not program.find_all(role="dialog"), "the end of the dialog")

        program.await_frame()
        program.menu("Outils", "Fusionner 2 colonnes")
        program.find(role="dialog", name="Fusionner deux colonnes")
        self.choose("1", 2)
        self.choose("2", 4)
        program.key("Return")
        model.merge(2, 4, "_-_")  # the loan column goes
        self.titles(model)

        program.await_frame()
        program.menu("Outils", "Séparer 1 colonne en 2")
        program.find(role="dialog", name="Séparer une colonne en deux")
        self.choose("c", 2)
        program.key("alt+n")
        program.type("rendu")
        program.key("Return")
        model.split(2, "rendu", "_-_")
        self.titles(model)

        program.await_frame()
        program.menu("Outils", "Dupliquer une colonne")
        program.find(role="dialog", name="Dupliquer une colonne")
        self.choose("c", 1)
        program.key("alt+n")
        program.type("Copie")
        program.key("Return")
        model.duplicate(1, "Copie")
        self.titles(model)

        before = path.read_bytes()
        program.await_frame()
        program.key("ctrl+s")
        wait_until(lambda: path.read_bytes() != before, "the save")
        said = self.listed(path)
        for key, expected in model.relu().json().items():
            self.assertEqual(said[key], expected, key)

        program.close()
        program = self.start(path)
        self.titles(model.relu())

    def test_a_column_is_deleted_once_the_user_agrees(self):
        path, model = self.catalogue()
        program = self.start(path)
        self.titles(model)
        program.key("ctrl+m")
        program.find(role="dialog", name="Editer une Catégorie")
        self.choose("c", 1)
        program.key("Return")
        question = lambda name: name.startswith("Etes vous sûr de vouloir supprimer la colonne")
        program.find(name=question)
        program.key("alt+o")
        model.delete(1)
        self.titles(model)
        program.key("alt+f")
        wait_until(lambda: not program.find_all(role="dialog"), "the end of the dialog")
        before = path.read_bytes()
        program.await_frame()
        program.key("ctrl+s")
        wait_until(lambda: path.read_bytes() != before, "the save")
        self.assertEqual(self.listed(path)["entries"], model.relu().json()["entries"])
