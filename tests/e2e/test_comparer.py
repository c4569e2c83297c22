"""Two categories are compared, in the window and from the command line."""
import collections
import json
import random
import string
import subprocess

from zelvane_e2e import PROGRAM, ProgramTest, wait_until, write_catalogue

TITLES = ["Titre", "Artiste", "Prêté"]
DISQUES = [["Kind of Blue", "Davis", ""], ["Aja", "Steely Dan", ""], ["Blue Train", "Coltrane", ""]]
AUTRES = [["Takk", "Sigur Ros", ""], ["aja", "Steely Dan", ""], ["Dummy", "Portishead", ""], ["Blue Train", "?", ""]]
COMMAND_LINE = PROGRAM.with_name("zelvane-cli")


class Comparing(ProgramTest):

    def test_a_file_that_is_not_open_is_compared_with_one_that_is(self):
        first = write_catalogue(self.folder() / "disques.qrt", TITLES, DISQUES)
        second = write_catalogue(self.folder() / "autres.qrt", TITLES, AUTRES)
        before = first.read_bytes(), second.read_bytes()
        program = self.start(first)
        program.table().click_title(1)
        self.wait_for(program.table(), "Blue Train", "Kind of Blue", "Aja")

        dialog = self.compare(second)
        only_second, only_first = self.results(dialog)
        self.wait_for(only_second, "Dummy", "Takk")
        self.wait_for(only_first, "Kind of Blue")
        self.assertEqual(only_second.row(1), ["Takk", "Sigur Ros", ""])
        wait_until(lambda: "Resultats: 2>1: 2 - 1>2: 1" in program.window_titles(), "the counts")
        program.find(role="page tab", name="autres.qrt")

        self.clean(only_second)
        self.wait_for(only_second, "Takk")
        program.key("Escape")
        wait_until(lambda: not program.find_all(role="dialog"), "the end of the comparison")
        program.await_frame()

        for name, titles in (("disques.qrt", ("Blue Train", "Kind of Blue", "Aja")),
                             ("autres.qrt", ("aja", "Blue Train", "Dummy", "Takk"))):
            program.find(role="page tab", name=name).click()
            self.wait_for(program.find(role="frame", name=name).find(table=True), *titles)
        program.key("ctrl+w")
        wait_until(lambda: not program.find_all(role="page tab", name="autres.qrt"), "the end of a document unasked")
        self.assertEqual((first.read_bytes(), second.read_bytes()), before)

    def test_the_program_ends_while_the_window_is_open(self):
        program = self.start(write_catalogue(self.folder() / "disques.qrt", TITLES, DISQUES))
        program.table()
        program.menu("Outils", "Comparer 2 catégories")
        program.find(role="dialog", name="Comparaisons de deux listes")
        program.menu("Fichier", "Quitter")
        self.assertEqual(program.wait_for_end(), 0)

    def compare(self, second):
        """Chooses the first document by the keys, types the path of the second, and takes the first columns."""
        program = self.program
        program.menu("Outils", "Comparer 2 catégories")
        dialog = program.find(role="dialog", name="Comparaisons de deux listes")
        dialog.find(role="text", name="Liste n°1").click()
        program.key("Down")
        dialog.find(role="text", name="Liste n°2").click()
        program.type(str(second))
        program.key("alt+c")
        program.find(role="dialog", name="Comparaison de deux listes(suite)")
        program.key("Return")
        return program.find(role="dialog", name=lambda name: name.startswith("Resultats"))

    def results(self, dialog):
        """The lists of what is only in the second and in the first category, the upper one first."""
        tables = self.program.find_all(table=True, inside=dialog)
        self.assertEqual(len(tables), 2)
        return sorted(tables, key=lambda table: table.area()[1])

    def wait_for(self, table, *titles):
        order = lambda: tuple(table.cell(row, 0).name for row in range(table.row_count()))
        wait_until(lambda: order() == titles, f"the entries {titles}")

    def clean(self, table):
        table.cell(0, 0).click()
        self.program.key("Delete")


class CommandLine(ProgramTest):

    def test_it_finds_what_counting_finds(self):
        # Letters of one case and digits: the order of the table and that of the codes are one.
        chance = random.Random(7)
        signs = string.ascii_uppercase + string.digits
        for round_number in range(40):
            columns = [["".join(chance.choices(signs[:chance.choice((3, 36))], k=chance.randrange(4)))
                        for _ in range(chance.randrange(1, 60))] for _ in range(2)]
            files = [write_catalogue(self.folder() / "liste.qrt", ["Rang", "Valeur", "Prêté"],
                                     [[str(rank), value, ""] for rank, value in enumerate(values)])
                     for values in columns]
            said = self.compare(*files)
            counts = [collections.Counter(values) for values in columns]
            for key, missing in (("onlyInFirst", counts[0] - counts[1]), ("onlyInSecond", counts[1] - counts[0])):
                found = [row[1] for row in said[key]]
                self.assertEqual(collections.Counter(found), missing, f"round {round_number}, {key}")
                self.assertEqual(found, sorted(found))

    def compare(self, first, second):
        home = self.session.new_home()
        environment = {"LC_ALL": "C.UTF-8", "ZELVANE_DOSSIER": str(home), "XDG_CONFIG_HOME": str(home),
                       "XDG_DATA_HOME": str(home)}
        said = subprocess.run([COMMAND_LINE, "compare", "--json", "--columns", "2,2", first, second], check=True,
                              stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, env=environment)
        return json.loads(said.stdout)

