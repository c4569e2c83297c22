"""The search in a category, made by keys and clicks."""
from zelvane_e2e import ProgramTest, wait_until, write_catalogue, xdotool

TITLES = ["Titre", "Artiste", "Genre", "Prêté"]
ENTRIES = [["Abbey Road", "Beatles", "rock", "", "pochette.jpg"], ["Dummy", "Portishead", "trip-hop", "", ""],
           ["Blue Train", "Coltrane", "jazz", "", ""], ["Kind of Blue", "Davis", "JAZZ", "", ""],
           ["Blue", "Mitchell", "folk", "", ""]]
NOTHING = "Désolé rien n'a été trouvé"


class Searching(ProgramTest):

    def open(self, home=None):
        self.path = write_catalogue(self.folder() / "disques.qrt", TITLES, ENTRIES)
        program = self.start(self.path, home=home)
        program.table()
        return program

    def dialog(self):
        return self.program.find(role="dialog", name="Recherche")

    def await_search(self):
        """The dialog has the keys, and the program knows it."""
        self.program.await_window("Recherche")
        wait_until(lambda: self.dialog().has("active"), "the search to have the keys")

    def open_search(self):
        self.program.key("ctrl+f")
        self.await_search()

    def look_for(self, text, count):
        """Searches, and waits until so many entries are told."""
        self.program.key("alt+t")
        self.program.type_lines([text])
        self.program.find(name=f"'{text}' à été trouvé {count} fois")

    def look_in_vain(self, text):
        self.program.key("alt+t")
        self.program.type_lines([text])
        self.program.find(name=NOTHING)
        self.program.key("Return")
        self.await_search()

    def found(self):
        """The rows of the results."""
        table = self.dialog().find(table=True)
        return [table.row(row) for row in range(table.row_count())]

    def await_found(self, column, values):
        wait_until(lambda: [row[column] for row in self.found()] == values, f"the results {values}")

    def change_columns(self, *keys):
        self.program.key("alt+o")
        self.program.await_window("Options de recherche")
        wait_until(lambda: self.program.find(role="dialog", name="Options de recherche").has("active"), "the chooser")
        self.program.key(*keys, "Return")
        self.await_search()

    def test_in_a_saved_category(self):
        program = self.open()
        self.open_search()
        self.assertIn(f"Recherche dans {self.path}", [frame.name for frame in program.find_all(role="panel")])

        self.look_for("BLUE", 3)
        self.assertEqual(self.found(), [entry[:4] for entry in ENTRIES[2:]])
        self.look_for("|", 5)
        self.look_for("pochette.jpg", 1)

        self.change_columns("space", "Down", "Down", "space", "Down", "space")
        self.look_in_vain("|")
        self.look_in_vain("pochette.jpg")
        self.look_in_vain("blue")
        self.look_for("davis", 1)
        self.change_columns("space", "Down", "Down", "space", "Down", "space")
        self.look_for("pochette.jpg", 1)

        self.look_for("blue", 3)
        results = self.dialog().find(table=True)
        results.click_title(1)
        self.await_found(1, ["Coltrane", "Davis", "Mitchell"])
        self.dialog().find(table=True).click_title(1)
        self.await_found(1, ["Mitchell", "Davis", "Coltrane"])

        program.key("Home", "shift+Return")
        program.await_window("(1 / 3)")
        program.find(role="dialog").find(role="label", name="Blue")
        program.key("ctrl+n")
        program.await_window("(2 / 3)")
        program.key("Escape")
        self.await_search()

        window = program.await_window("Recherche")
        self.resize(window, 900, 640)
        self.resize(window, 100, 100, smallest=(581, 246))
        program.key("Escape")
        program.await_window("Zelvane v2 - [disques.qrt]")
        self.assertEqual(program.log.read_text(), "")

    def resize(self, window, width, height, smallest=(0, 0)):
        xdotool("windowsize", window, width, height)

        def size():
            told = dict(line.split("=") for line in xdotool("getwindowgeometry", "--shell", window).splitlines())
            return int(told["WIDTH"]), int(told["HEIGHT"])

        if smallest == (0, 0):
            wait_until(lambda: size() == (width, height), "the size")
        else:
            wait_until(lambda: size()[0] < 800, "the smallest size")
            self.assertGreaterEqual(size(), smallest)
            self.assertGreaterEqual(size()[1], smallest[1])

    def test_three_results_are_edited_at_once_and_nothing_is_lost(self):
        program = self.open()
        self.open_search()
        self.look_for("blue", 3)
        program.key("Home", "shift+Down", "shift+Down", "Return")
        program.find(name="Attention, les modifications affecteront toutes les entrées sélectionnées !")
        program.key("Return")
        program.await_window("Editer de MULTIPLES entrées")
        program.key("Return", "Return")
        program.type("bleu")
        program.key("ctrl+Return")
        self.await_search()
        self.await_found(2, ["bleu", "bleu", "bleu"])
        program.key("Escape")
        program.await_window("Zelvane v2 - [disques.qrt]")
        table = program.table()
        self.assertEqual([table.row(row)[2] for row in range(5)], ["rock", "trip-hop", "bleu", "bleu", "bleu"])

        # Nobody asks about these changes, and the next start has them.
        program.key("ctrl+q")
        self.assertEqual(program.wait_for_end(), 0)
        again = self.start(home=program.home)
        again.await_window("Récupérer des catégories")

    def test_in_a_changed_category_whose_save_is_cancelled(self):
        program = self.open()
        program.key("ctrl+e")
        program.await_window("Ajouter une entrée")
        program.type("Hejira")
        program.key("ctrl+Return")
        program.find(name="6 entrée(s)")
        program.await_frame()

        self.ask_to_save_changes()
        program.key("Escape")
        self.await_search()
        self.look_in_vain("hejira")
        self.look_for("dummy", 1)
        program.key("Escape")
        program.await_window("Zelvane v2 - [disques.qrt]")

        self.ask_to_save_changes()
        program.key("Return")
        self.await_search()
        self.look_for("hejira", 1)

    def test_in_a_category_that_was_never_saved(self):
        program = self.start()
        program.key("ctrl+n")
        program.await_window("Creer une categorie")
        program.type("Titre")
        program.key("alt+c")
        program.await_window("Zelvane v2 - [Nouveau]")
        program.table()
        program.key("ctrl+e")
        program.await_window("Ajouter une entrée")
        program.type("Hejira")
        program.key("ctrl+Return")
        program.find(name="1 entrée(s)")
        program.await_frame()

        self.ask_to_save()
        program.key("Escape")
        program.find(name="Recherche annulée")
        program.key("Return")
        program.await_window("Zelvane v2 - [Nouveau]")
        program.await_frame()

        self.ask_to_save()
        path = self.folder() / "neuve.qrt"
        program.key("ctrl+a")
        program.type_lines([path])
        self.await_search()
        self.look_for("hejira", 1)
        program.key("Escape")
        program.await_window("Zelvane v2 - [neuve.qrt]")
        self.assertTrue(path.exists())

    def ask_to_save_changes(self):
        program = self.program
        program.key("ctrl+f")
        program.find(name="Pour que la recherche tienne compte des modifications effectuées, veuillez enregistrer "
                          "votre fichier.")
        program.key("Return")
        program.find(name="Voulez-vous enregistrer les changement dans cette catégorie?")

    def ask_to_save(self):
        program = self.program
        program.key("ctrl+f")
        program.find(name="Pour que la recherche fonctionne correctement, veuillez enregistrer votre fichier.")
        program.key("Return")
        program.await_window("Enregistrer La Categorie Sous")


if __name__ == "__main__":
    import zelvane_e2e
    zelvane_e2e.main()
