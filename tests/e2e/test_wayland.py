"""The program on Wayland, by Qt's native way there: start, second start, edit, column, save, rescue."""
from zelvane_e2e import ProgramTest, WaylandSession, drag, read_catalogue, wait_until, write_catalogue


class OnWayland(ProgramTest):

    kind = WaylandSession

    def catalogue(self, name, *titles):
        return write_catalogue(self.folder() / name, ["Titre", "Prêté"], [[title, ""] for title in titles])

    def tabs(self):
        return [tab.name for tab in self.program.find_all(role="page tab")]

    def rows(self):
        table = self.program.table()
        return [table.row(row)[0] for row in range(table.row_count())]

    def width(self, column):
        return self.program.table().title_area(column)[2]

    def saved_width(self, path):
        return int(path.read_bytes().split(b"Colum1=Titre|")[1].split(b"|")[0])

    def test_it_is_no_client_of_an_x_server(self):
        program = self.start(self.catalogue("disques.qrt", "Aja"))
        program.table()
        self.assertEqual(program.window_titles(), [])

    def test_a_second_start_opens_its_file_in_the_first(self):
        program = self.start(self.catalogue("disques.qrt", "Aja"))
        wait_until(lambda: self.tabs() == ["disques.qrt"], "the first file")

        second = self.start(self.catalogue("livres.qrt", "Nana"), home=program.home)

        self.assertEqual(second.wait_for_end(), 0)
        self.program = program
        wait_until(lambda: self.tabs() == ["disques.qrt", "livres.qrt"], "the second file")

    def test_an_entry_is_edited_a_column_is_drawn_wider_and_both_are_saved(self):
        path = self.catalogue("disques.qrt", "Aja", "Blue")
        program = self.start(path)
        table = program.table()
        table.cell(1, 0).click()
        program.find(name="1 selectionnée(s)")

        program.key("Return")
        program.find(role="dialog", name="Editer une entrée")
        program.key("ctrl+a")
        program.type("Kind of Blue")
        program.key("ctrl+Return")
        wait_until(lambda: self.rows() == ["Aja", "Kind of Blue"], "the new title")

        before = self.saved_width(path)
        x, y, width, height = table.title_area(0)
        drag(x + width - 1, y + height // 2, x + width + 119, y + height // 2)
        wait_until(lambda: self.width(0) == width + 120, "the wider column")
        program.key("ctrl+s")
        wait_until(lambda: self.saved_width(path) > before, "the width in the file")
        self.assertEqual([entry[0] for entry in read_catalogue(path)[1]], ["Aja", "Kind of Blue"])

    def test_what_was_not_saved_comes_back_after_a_kill(self):
        program = self.start(self.catalogue("disques.qrt", "Abacab", "Aja"))
        program.table().click_title(0)
        wait_until(lambda: self.rows() == ["Aja", "Abacab"], "the order")
        temporary = program.home / "programme" / "temp"
        wait_until(lambda: any(b"\r\nTexte=1\r\n" in copy.read_bytes() for copy in temporary.glob("*.secours")),
                   "the rescue copy")
        program.kill()

        program = self.start(home=program.home)
        program.find(role="push button", name="Ouvrir")
        program.key("Return")
        wait_until(lambda: program.find_all(table=True) and self.rows() == ["Aja", "Abacab"], "the order again")
