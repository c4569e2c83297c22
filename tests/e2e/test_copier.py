"""Entries go from one program to another over the clipboard of the desktop, with their images."""
import pathlib
import subprocess
import sys
import zipfile

from zelvane_e2e import ProgramTest, read_catalogue, wait_until, write_catalogue

TITLES = ["Titre", "Artiste", "Prêté"]
DISQUES = [["Kind of Blue", "Davis", ""], ["Aja", "Dan", ""], ["Été", "Coltrane", ""]]


def clipboard():
    """What another program finds on the clipboard; nothing while nobody holds it."""
    done = subprocess.run(["xclip", "-o", "-selection", "clipboard", "-t", "UTF8_STRING"], stdout=subprocess.PIPE,
                          stderr=subprocess.DEVNULL, stdin=subprocess.DEVNULL)
    return done.stdout.decode()


class Copying(ProgramTest):

    def archive(self, name, titles, entries, images=None, sorted_=False):
        """A catalogue of the archive form. `images`: name and content by entry, from 0."""
        path = self.folder() / name
        text = write_catalogue(path, titles, entries).read_bytes().replace(b"Version=1.4", b"Version=2")
        if sorted_:
            text = text.replace(b"Sorted=0", b"Sorted=1")
        head, mark, lines = text.partition(b"[ListItems]\r\n")
        lines = lines.split(b"\r\n")
        for rank, (image, _) in (images or {}).items():
            lines[1 + rank] += image.encode()
        with zipfile.ZipFile(path, "w") as archive:
            archive.writestr("Zelvane.qrt", head + mark + b"\r\n".join(lines))
            for image, content in (images or {}).values():
                archive.writestr(image, content)
        return path

    def copy_all(self, path):
        program = self.start(path)
        program.table()
        program.key("ctrl+a")
        program.key("ctrl+c")
        return program, wait_until(clipboard, "a text on the clipboard")

    def paste(self, program):
        """Pastes as far as the mapping; returns its rows."""
        program.key("ctrl+v")
        return self.mapping(program)

    @staticmethod
    def mapping(program):
        rows = program.find(role="dialog", name="Coller").find(table=True)
        return [rows.row(row) for row in range(rows.row_count())]

    def accept(self, program, *titles):
        program.key("Return")
        wait_until(lambda: not program.find_all(role="dialog"), "the end of the dialog")
        table = program.table()
        wait_until(lambda: [table.cell(row, 0).name for row in range(table.row_count())] == list(titles),
                   f"the entries {titles}")

    def save(self, program, path):
        before = path.read_bytes()
        program.await_frame()
        program.key("ctrl+s")
        wait_until(lambda: path.read_bytes() != before and zipfile.is_zipfile(path), "the save")

    def test_entries_and_their_images_go_to_a_program_of_another_user_folder(self):
        source = self.archive("disques.qrt", TITLES, DISQUES, {0: ("bleu.jpg", b"bleu"), 2: ("ete.gif", b"ete")})
        giver, text = self.copy_all(source)
        lines = text.split("\r\n")
        self.assertEqual(lines[0], "[Zelvane]")
        self.assertEqual(lines[1].split("\t")[:3], TITLES)
        folder = pathlib.Path(lines[1].split("\t")[3])
        self.assertEqual((folder / "bleu.jpg").read_bytes(), b"bleu")
        self.assertEqual(lines[2:], ["Kind of Blue\tDavis\t\tbleu.jpg", "Aja\tDan\t\t", "Été\tColtrane\t\tete.gif", ""])
        self.assertFalse((giver.home / "programme" / "~qrtCopier.tmp").exists())

        target = self.archive("livres.qrt", ["Nom", "Prêté"], [["Zadig", ""], ["Candide", ""]], sorted_=True)
        taker = self.start(target)
        taker.table()
        self.assertNotEqual(giver.home, taker.home)
        self.assertEqual(self.paste(taker),
                         [["(1)Titre", "(1)Nom"], ["(2)Artiste", "(2)Prêté"], ["(3)Prêté", "<perdu>"]])
        self.accept(taker, "Aja", "Candide", "Été", "Kind of Blue", "Zadig")
        self.save(taker, target)
        self.assertEqual(read_catalogue(target)[1], [["Aja", "Dan"], ["Candide", ""], ["Été", "Coltrane"],
                                                     ["Kind of Blue", "Davis"], ["Zadig", ""]])
        with zipfile.ZipFile(target) as archive:
            self.assertEqual(archive.read("bleu.jpg"), b"bleu")
            self.assertEqual(archive.read("ete.gif"), b"ete")

    def test_two_entries_are_copied_four_times(self):
        self.copy_all(self.archive("disques.qrt", TITLES[::2], [["Aja", ""], ["Takk", ""]]))
        target = self.archive("autres.qrt", [*TITLES, "Note"], [["Zoo", "Z", "", ""]])
        taker = self.start(target)
        taker.table()
        taker.menu("Edition", "Copie par lot")
        taker.find(role="dialog", name="Copies par lot")
        taker.type("4")
        taker.key("Return")
        self.assertEqual(self.mapping(taker), [["(1)Titre", "(1)Titre"], ["(2)Prêté", "(2)Artiste"],
                                               ["<vide>", "(3)Prêté"], ["<vide>", "(4)Note"]])
        self.accept(taker, "Zoo", *["Aja"] * 4, *["Takk"] * 4)
        taker.find(name="2 selectionnée(s)")

    def test_a_text_of_another_program_is_pasted(self):
        given = "[Zelvane]\r\nUn\tDeux\t/nulle/part\r\na\t1\t\r\nб|c\t2\tperdue.jpg\r\n"
        subprocess.run(["xclip", "-i", "-selection", "clipboard", "-t", "UTF8_STRING"], input=given.encode(), check=True,
                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        program = self.start(self.archive("disques.qrt", TITLES, DISQUES))
        program.table()
        self.assertEqual(self.paste(program), [["(1)Un", "(1)Titre"], ["(2)Deux", "(2)Artiste"], ["<vide>", "(3)Prêté"]])
        program.key("Return")
        wait_until(lambda: any("n'ont pas pu être copiées : 1" in label.name for label in program.find_all(role="label")),
                   "the word on the image that is not there")
        self.accept(program, *(values[0] for values in DISQUES), "a", "б|c")

    def test_the_text_stays_when_the_program_has_ended(self):
        manager = subprocess.Popen([sys.executable, "-B", pathlib.Path(__file__).with_name("clipboard_manager.py")],
                                   stdout=subprocess.PIPE, text=True)
        self.addCleanup(manager.stdout.close)
        self.addCleanup(manager.wait)
        self.addCleanup(manager.kill)
        self.assertEqual(manager.stdout.readline(), "ready\n")
        giver, text = self.copy_all(self.archive("disques.qrt", TITLES, DISQUES))
        giver.menu("Fichier", "Quitter")
        self.assertEqual(giver.wait_for_end(), 0)
        self.assertEqual(manager.stdout.readline(), "taken\n")
        self.assertEqual(clipboard(), text)
