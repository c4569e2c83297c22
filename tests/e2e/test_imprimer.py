"""Printing: by the dialog into a file and to a real print queue, and what then stands on the paper."""
import html
import os
import re
import shutil
import subprocess
import unittest
import zipfile

from zelvane_e2e import PATIENCE, ProgramTest, SOURCES, wait_until, write_catalogue

MM_PER_POINT = 25.4 / 72
SCALE = 2.5  # of the paper to the sheet of 84 x 118.8 mm
LEFT, TOP = 4.233 * SCALE, 10.583 * SCALE  # of the first column, in mm
NO_PRINTERS = {"CUPS_SERVER": "/nonexistent/cups.sock"}
DESCRIPTION = """*PPD-Adobe: "4.3"
*FormatVersion: "4.3"
*FileVersion: "1.0"
*LanguageVersion: English
*LanguageEncoding: ISOLatin1
*PCFileName: "ESSAI.PPD"
*Manufacturer: "Essai"
*Product: "(Essai)"
*ModelName: "Essai"
*ShortNickName: "Essai"
*NickName: "Essai"
*PSVersion: "(3010.000) 0"
*LanguageLevel: "3"
*ColorDevice: True
*DefaultColorSpace: RGB
*FileSystem: False
*Throughput: "1"
*cupsFilter: "application/pdf 0 gziptoany"
*OpenUI *PageSize: PickOne
*OrderDependency: 10 AnySetup *PageSize
*DefaultPageSize: A4
*PageSize A4: ""
*CloseUI: *PageSize
*OpenUI *PageRegion: PickOne
*OrderDependency: 10 AnySetup *PageRegion
*DefaultPageRegion: A4
*PageRegion A4: ""
*CloseUI: *PageRegion
*DefaultImageableArea: A4
*ImageableArea A4: "0 0 595 842"
*DefaultPaperDimension: A4
*PaperDimension A4: "595 842"
"""


def run(*command, **how):
    return subprocess.run([str(part) for part in command], check=True, stdout=subprocess.PIPE, text=True, **how).stdout


class Pdf:
    """What stands on the pages of a file, in mm from the upper left corner."""

    def __init__(self, path):
        self.path = path
        told = run("pdfinfo", path)
        self.pages = int(re.search(r"^Pages:\s+(\d+)", told, re.M)[1])
        self.size = tuple(float(value) * MM_PER_POINT
                          for value in re.search(r"^Page size:\s+([\d.]+) x ([\d.]+) pts", told, re.M).groups())
        self.title = re.search(r"^Title:\s*(.*)$", told, re.M)[1]

    def words(self, page):
        """Text, left and top of each word of a page (from 1)."""
        found = run("pdftotext", "-bbox", "-f", page, "-l", page, self.path, "-")
        words = re.findall(r'<word xMin="([\d.-]+)" yMin="([\d.-]+)" xMax="[\d.-]+" yMax="[\d.-]+">(.*?)</word>', found)
        return [(html.unescape(text), float(x) * MM_PER_POINT, float(y) * MM_PER_POINT) for x, y, text in words]

    def boxes(self, page):
        """Left, top, width and height of each rectangle that is drawn on a page."""
        svg = self.path.with_suffix(".svg")
        run("pdftocairo", "-svg", "-f", page, "-l", page, self.path, svg)
        boxes = []
        for path in re.findall(r"<path [^>]*>", svg.read_text()):
            if "stroke:rgb" not in path and "stroke=\"rgb" not in path:
                continue
            matrix = re.search(r'transform="matrix\(([^)]*)\)"', path)
            a, b, c, d, e, f = (float(part) for part in matrix[1].split(",")) if matrix else (1, 0, 0, 1, 0, 0)
            for part in re.search(r' d="([^"]*)"', path)[1].split("M")[1:]:
                numbers = [float(number) for number in re.findall(r"-?[\d.]+", part)]
                points = [(a * x + c * y + e, b * x + d * y + f) for x, y in zip(numbers[::2], numbers[1::2])]
                if len(points) < 4:
                    continue  # a pen that is only moved
                left, top = min(x for x, y in points), min(y for x, y in points)
                right, bottom = max(x for x, y in points), max(y for x, y in points)
                boxes.append(tuple(length * MM_PER_POINT for length in (left, top, right - left, bottom - top)))
        return boxes


