"""Entries are lent and come back, in the window and from the command line."""
import json
import random
import subprocess

from zelvane_e2e import PROGRAM, ProgramTest, read_catalogue, wait_until, write_catalogue

TITLES = ["Titre", "Coffret", "Prêté"]
DISQUES = [["Aja", "A", ""], ["Blue", "B", ""], ["Dummy", "A", ""]]
COMMAND_LINE = PROGRAM.with_name("zelvane-cli")


class Lending(ProgramTest):

    def test_what_is_lent_is_seen_saved_and_comes_back(self):
        path = write_catalogue(self.folder() / "disques.qrt", TITLES, DISQUES, dependant=2)
        program = self.start(path)
        program.table()

        self.choose(0)
        self.lend("Paul", "", "Return")
        paul = self.loans(lambda loans: loans[0] and not loans[1] and not loans[2])[0]
        self.assertRegex(paul, r"^Paul - \d\d/\d\d/\d{4}$")
        self.assertEqual(self.contacts(), ["count=1", "Nom1=Paul|"])

        self.lend("Paul", "", "Return", replace=True)
        self.assertEqual(self.contacts(), ["count=1", "Nom1=Paul|"], "the same contact again")
        self.choose(1)
        self.lend("Paul", "paul@x.fr", "Return")
        self.loans(lambda loans: loans == [paul, paul, ""])
        self.assertEqual(self.contacts(), ["count=2", "Nom1=Paul|", "Nom2=Paul|paul@x.fr"])
        program.key("ctrl+s")
        lent = [["Aja", "A", paul], ["Blue", "B", paul], ["Dummy", "A", ""]]
        wait_until(lambda: read_catalogue(path) == (TITLES, lent), "the loans in the file")

        # The first choice does not keep apart what was lent together.
        self.choose(0)
        self.give_back("Return")
        self.loans(lambda loans: loans == ["", "", ""])

        self.choose(2)
        self.lend("Ida", "", "Down", "Return")
        self.loans(lambda loans: loans[0] == loans[2] and loans[0].startswith("Ida - ") and not loans[1])
        self.choose(0)
        self.give_back("Down", "Return")
        self.loans(lambda loans: loans == ["", "", ""])
        program.key("ctrl+s")
        wait_until(lambda: read_catalogue(path) == (TITLES, DISQUES), "no loan in the file")

    def choose(self, row):
        self.program.table().cell(row, 0).click()
        wait_until(lambda: self.program.find_all(name="1 selectionnée(s)"), "one entry to be selected")

    def lend(self, name, email, *choice, replace=False):
        program = self.program
        program.menu("Prêt", "Marquer comme Prêté")
        program.find(role="dialog", name="Prêt de cd")
        program.type(name)
        if email:
            program.key("Tab")
            program.type(email)
        program.key("Return")
        self.answer_dependants(*choice)
        if replace:
            program.find(name="Certains CD sont deja pretés!! Doit-on remplacer le nom existant par le nouveau?")
            program.key("Return")
        wait_until(lambda: not program.find_all(role="dialog"), "the end of the loan")
        program.await_frame()

    def give_back(self, *choice):
        self.program.menu("Prêt", "Marquer comme Rendu")
        self.answer_dependants(*choice)
        wait_until(lambda: not self.program.find_all(role="dialog"), "the end of the return")
        self.program.await_frame()

    def answer_dependants(self, *choice):
        self.program.find(role="dialog", name="Prêter des Entrées")
        self.program.key(*choice)

    def loans(self, fits):
        """The loan of each entry, once they are as they should."""
        table = self.program.table()
        read = lambda: [table.cell(row, 2).name for row in range(table.row_count())]
        wait_until(lambda: fits(read()), "the loans in the table")
        return read()

    def contacts(self):
        """The lines of the contact list."""
        text = next(self.program.home.rglob("Zelvane.ini")).read_bytes().decode("cp1252")
        return [line for line in text.partition("[Preter]\r\n")[2].partition("\r\n\r\n")[0].split("\r\n") if line]


