"""Plug-ins in the built program: in the menu, in the dialogs, and one that hangs or crashes."""
import os
import pathlib
import shutil
import signal

from zelvane_e2e import ProgramTest, wait_until, write_catalogue

LIBRARIES = pathlib.Path(os.environ["ZELVANE_E2E_PLUGINS"])
TITLES = ["Titre", "Artiste", "Prêté"]
ENTRIES = [["Aja", "Steely Dan", "", ""], ["Blue", "Joni Mitchell", "", ""]]


class Plugins(ProgramTest):

    def home_with(self, *names):
        home = self.session.new_home()
        folder = home / "programme" / "plugins"
        for part in (home / "programme", folder):
            part.mkdir(mode=0o700, exist_ok=True)
        for name in names:
            shutil.copyfile(LIBRARIES / f"{name}.dll", folder / f"{name}.dll")
            (folder / f"{name}.dll").chmod(0o700)
        return home

    def catalogue(self):
        return write_catalogue(self.folder() / "disques.qrt", TITLES, ENTRIES)

    def test_a_command_works_on_the_document(self):
        program = self.start(self.catalogue(), home=self.home_with("autre1", "fichiers"))
        table = program.table()
        program.menu("Plugins", "autre1")
        wait_until(lambda: table.row_count() == 3, "the entry that the plug-in adds")
        self.assertIn("venu¦de loin", [table.row(i)[0] for i in range(3)])

    def test_all_of_them_are_in_a_window_of_their_own(self):
        program = self.start(self.catalogue(), home=self.home_with(*[f"autre{i}" for i in range(1, 10)]))
        table = program.table()
        program.menu("Plugins", "Plus de plugins")
        program.await_window("Zelvane - Plugins")
        dialog = program.find(role="dialog", name="Zelvane - Plugins")
        program.key("End")
        dialog.find(role="label", name=lambda name: name.startswith("autre9"))
        program.key("Return")
        wait_until(lambda: table.row_count() == 3, "the entry that the plug-in adds")

    def change(self, home):
        """Opens a catalogue and leaves it with a change that a rescue copy holds."""
        program = self.start(self.catalogue(), home=home)
        table = program.table()
        before = table.row(0)
        table.click_title(1)
        wait_until(lambda: table.row(0) != before, "the new order")
        return program

    def comes_back(self, home):
        """The next start offers the document with its change."""
        program = self.start(write_catalogue(self.folder() / "autre.qrt", TITLES, ENTRIES), home=home)
        program.find(role="push button", name="Ouvrir")
        self.assertEqual(program.find(role="tree").row(0)[0], "disques.qrt")

    def test_a_library_that_hangs_ends_the_program_and_loses_nothing(self):
        home = self.home_with()
        program = self.change(home)
        library = home / "programme" / "plugins" / "pend.dll"
        shutil.copyfile(LIBRARIES / "pend.dll", library)
        library.chmod(0o700)
        other = write_catalogue(self.folder() / "livres.qrt", TITLES, ENTRIES)
        self.start(other, home=home)  # which hands it over
        self.assertEqual(program.wait_for_end(), 1)
        self.assertIn("pend.dll ne répond pas", program.log.read_text())
        library.unlink()
        self.comes_back(home)

    def test_a_crash_of_a_plugin_leaves_the_rescue_copy(self):
        home = self.home_with("plante")
        program = self.change(home)
        wait_until(lambda: any(b"\r\nTexte=1\r\n" in path.read_bytes()
                               for path in (home / "programme" / "temp").glob("*.secours")), "the rescue copy")
        program.menu("Plugins", "plante")
        self.assertEqual(program.wait_for_end(), -signal.SIGSEGV)
        self.comes_back(home)