class PrintQueue:
    """A print server of one queue, "Essai", whose jobs go into a file."""

    def __init__(self, folder):
        self.folder = folder
        self.received = folder / "recu"
        self.received.touch()
        for name in ("root", "state", "spool", "spool/tmp", "cache"):
            (folder / name).mkdir()
        self.socket = folder / "cups.sock"
        (folder / "cupsd.conf").write_text(
            f"LogLevel warn\nListen {self.socket}\nBrowsing Off\nWebInterface No\nDefaultAuthType None\n"
            "<Location />\nOrder allow,deny\nAllow all\n</Location>\n"
            "<Location /admin>\nOrder allow,deny\nAllow all\n</Location>\n"
            "<Policy default>\n<Limit All>\nOrder allow,deny\nAllow all\n</Limit>\n</Policy>\n")
        (folder / "cups-files.conf").write_text(
            f"FileDevice Yes\nServerRoot {folder}/root\nStateDir {folder}/state\nRequestRoot {folder}/spool\n"
            f"TempDir {folder}/spool/tmp\nCacheDir {folder}/cache\nAccessLog {folder}/access\nErrorLog {folder}/error\n"
            f"PageLog {folder}/page\n")
        (folder / "essai.ppd").write_text(DESCRIPTION)
        # The server gives its rights away; so each folder on the way has to be open.
        for place in (folder, *folder.parents):
            if place.owner() == folder.owner() and place != place.parent:
                place.chmod(place.stat().st_mode | 0o055)
        with open(folder / "cupsd.log", "w") as said:
            self._server = subprocess.Popen(
                [shutil.which("cupsd", path=os.environ["PATH"] + ":/usr/sbin"), "-f", "-c", folder / "cupsd.conf", "-s",
                 folder / "cups-files.conf"], stdin=subprocess.DEVNULL, stdout=said, stderr=said)
        wait_until(self._answers, "the print server")
        self._command("lpadmin", "-p", "Essai", "-E", "-v", f"file:{self.received}", "-P", folder / "essai.ppd")
        self._command("lpadmin", "-d", "Essai")

    def _command(self, name, *arguments):
        program = shutil.which(name, path=os.environ["PATH"] + ":/usr/sbin")
        return run(program, "-h", self.socket, *arguments, stderr=subprocess.DEVNULL)

    def _answers(self):
        try:
            return "running" in self._command("lpstat", "-r") and self.socket.exists()
        except subprocess.CalledProcessError:
            return False

    def jobs(self):
        """Those that are done."""
        return len(self._command("lpstat", "-W", "completed", "-o").splitlines())

    def waiting(self):
        return len(self._command("lpstat", "-W", "not-completed", "-o").splitlines())

    def close(self):
        self._server.terminate()
        self._server.wait(PATIENCE)


