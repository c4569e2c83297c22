"""The duplicates of a category in the built program: found, deleted, saved."""
import shutil
import subprocess

from zelvane_e2e import PROGRAM, ProgramTest, wait_until, write_catalogue

LIBRARY = PROGRAM.parent.parent / "share" / "zelvane" / "plugins" / "Doublons.dll"
TITLES = ["Titre", "Artiste", "Prêté"]
ENTRIES = [["Aja", "Steely Dan", "", ""], ["Blue", "Joni Mitchell", "", ""], ["AJA", "Dan, Steely", "", ""],
           ["Blue", "Joni Mitchell", "Paul - 13/09/2005", ""], ["Aja", "Steely Dan", "", ""]]


class Duplicates(ProgramTest):

    def home(self):
        home = self.session.new_home()
        folder = home / "programme" / "plugins"
        for part in (home / "programme", folder):
            part.mkdir(mode=0o700, exist_ok=True)
        shutil.copyfile(LIBRARY, folder / LIBRARY.name)
        (folder / LIBRARY.name).chmod(0o700)
        return home

    def press(self, dialog, name):
        button = dialog.find(role="push button", name=name)
        wait_until(lambda: button.has("sensitive"), f"the button {name}")
        button.click()

    def test_what_is_too_many_is_found_deleted_and_saved(self):
        path = write_catalogue(self.folder() / "disques.qrt", TITLES, ENTRIES)
        program = self.start(path, home=self.home())
        table = program.table()
        program.menu("Plugins", "Doublons")
        program.await_window("Doublons")
        dialog = program.find(role="dialog", name="Doublons")
        dialog.find(role="radio button", name="Presque égales").click()
        self.press(dialog, "Chercher")
        dialog.find(role="label", name="Groupes : 2, entrées : 5")
        self.press(dialog, "Tout cocher sauf le premier")
        dialog.find(role="label", name="Cochées : 2 sur 5")
        self.press(dialog, "Supprimer les entrées cochées")
        question = program.find(name=lambda name: name.startswith("Supprimer les entrées cochées (2)"))
        self.assertTrue(question)
        program.key("alt+s")
        wait_until(lambda: table.row_count() == 3, "the deletion")
        dialog.find(role="label", name="Groupes : 1, entrées : 2")
        self.press(dialog, "Fermer")
        program.await_frame()
        program.key("ctrl+s")
        wait_until(lambda: b"AJA" not in path.read_bytes(), "the save")
        listed = wait_until(lambda: subprocess.run([PROGRAM.with_name("zelvane-cli"), "list", path], text=True,
                                                   stdout=subprocess.PIPE).stdout, "the list")
        self.assertEqual(listed.count("Aja"), 1)
        self.assertEqual(listed.count("Blue"), 2)
        self.assertIn("Paul - 13/09/2005", listed)