class Contacts(ProgramTest):

    def test_the_list_is_edited_with_the_keys_alone(self):
        program = self.start(write_catalogue(self.folder() / "disques.qrt", TITLES, DISQUES))
        program.table()
        program.menu("Prêt", "Organiser ses contacts")
        program.find(role="dialog", name="Organiser vos Contacts")
        program.key("alt+j")
        program.find(role="dialog", name="Ajouter un Contact")
        program.type("Paul")
        program.key("Tab")
        program.type("p@x.fr")
        program.key("Return")
        dialog = program.find(role="dialog", name="Organiser vos Contacts")
        table = program.find(table=True, inside=dialog)
        wait_until(lambda: table.row_count() == 1, "the contact")
        self.assertEqual(table.row(0), ["Paul", "p@x.fr"])
        program.key("alt+o")
        wait_until(lambda: not program.find_all(role="dialog"), "the end of the dialog")
        self.assertIn(b"\r\ncount=1\r\nNom1=Paul|p@x.fr\r\n", next(program.home.rglob("Zelvane.ini")).read_bytes())


def widen(entries, chosen, column):
    """The places of `chosen` and of all entries that have a value of theirs. No value here holds a bar."""
    values = {entries[place][column] for place in chosen}
    return {place for place, entry in enumerate(entries) if entry[column] in values}


class CommandLine(ProgramTest):

    def test_it_changes_what_a_model_of_the_rules_changes(self):
        self.work = self.folder()
        chance = random.Random(5)
        for round_number in range(60):
            titles = chance.choice((TITLES, ["Prêté", "Coffret", "Titre"], ["Coffret", "Prêté"]))
            loan, box = titles.index("Prêté"), titles.index("Coffret")
            entries = [[chance.choice(("", "A", "B", "Jo - 1/1/2001", "Ida")) for _ in titles]
                       for _ in range(chance.randrange(1, 9))]
            dependant = chance.choice((0, box + 1))
            chosen = set(chance.sample(range(len(entries)), chance.randrange(1, len(entries) + 1)))
            options = ["--select", ",".join(str(place + 1) for place in chosen)]
            options += ["--dependants"] if (dependants := chance.random() < 0.5) else []
            source = write_catalogue(self.work / "entree.qrt", titles, entries, dependant=dependant)
            expected = [list(entry) for entry in entries]
            if round_number % 2:
                if dependants and dependant > 1:
                    chosen = widen(entries, chosen, box)
                if dependant:
                    chosen = widen(entries, chosen, loan)
                for place in chosen:
                    expected[place][loan] = ""
                self.run_command("return", source, *options)
            else:
                replace = chance.random() < 0.5
                if dependants and dependant:
                    chosen = widen(entries, chosen, box)
                for place in chosen:
                    if not entries[place][loan]:
                        expected[place][loan] = "Zoe - 2/2/2002"
                    elif replace:
                        expected[place][loan] = "Zoe" if loan == 0 else "Zoe - 2/2/2002"
                self.run_command("lend", source, *options, "--to", "Zoe", "--date", "2/2/2002",
                                 *(["--replace"] if replace else []))
            expected.sort(key=lambda entry: entry[0].casefold())  # as every file is read that the program wrote
            self.assertEqual(self.listed(self.work / "sortie.qrt"), expected, f"round {round_number}")

    def run_command(self, command, source, *options):
        self._run(command, source, self.work / "sortie.qrt", "--force", *options)

    def listed(self, path):
        said = self._run("list", "--json", path)
        return [entry["values"] for entry in json.loads(said.stdout)["entries"]]

    def _run(self, *arguments):
        home = self.session.new_home()
        environment = {"LC_ALL": "C.UTF-8", "ZELVANE_DOSSIER": str(home), "XDG_CONFIG_HOME": str(home),
                       "XDG_DATA_HOME": str(home)}
        return subprocess.run([COMMAND_LINE, *map(str, arguments)], check=True, stdin=subprocess.DEVNULL,
                              stdout=subprocess.PIPE, env=environment)