class PrintingTest(ProgramTest):

    def open(self, path, environment=None, settings=None):
        home = self.session.new_home()
        if settings:
            (home / "config" / "zelvane").mkdir(parents=True)
            (home / "config" / "zelvane" / "zelvane.ini").write_text(
                "[Options]\n" + "".join(f"{key.lower()}={value}\n" for key, value in settings.items()))
        program = self.start(path, home=home, environment=environment or NO_PRINTERS)
        program.table()
        self.frame = f"Zelvane v2 - [{path.name}]"
        return program

    def print_dialog(self):
        self.program.key("ctrl+p")
        self.program.find(name=lambda name: name.startswith("Redimensionnez les colonnes"))
        self.program.key("Return")
        self.program.await_window("Apperçu avant impression")
        dialog = self.program.find(role="dialog", name="Apperçu avant impression")
        wait_until(lambda: dialog.has("active"), "the dialog to have the keys")
        return dialog

    def await_question(self):
        return self.program.find(name=lambda name: "page(s) à imprimer" in name).name

    def print_to_file(self, path):
        self.print_dialog()
        self.program.key("Return")
        question = self.await_question()
        self.program.key("alt+o")
        dialog = self.program.find(role="dialog", name="Enregistrer sous")
        dialog.find(role="text", name="Nom de fichier :").click()
        self.program.key("ctrl+a")
        self.program.type(str(path))
        self.program.key("Return")
        wait_until(path.exists, "the file")
        self.program.await_window(self.frame)
        pdf = Pdf(path)
        self.assertIn(f"Il y a {pdf.pages} page(s) à imprimer", question)
        return pdf

    # ---- what stands on the paper

    def assert_near(self, found, expected, what, tolerance=0.2):
        self.assertLess(abs(found - expected), tolerance, f"{what}: {found:.3f} mm, not {expected:.3f}")

    def assert_first_page(self, pdf, heading, columns):
        """The heading, the number and the row of titles of a page; columns: titles and widths in mm. Returns where the
        first row begins."""
        self.assert_near(pdf.size[0], 210, "the width")
        self.assert_near(pdf.size[1], 297, "the height")
        words = pdf.words(1)
        first = heading.split()[0]
        above = [word for word in words if word[2] < TOP - 3 and word[1] < 76 * SCALE]
        self.assertEqual([word for word, x, y in above], heading.split())
        _, x, y = above[0]
        self.assert_near(x, 8.996 * SCALE, f"the heading at {first}")
        self.assert_near(y, 4.763 * SCALE, "the heading's top", 1)
        number = next(word for word in words if word[0] == "1" and word[1] > 76 * SCALE)
        self.assert_near(number[1], 76.2 * SCALE, "the page number", 0.6)
        left = LEFT
        boxes = pdf.boxes(1)
        for place, (title, width) in enumerate(columns):
            self.assert_near(boxes[place][0], left, f"the box of {title}")
            self.assert_near(boxes[place][1], TOP, f"the top of {title}")
            self.assert_near(boxes[place][2], width, f"the width of {title}")
            self.assertTrue(any(word == title.split()[0] and abs(y - TOP) < 0.4 and left - 0.2 < x < left + 1.2
                                for word, x, y in words), f"{title} in {words[:20]}")
            left += width
        return TOP + boxes[0][3]

    def assert_rows(self, pdf, page, columns, first_top):
        """Every row of boxes below `first_top` stands below the one before and fills its columns."""
        boxes = [box for box in pdf.boxes(page) if box[1] > first_top - 0.1]
        self.assertEqual(len(boxes) % len(columns), 0)
        top = boxes[0][1]
        for row in range(0, len(boxes), len(columns)):
            left = LEFT
            for (_, width), (x, y, found, height) in zip(columns, boxes[row:row + len(columns)]):
                self.assert_near(x, left, f"box {row} of page {page}")
                self.assert_near(y, top, f"top of box {row} of page {page}")
                self.assert_near(found, width, f"width of box {row} of page {page}")
                self.assert_near(height, boxes[row][3], f"height of box {row} of page {page}", 0.02)
                left += width
            top += boxes[row][3]
        return len(boxes) // len(columns)

    def write_archive(self, name, titles, entries, **options):
        """A catalogue with print options."""
        path = self.folder() / name
        text = write_catalogue(self.folder() / "texte", titles, entries).read_bytes().replace(b"Version=1.4", b"Version=2")
        ini = "[Impression]\r\n" + "".join(f"{key}={value}\r\n" for key, value in options.items())
        with zipfile.ZipFile(path, "w", zipfile.ZIP_DEFLATED) as archive:
            archive.writestr("Zelvane.qrt", text)
            archive.writestr("print.ini", ini)
        return path


