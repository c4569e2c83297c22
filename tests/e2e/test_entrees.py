"""A collection from its first column to its last save, made by the interface alone."""
import subprocess
import zipfile

from zelvane_e2e import ProgramTest, read_catalogue, wait_until

TITLES = ["Titre", "Artiste", "Label", "Date", "Pistes", "Coffret"]
GIVEN_LATER = "autre label"


def entry(number):
    """What is typed for an entry, from 1. Every fifth comes from the same box."""
    return [f"disque {number:02}", f"artiste {number % 3}", "", f"{1960 + number}", f"{number % 9 + 1}",
            f"coffret {number % 5}"]


def pictures(path):
    """The images in a catalogue file, by their names."""
    with zipfile.ZipFile(path) as archive:
        return {name: archive.read(name) for name in archive.namelist() if name.endswith(".bmp")}


def pictures_of_entries(path):
    """The name of the image of each entry that has one, by the entry's title."""
    with zipfile.ZipFile(path) as archive:
        lines = archive.read("Zelvane.qrt").decode("cp1252").split("\r\n[ListItems]\r\n")[1].splitlines()
    fields = [line.partition("=")[2].split("|") for line in lines if line.startswith("It")]
    return {values[0]: values[-1] for values in fields if values[-1]}


class ACollectionMadeByTheInterfaceAlone(ProgramTest):

    def test_from_the_first_column_to_the_last_save(self):
        program = self.start()
        self.make_the_category()
        entries = [entry(number) for number in range(1, 31)]
        self.type_the_entries(entries)
        path = self.folder() / "disques.qrt"
        self.save_as(path, "ctrl+s")
        self.assert_saved(path, entries)

        red, blue, lime = (self.image(colour) for colour in ("red", "blue", "lime"))
        self.add_replace_and_rename_images(red, blue, lime)
        self.edit_many(entries[6:12])
        program.key("ctrl+s")
        wait_until(lambda: pictures(path), "the images in the file")
        self.assert_saved(path, entries)
        self.assertEqual(pictures(path), {"pochette.bmp": lime.read_bytes(), "0pochette.bmp": blue.read_bytes()})
        self.assertEqual(pictures_of_entries(path), {
            "disque 01": "pochette.bmp", "disque 02": "0pochette.bmp", "disque 07": "pochette.bmp"})

        before = path.read_bytes()
        self.delete_a_box(entries)
        other = self.folder() / "autres disques.qrt"
        self.save_as(other, "ctrl+shift+s")
        self.assertEqual(path.read_bytes(), before)
        self.assert_saved(other, entries)
        self.assertEqual(pictures(other), {"pochette.bmp": lime.read_bytes()})
        self.assertEqual(pictures_of_entries(other), {"disque 01": "pochette.bmp"})
        program.key("ctrl+q")
        self.assertEqual(program.wait_for_end(), 0)
        self.assertEqual(program.log.read_text(), "")

        self.look_at(other, entries)

    # ---- steps

    def make_the_category(self):
        program = self.program
        program.key("ctrl+n")
        program.await_window("Creer une categorie")
        program.type_lines(TITLES[:-1])
        program.type(TITLES[-1])
        program.key("alt+d")
        box = program.find(role="dialog").find(role="combo box")
        wait_until(lambda: box.has("enabled"), "the list of the columns")
        program.key("Tab", "End", "alt+c")
        program.await_window("Zelvane v2 - [Nouveau]")
        self.assertEqual(program.table().titles(), [*TITLES, "Prêté"])

    def type_the_entries(self, entries):
        """Adds entries by the keyboard alone."""
        program = self.program
        for values in entries:
            program.key("ctrl+e")
            program.await_window("Ajouter une entrée")
            program.type_lines(values[:-1])
            program.type(values[-1])
            program.key("ctrl+Return")
            program.await_window("Zelvane v2 - [Nouveau]")
            values.append("")
        program.find(name="30 entrée(s)")
        self.assert_shown(entries)

    def image(self, colour):
        """A picture of one colour. All have the same name, each in a folder of its own."""
        path = self.folder() / "pochette.bmp"
        subprocess.run(["convert", "-size", "300x200", f"xc:{colour}", "-type", "TrueColor", f"BMP3:{path}"], check=True)
        return path

    def add_replace_and_rename_images(self, first, renamed, replacing):
        program = self.program
        self.add_image(0, first)
        self.update("#FF0000")

        self.add_image(1, renamed)
        program.await_window("Remplacer une image")
        program.find(role="push button", name="Non").click()
        program.find(name="Voulez vous que l'image a ajouter soit renomée?")
        program.key("Return")
        self.update("#0000FF")

        self.add_image(6, replacing)
        program.await_window("Remplacer une image")
        program.find(role="push button", name="Oui").click()
        self.update("#00FF00")

    def add_image(self, row, path):
        """Has a file added in the chooser of images, which the editor opens."""
        program = self.program
        self.go_to(row, "Return")
        program.await_window("Editer une entrée")
        self.picture_in("Editer une entrée").click()
        program.await_window("Choix de l'image")
        program.key("alt+j")
        program.await_window("Ajouter une image")
        self.type_path(path)

    def update(self, colour):
        """Closes the editor, which shows an image of a colour."""
        program = self.program
        program.await_window("Editer une entrée")
        self.assert_picture("Editer une entrée", colour)
        program.key("alt+m")
        program.await_window("Zelvane v2 - [disques.qrt]")

    def edit_many(self, entries):
        """Gives six entries from the seventh on a label."""
        program = self.program
        self.go_to(6, *["shift+Down"] * 5)
        program.find(name="6 selectionnée(s)")
        program.key("Return")
        program.find(name="Attention, les modifications affecteront toutes les entrées sélectionnées !")
        program.key("Return")
        program.await_window("Editer de MULTIPLES entrées")
        program.key("Return", "Return")
        program.type(GIVEN_LATER)
        program.key("ctrl+Return")
        program.await_window("Zelvane v2 - [disques.qrt]")
        for values in entries:
            values[2] = GIVEN_LATER

    def delete_a_box(self, entries):
        """Deletes the second entry with what depends on it, but for one; of two images one goes too."""
        program = self.program
        self.go_to(1, "Delete")
        program.await_window("Supprimer de multiples entrées")
        program.find(name="1 / 1")
        program.key("alt+p")
        program.find(name="6 / 6")
        program.find(role="dialog").find(table=True).cell(2, 0).click()
        program.key("space")
        program.find(name="5 / 6")
        program.key("alt+s")
        for colour, answer in [("#0000FF", "Oui"), ("#00FF00", "Non")]:
            program.await_window("Suppression d'une image")
            self.assert_picture("Suppression d'une image", colour)
            program.find(role="push button", name=answer).click()
        program.await_window("Zelvane v2 - [disques.qrt]")
        for number in (27, 22, 17, 7, 2):
            del entries[number - 1]
        program.find(name="25 entrée(s)")
        self.assert_shown(entries)

    def look_at(self, path, entries):
        """Opens the file anew, and looks at its first two entries."""
        program = self.start(path)
        program.await_window(f"Zelvane v2 - [{path.name}]")
        program.find(name="25 entrée(s)")
        self.assert_shown(entries)
        program.key("Home", "shift+Return")
        program.await_window("(1 / 25)")
        viewer = program.find(role="dialog")
        viewer.find(role="label", name="disque 01")
        self.assertTrue(viewer.find(role="text").text.startswith("<Artiste>\nartiste 1\n\n<Label>\n\n\n<Date>\n1961\n\n"))
        self.assert_picture("(1 / 25)", "#00FF00")
        program.key("ctrl+n")
        program.await_window("(2 / 25)")
        program.find(role="dialog").find(role="label", name="disque 03")
        self.assert_picture("(2 / 25)", None)
        program.key("Escape")
        program.await_window(f"Zelvane v2 - [{path.name}]")
        self.assertEqual(program.log.read_text(), "")

    # ---- what the steps share

    def go_to(self, row, *keys):
        """Selects an entry by its row, from 0, and presses more keys."""
        self.program.key("Home", *["Down"] * row, *keys)

    def save_as(self, path, key):
        program = self.program
        program.key(key)
        program.await_window("Enregistrer La Categorie Sous")
        self.type_path(path)
        program.await_window(f"Zelvane v2 - [{path.name}]")

    def type_path(self, path):
        self.program.key("ctrl+a")
        self.program.type_lines([path])

    def picture_in(self, dialog):
        """The picture in a dialog, "Image", "Image de l'entrée" ...: a button where it can be pressed."""
        return self.program.find(role="dialog", name=dialog).find(
            role=lambda role: role in ("push button", "image"), name=lambda name: "Image" in name)

    def assert_picture(self, dialog, colour):
        """A dialog shows a picture of a colour; without one, of the colour that is around it."""
        def shows():
            x, y, width, height = self.picture_in(dialog).area()
            return self.session.colour(x + width // 2, y + height // 2) == (colour or self.session.colour(x - 4, y))
        wait_until(shows, f"{colour or 'nothing'} in '{dialog}'")

    def assert_shown(self, entries):
        table = self.program.table()
        self.assertEqual([table.row(row) for row in range(table.row_count())], entries)

    def assert_saved(self, path, entries):
        """The file is a sound archive of the entries, and knows the column that they depend on."""
        self.assertEqual(read_catalogue(path), ([*TITLES, "Prêté"], entries))
        with zipfile.ZipFile(path) as archive:
            self.assertIsNone(archive.testzip())
            self.assertIn(b"\r\nDependant=6\r\n", archive.read("Zelvane.qrt"))
