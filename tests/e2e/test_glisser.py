"""Entries dragged by the mouse: between documents, over tabs, between programs, and texts of other programs."""
import os
import subprocess
import time

from zelvane_e2e import ProgramTest, TimeLimit, wait_until, write_catalogue, xdotool

DRAGGED = os.environ["ZELVANE_E2E_DRAG"]
TITLES = ["Titre", "Artiste", "Prêté"]
MAPPING = "Glisser-déposer"


def move(x, y):
    """Goes to a place in two steps: where a pointer jumps, nothing notices that it came."""
    xdotool("mousemove", x - 3, y, "mousemove", x, y)


class Dragging(ProgramTest):

    def catalogue(self, name, *titles):
        return write_catalogue(self.folder() / name, TITLES, [[title, "artiste de " + title, ""] for title in titles])

    def open_two(self):
        """Two documents, "b.qrt" in front."""
        program = self.start(self.catalogue("a.qrt", "Aja", "Blue"))
        program.table()
        self.start_again(program, self.catalogue("b.qrt", "Dummy"))
        program.await_window("Zelvane v2 - [b.qrt]")
        wait_until(lambda: self.table(program, "b.qrt").row_count() == 1, "the second document")
        program.await_frame()
        return program

    def start_again(self, program, path):
        second = self.start(path, home=program.home)
        self.assertEqual(second.wait_for_end(), 0)
        self.program = program

    def tile(self, program):
        program.menu("Fenêtre", "Mosaïque verticale")
        wait_until(lambda: len(program.find_all(table=True)) == 2, "both tables")

    def table(self, program, name):
        return program.find(role="frame", name=name).find(table=True)

    def titles(self, program, name):
        table = self.table(program, name)
        return [table.row(row)[0] for row in range(table.row_count())]

    def middle(self, widget):
        x, y, width, height = widget.area()
        return x + width // 2, y + height // 2

    def windows(self, program):
        return xdotool("search", "--onlyvisible", "--pid", program._process.pid, check=False).split()

    def pick_up(self, program, name, row=0):
        """Selects an entry, presses it again and moves off, until the picture of the drag is on the screen."""
        cell = self.table(program, name).cell(row, 0)
        cell.click()
        wait_until(lambda: self.table(program, name).cell(row, 0).has("selected"), "the selection")
        x, y = self.middle(cell)
        time.sleep(0.6)  # two presses at once would be a double click
        before = set(self.windows(program))
        xdotool("mousedown", 1)
        move(x + 30, y)
        wait_until(lambda: set(self.windows(program)) - before, "the picture of what is dragged")
        return before

    def let_go(self):
        xdotool("mouseup", 1)

    def await_mapping(self, program):
        program.await_window(MAPPING)
        dialog = program.find(role="dialog", name=MAPPING)
        wait_until(lambda: dialog.has("active"), "the mapping to have the keys")
        return dialog.find(table=True)

    def until(self, done, attempt):
        """Another program answers when it likes, and what is let go before goes nowhere: then again."""
        for _ in range(10):
            attempt()
            try:
                return wait_until(done, "the end of the drag", limit=10)
            except TimeLimit:
                continue
        return self.fail("no drag came through")

    # ---- in one program

    def test_to_another_window(self):
        program = self.open_two()
        self.tile(program)
        there = self.middle(self.table(program, "b.qrt"))
        self.pick_up(program, "a.qrt")
        move(*there)
        self.let_go()
        rows = self.await_mapping(program)
        folder = rows.row(3)[0]
        self.assertEqual([rows.row(row) for row in range(4)],
                         [["(1)Titre", "(1)Titre"], ["(2)Artiste", "(2)Artiste"], ["(3)Prêté", "(3)Prêté"],
                          [folder, "<perdu>"]])
        self.assertTrue(folder.startswith("(4)/") and folder.endswith("/"), folder)
        # The second column comes first.
        program.key("Down", "alt+Down", "Return")
        program.await_window("Zelvane v2")
        wait_until(lambda: self.titles(program, "b.qrt") == ["Dummy", "artiste de Aja"], "the entry")
        self.assertEqual(self.table(program, "b.qrt").row(1), ["artiste de Aja", "Aja", ""])
        self.assertEqual(self.titles(program, "a.qrt"), ["Aja", "Blue"])
        program.kill()

    def test_a_mapping_that_is_cancelled_adds_nothing(self):
        program = self.open_two()
        self.tile(program)
        there = self.middle(self.table(program, "b.qrt"))
        self.pick_up(program, "a.qrt")
        move(*there)
        self.let_go()
        self.await_mapping(program)
        program.key("Escape")
        program.await_frame()
        self.assertEqual(self.titles(program, "b.qrt"), ["Dummy"])
        # Nothing has changed, so nobody is asked.
        program.key("ctrl+q")
        self.assertEqual(program.wait_for_end(), 0)

    def test_onto_itself_and_escape(self):
        program = self.open_two()
        self.tile(program)
        there = self.middle(self.table(program, "b.qrt"))
        before = self.pick_up(program, "b.qrt")
        move(*there)
        self.let_go()
        wait_until(lambda: set(self.windows(program)) <= before, "the end of the drag")

        before = self.pick_up(program, "a.qrt", 1)
        move(*there)
        program.key("Escape")
        wait_until(lambda: set(self.windows(program)) <= before, "the end of the drag")
        self.let_go()
        program.await_frame()
        self.assertEqual(program.find_all(role="dialog"), [])
        self.assertEqual(self.titles(program, "b.qrt"), ["Dummy"])
        program.key("ctrl+q")
        self.assertEqual(program.wait_for_end(), 0)

    def test_over_a_tab(self):
        program = self.open_two()
        there = self.middle(self.table(program, "b.qrt"))
        program.find(role="page tab", name="a.qrt").click()
        program.await_window("Zelvane v2 - [a.qrt]")
        tab = self.middle(program.find(role="page tab", name="b.qrt"))
        self.pick_up(program, "a.qrt", 1)
        move(*tab)
        program.await_window("Zelvane v2 - [b.qrt]")
        move(*there)
        self.let_go()
        self.await_mapping(program)
        program.key("Return")
        program.await_window("Zelvane v2 - [b.qrt]")
        wait_until(lambda: self.titles(program, "b.qrt") == ["Dummy", "Blue"], "the entry")
        program.kill()

    def test_the_program_may_be_closed_on_the_way(self):
        program = self.open_two()
        self.pick_up(program, "b.qrt")
        program.key("alt+F4")
        self.assertEqual(program.wait_for_end(), 0)
        self.let_go()
        self.assertEqual(program.log.read_text(), "")

    # ---- between programs

    def other(self, text):
        """Another program that a text can be dragged from, at the left border; returns its window's middle."""
        source = self.folder() / "source.txt"
        source.write_bytes(text.encode())
        return self.other_with(source)

    def other_with(self, source, *how):
        self.received = self.folder() / "recu.txt"
        said = (self.folder() / "dit.txt").open("wb")
        self.said = said.name
        process = subprocess.Popen([DRAGGED, source, self.received, *how], stdout=said,
                                   env=os.environ | {"QT_QPA_PLATFORM": "xcb", "XDG_RUNTIME_DIR": str(source.parent)})
        self.addCleanup(lambda: (process.kill(), process.wait(), said.close()))
        window = wait_until(lambda: xdotool("search", "--onlyvisible", "--pid", process.pid, "--name", "glisser_essai",
                                            check=False).strip(), "the other program")
        self.window = window
        xdotool("windowmove", window, 20, 620)
        xdotool("windowraise", window)
        wait_until(lambda: self.place(window)[1] > 560, "its place")
        x, y = self.place(window)
        return x + 100, y + 75

    @staticmethod
    def place(window):
        told = dict(line.split("=") for line in xdotool("getwindowgeometry", "--shell", window).splitlines())
        return int(told["X"]), int(told["Y"])

    def drop_from(self, here, widget):
        """Drags what the other program holds at the place `here` onto a widget."""
        # A press that gives a window the keys may be lost to it.
        xdotool("windowactivate", self.window)
        self.program.await_window("glisser_essai")
        move(*here)
        xdotool("mousedown", 1)
        move(here[0] + 30, here[1])
        wait_until(lambda: self.other_said()[-1:] == ["dragging"], "the drag")
        move(*self.middle(widget))
        time.sleep(0.3)
        self.let_go()

    def other_said(self):
        with open(self.said) as said:
            return said.read().split()

    def shrink(self, program, title, x, width):
        """Gives a frame the upper part of the screen, above the other program."""
        program.await_ready()
        window = program.await_window(title)
        xdotool("windowsize", window, width, 520)
        xdotool("windowmove", window, x, 0)
        wait_until(lambda: xdotool("getwindowgeometry", "--shell", window).count(f"WIDTH={width}\n"), "the size")
        return window

    def test_a_text_of_another_program(self):
        program = self.start(self.catalogue("a.qrt", "Aja"))
        program.table()
        self.shrink(program, "Zelvane v2 - [a.qrt]", 0, 900)
        here = self.other("n'importe quoi\r\nNom\tPrix\r\nTa|kk\t7\r\nsans fin")

        def drop():
            move(*here)
            xdotool("mousedown", 1)
            move(here[0] + 30, here[1])
            wait_until(lambda: self.other_said()[-1:] == ["dragging"], "the drag")
            move(*self.middle(program.table()))
            time.sleep(0.3)
            self.let_go()

        self.until(lambda: program.find_all(role="dialog", name=MAPPING), drop)
        self.assertEqual(self.other_said()[-1], "copied")
        rows = self.await_mapping(program)
        self.assertEqual([rows.row(row) for row in range(3)],
                         [["(1)Nom", "(1)Titre"], ["(2)Prix", "(2)Artiste"], ["<vide>", "(3)Prêté"]])
        program.key("Return")
        program.await_window("Zelvane v2 - [a.qrt]")
        wait_until(lambda: self.titles(program, "a.qrt") == ["Aja", "Ta|kk"], "the entry")
        self.assertEqual(program.table().row(1), ["Ta|kk", "7", ""])
        program.kill()

    def test_a_file_becomes_the_image_of_an_entry(self):
        path = self.catalogue("a.qrt", "Aja")
        program = self.start(path)
        program.table()
        self.shrink(program, "Zelvane v2 - [a.qrt]", 0, 900)
        image = self.folder() / "pochette.png"
        subprocess.run(["convert", "-size", "60x40", "xc:red", image], check=True)
        here = self.other_with(image, "fichier")
        # A click there gives the frame the keys again.
        self.table(program, "a.qrt").cell(0, 0).click()
        program.await_frame()
        program.key("Return")
        program.await_window("Editer une entrée")
        zone = program.find(role="dialog", name="Editer une entrée").find(role="push button", name="Image")
        wait_until(lambda: self.session.colour(*self.middle(zone)) != "#FF0000", "an empty zone")

        def is_red():
            red, green, blue = bytes.fromhex(self.session.colour(*self.middle(zone))[1:])
            return red > 240 and green < 16 and blue < 16

        self.until(is_red, lambda: self.drop_from(here, zone))
        self.assertEqual(self.other_said()[-1], "copied")
        self.assertTrue(image.exists())
        self.assertEqual([found.name for found in program.home.rglob("*.jpg")], ["pochette.jpg"])
        program.kill()

    def test_a_catalogue_opens_where_it_is_dropped_on_the_empty_frame(self):
        program = self.start()
        program.await_ready()
        self.shrink(program, "Zelvane v2", 0, 900)
        here = self.other_with(self.catalogue("a.qrt", "Aja"), "fichier")
        button = program.find(role="push button", name="Ouvrir")

        self.until(lambda: program.find_all(table=True), lambda: self.drop_from(here, button))

        self.assertEqual(self.other_said()[-1], "copied")
        self.assertEqual(self.titles(program, "a.qrt"), ["Aja"])
        program.kill()

    def test_another_program_gets_the_entries_as_a_text(self):
        program = self.start(self.catalogue("a.qrt", "Été", "Blue"))
        program.table()
        self.shrink(program, "Zelvane v2 - [a.qrt]", 0, 900)
        there = self.other("")

        def drop():
            self.pick_up(program, "a.qrt")
            move(*there)
            time.sleep(0.3)
            self.let_go()

        self.until(lambda: self.received.exists() and self.received.stat().st_size, drop)
        lines = self.received.read_bytes().decode().split("\r\n")
        folder = lines[1].split("\t")[-1]
        self.assertTrue(folder.startswith(str(program.home)) and folder.endswith("/"), folder)
        self.assertEqual(lines, ["[Zelvane]", "\t".join([*TITLES, folder]), "Été\tartiste de Été\t\t", ""])
        program.kill()

    def test_from_the_program_of_another_user_folder(self):
        first = self.start(self.catalogue("a.qrt", "Aja", "Blue"))
        first.table()
        self.shrink(first, "Zelvane v2 - [a.qrt]", 0, 600)
        second = self.start(self.catalogue("b.qrt", "Dummy"))
        second.table()
        self.shrink(second, "Zelvane v2 - [b.qrt]", 640, 600)

        def drop():
            self.pick_up(first, "a.qrt", 1)
            move(*self.middle(second.table()))
            time.sleep(0.3)
            self.let_go()

        self.until(lambda: second.find_all(role="dialog", name=MAPPING), drop)
        rows = self.await_mapping(second)
        self.assertTrue(rows.row(3)[0].startswith(f"(4){first.home}/"))
        second.key("Return")
        second.await_window("Zelvane v2 - [b.qrt]")
        wait_until(lambda: self.titles(second, "b.qrt") == ["Dummy", "Blue"], "the entry")
        first.kill()
        second.kill()