class PrintingToAFile(PrintingTest):

    def test_a_list_goes_into_a_file_as_it_is_arranged(self):
        entries = [[f"Disque {i}", f"Artiste {i}", "1969", "", ""] for i in range(1, 201)]
        for family in ("DejaVu Sans", "DejaVu Serif", "DejaVu Sans Mono"):
            with self.subTest(family):
                path = self.write_archive("disques.qrt", ["Titre", "Artiste", "Année", "Prêté"], entries,
                                          ColWidth1=30, ColWidth2=20.5, ColWidth3=0, ColWidth4=15)
                program = self.open(path, settings={"FontName": family})
                pdf = self.print_to_file(self.folder() / "liste.pdf")
                self.assertEqual(pdf.title, "disques.qrt")
                self.assertIn(family.replace(" ", ""), run("pdffonts", pdf.path).replace("-", ""))
                columns = [("Titre", 75), ("Artiste", 51.25), ("Prêté", 37.5)]
                first = self.assert_first_page(pdf, "Zelvane v2.2 by Morvenal - 200 disques.qrt", columns)
                rows = self.assert_rows(pdf, 1, columns, first)
                for page in range(2, pdf.pages + 1):
                    rows += self.assert_rows(pdf, page, columns, 0)
                self.assertGreaterEqual(rows, 200)
                text = run("pdftotext", "-layout", pdf.path, "-")
                for title, artist, year, *_ in entries:
                    self.assertIn(title, text)
                self.assertNotIn("1969", text)
                self.assertEqual(program.log.read_text(), "")
                program.close()

    def test_a_long_value_goes_on_for_three_pages(self):
        words = [f"mot{i}" for i in range(1, 1200)]
        path = self.write_archive("long.qrt", ["Titre", "Notes", "Prêté"], [["Aja", " ".join(words), "", ""]],
                                  ColWidth1=30, ColWidth2=20, ColWidth3=0)
        self.open(path)
        pdf = self.print_to_file(self.folder() / "long.pdf")
        self.assertGreaterEqual(pdf.pages, 3)
        columns = [("Titre", 75), ("Notes", 50)]
        first = self.assert_first_page(pdf, "Zelvane v2.2 by Morvenal - 1 long.qrt", columns)
        self.assertEqual(self.assert_rows(pdf, 1, columns, first), 1)
        seen = set()
        for page in range(1, pdf.pages + 1):
            found = pdf.words(page)
            seen.update(word for word, x, y in found)
            self.assertIn(str(page), [word for word, x, y in found if x > 76 * SCALE])
            self.assertLess(max(y for word, x, y in found), 273)
            if page > 1:
                # What follows begins where the row before would have ended.
                self.assertEqual(self.assert_rows(pdf, page, columns, 0), 1)
                self.assertLess(pdf.boxes(page)[0][1], 297)
        self.assertEqual(set(words) - seen, set())

    def test_the_heading_is_changed_the_pages_are_seen_and_the_options_saved(self):
        path = self.write_archive("disques.qrt", ["Titre", "Prêté"], [["Aja", "", ""]])
        program = self.open(path)
        dialog = self.print_dialog()
        program.key("alt+o")
        program.await_window("Options d'impression")
        options = program.find(role="dialog", name="Options d'impression")
        wait_until(lambda: options.has("active"), "the options to have the keys")
        options.find(role="text", name="Texte :").click()
        program.key("ctrl+a")
        program.type("%nb% disques")
        program.key("Return")
        dialog.find(role="label", name="## disques")
        wait_until(lambda: dialog.has("active"), "the dialog to have the keys again")
        program.key("alt+v")
        program.await_window("Pages à imprimer")
        pages = program.find(role="dialog", name="Pages à imprimer")
        wait_until(lambda: pages.has("active"), "the pages to have the keys")
        program.key("Escape")
        wait_until(lambda: dialog.has("active"), "the dialog to have the keys at last")
        program.key("Escape")
        program.await_window(self.frame)

        def saved():
            try:
                with zipfile.ZipFile(path) as archive:
                    return b"Texte=%nb% disques" in archive.read("print.ini")
            except (OSError, KeyError, zipfile.BadZipFile):
                return False

        program.await_frame()
        program.key("ctrl+s")
        wait_until(saved, "the options in the file")

    def test_the_samples_fit_their_pages(self):
        for name in ("discotheque.qrt", "bibliotheque.qrt"):
            sample = SOURCES / "examples" / name
            if not sample.exists():
                continue
            with self.subTest(name):
                path = self.folder() / name
                shutil.copy(sample, path)
                program = self.open(path)
                program.close_comments()
                pdf = self.print_to_file(self.folder() / "liste.pdf")
                for page in range(1, pdf.pages + 1):
                    for left, top, width, height in pdf.boxes(page):
                        self.assertGreaterEqual(left, LEFT - 0.2)
                        self.assertGreaterEqual(top, TOP - 2 * SCALE - 0.2)
                program.close()


class PrintingToAPrinter(PrintingTest):

    def test_a_printer_gets_one_job_after_yes_and_none_after_no(self):
        queue = PrintQueue(self.folder())
        self.addCleanup(queue.close)
        path = write_catalogue(self.folder() / "disques.qrt", ["Titre", "Artiste"], [["Aja", "Steely Dan", ""]])
        program = self.open(path, environment={"CUPS_SERVER": str(queue.socket)})

        for answer, jobs in (("alt+n", 0), ("alt+o", 1)):
            dialog = self.print_dialog()
            dialog.find(name="Essai")
            program.key("Return")
            self.assertIn("Il y a 1 page(s)", self.await_question())
            self.assertEqual(queue.jobs() + queue.waiting(), 0, "before the answer")
            program.key(answer)
            program.await_window(self.frame)
            wait_until(lambda: (queue.jobs(), queue.waiting()) == (jobs, 0), f"{jobs} jobs")
            self.assertEqual(bool(queue.received.read_bytes()), jobs > 0)

        copy = self.folder() / "recu.pdf"
        shutil.copy(queue.received, copy)
        pdf = Pdf(copy)
        self.assertEqual(pdf.pages, 1)
        self.assert_near(pdf.size[0], 210, "the width")
        self.assertIn("Steely", [word for word, x, y in pdf.words(1)])
        boxes = pdf.boxes(1)
        self.assertEqual(len(boxes), 6, "two rows, and a column for loans")
        self.assert_near(boxes[0][0], LEFT, "the first box")
        self.assert_near(boxes[0][1], TOP, "its top")


if __name__ == "__main__":
    unittest.main()
