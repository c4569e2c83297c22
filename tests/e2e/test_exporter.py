"""Exports and the report of loans, as the user asks for them; the files are read back by foreign tools."""
import csv
import json
import shutil
import subprocess
import unittest

from zelvane_e2e import PROGRAM, ProgramTest, wait_until, write_catalogue

TITLES = ["Titre", "Artiste", "Année", "Prêté"]
ENTRIES = [["Abbey Road", "Beatles", "1969", "Ida - 01/02/2026", ""], ["Été & hiver <live>", "Céleste", "1999", "", ""],
           ["Blue", "Mitchell", "1971", "Paul - 03/04/2025", ""]]


class Exporting(ProgramTest):

    def open(self, home=None):
        self.path = write_catalogue(self.folder() / "disques.qrt", TITLES, ENTRIES)
        program = self.start(self.path, home=home)
        program.table()
        return program

    def export(self, name, downs, *keys):
        """Exports under a name, with the type so many lines below the one that is proposed; keys: each
        pressed before, with the box that it ticks."""
        program = self.program
        program.menu("Fichier", "Exporter")
        program.await_window("Exporter la selection")
        dialog = program.find(role="dialog", name="Exporter la selection")
        wait_until(lambda: dialog.has("active"), "the chooser of columns")
        for key, box in keys:
            program.key(key)
            wait_until(lambda: dialog.find(role="check box", name=box).has("checked"), f"the box {box}")
        program.key("Return")
        chooser = program.find(role="dialog", name="Enregistrer sous")
        kind = chooser.find(role="combo box", name=lambda name: name.startswith("Internet files with images"))
        kind.click()
        program.key(*["Down"] * downs, "Return")
        chooser.find(role="text", name="Nom de fichier :").click()
        program.key("ctrl+a")
        target = self.folder() / name
        program.type(str(target))
        program.key("Return")
        program.await_window("Zelvane v2 - [disques.qrt]")
        wait_until(target.exists, "the file")
        return target

    def test_each_kind_is_written_and_read_by_other_programs(self):
        program = self.open()
        before = self.path.read_bytes()

        table = self.export("liste.csv", 3)
        with table.open(encoding="cp1252", newline="") as file:
            rows = list(csv.reader(file, delimiter=";"))
        self.assertEqual([row[:4] for row in rows], [TITLES] + [entry[:4] for entry in ENTRIES])

        lines = self.export("liste.txt", 4).read_bytes().decode("cp1252").split("\r\n")
        self.assertEqual(lines[1].split("\t")[:2], ["Abbey Road", "Beatles"])

        framed = self.export("cadre.txt", 2).read_bytes().decode("cp1252")
        self.assertIn("disques.qrt : 3-----", framed)
        self.assertIn("Abbey Road", framed)

        for name, downs in (("images.htm", 0), ("page.htm", 1)):
            page = self.export(name, downs)
            # What the pages have is not what a validator asks for; but it is read, and all of it.
            told = subprocess.run(["xmllint", "--html", "--noout", page], stderr=subprocess.PIPE, text=True).stderr
            errors = [line.partition("error : ")[2] for line in told.splitlines() if "error" in line]
            # Values stand as they are, with their "&" and "<": nothing else is complained about.
            self.assertEqual(errors, ["htmlParseEntityRef: no name", "Tag live invalid"], name)
            text = subprocess.run(["xmllint", "--html", "--xpath", "string(//body)", page], check=True,
                                  stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True).stdout
            for entry in ENTRIES:
                self.assertIn(entry[0].partition(" <")[0], text)

        self.assertEqual(self.path.read_bytes(), before)
        self.assertEqual(program.log.read_text(), "")

    def open_with_exporters(self):
        """With the plug-ins that come with the program."""
        home = self.session.new_home()
        folder = home / "programme" / "plugins"
        for part in (home / "programme", folder):
            part.mkdir(mode=0o700, exist_ok=True)
        for name in ("ExporterJson.dll", "ExporterOds.dll"):
            shutil.copyfile(PROGRAM.parent.parent / "share" / "zelvane" / "plugins" / name, folder / name)
            (folder / name).chmod(0o700)
        return self.open(home)

    def test_json_is_read_by_python(self):
        program = self.open_with_exporters()
        read = json.loads(self.export("liste.json", 5).read_text(encoding="utf-8"))
        self.assertEqual([column["titre"] for column in read["colonnes"]], TITLES)
        self.assertEqual(read["colonnePrete"], "Prêté")
        self.assertEqual([list(entry.values()) for entry in read["entrees"]], [entry[:4] for entry in ENTRIES])
        self.assertEqual(program.log.read_text(), "")

    @unittest.skipUnless(shutil.which("soffice"), "no LibreOffice here")
    def test_a_spreadsheet_is_read_by_libreoffice(self):
        program = self.open_with_exporters()
        sheet = self.export("liste.ods", 6)
        subprocess.run(["soffice", f"-env:UserInstallation=file://{self.folder()}/bureau", "--headless", "--convert-to",
                        "csv:Text - txt - csv (StarCalc):44,34,76", "--outdir", sheet.parent, sheet], check=True,
                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        with sheet.with_suffix(".csv").open(encoding="utf-8", newline="") as file:
            rows = list(csv.reader(file))
        self.assertEqual(rows, [TITLES] + [entry[:4] for entry in ENTRIES])
        self.assertEqual(program.log.read_text(), "")

    def test_the_selection_goes_out_alone(self):
        program = self.open()
        program.key("Down")
        wait_until(lambda: "1 selectionnée(s)" in program.texts(), "a selected entry")
        table = self.export("choisie.csv", 3, ("alt+s", "Selection uniquement"))
        self.assertEqual(len(table.read_bytes().splitlines()), 2)

    def test_the_report_tells_who_has_what(self):
        program = self.open()
        program.menu("Outils", "Statistiques")
        program.await_window("Statistiques")
        report = program.find(role="dialog", name="Statistiques").find(role="text").text
        self.assertIn("Nombre d'entrées pretées(dépendance):2", report)
        for borrower in ("[Ida]", "[Paul]"):
            self.assertIn(borrower, report)
        program.key("Escape")
        program.await_window("Zelvane v2 - [disques.qrt]")
