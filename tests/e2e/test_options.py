"""Settings and the language, changed by keys, hold while the program runs and at its next start."""
from zelvane_e2e import ProgramTest, wait_until, write_catalogue


class Settings(ProgramTest):

    def catalogue(self):
        """Opens without a word, and without the start-up window."""
        return write_catalogue(self.folder() / "disques.qrt", ["Titre", "Prêté"], [["Aja", ""], ["Blue", ""]])

    def test_settings_that_keys_change_are_kept(self):
        path, home = self.catalogue(), self.session.new_home()
        other = self.folder() / "provisoire"
        other.mkdir()
        program = self.start(path, home=home)
        program.table()

        program.menu("Options", "Configuration")
        dialog = program.find(role="dialog", name="Options")
        program.key("alt+o")
        program.key("ctrl+Tab", "ctrl+Tab")
        field = program.find(role="text", name="Répertoire temporaire", inside=dialog)
        field.click()
        program.key("ctrl+a")
        program.type(str(other))
        program.key("Return")
        wait_until(lambda: not program.find_all(role="dialog"), "the end of the dialog")
        program.await_frame()
        program.key("ctrl+q")
        self.assertEqual(program.wait_for_end(), 0)
        self.assertEqual(program.settings()["openlastfile"], "1")

        program = self.start(path, home=home)
        program.table()
        wait_until(lambda: any(other.glob("cat*")), "the document's folder in the other temporary folder")
        program.menu("Options", "Configuration")
        dialog = program.find(role="dialog", name="Options")
        box = program.find(role="check box", name="Ouvrir le dernier fichier vu, au démarrage", inside=dialog)
        self.assertTrue(box.has("checked"))
        program.key("ctrl+Tab", "ctrl+Tab")
        self.assertEqual(program.find(role="text", name="Répertoire temporaire", inside=dialog).text, str(other))
        program.key("Escape")

    def test_a_language_is_tried_chosen_and_kept(self):
        path, home = self.catalogue(), self.session.new_home()
        languages = home / "programme" / "lang"
        languages.mkdir(parents=True)
        (languages / "english.ini").write_bytes(
            b"[frmLang]\r\nCaption=Change Language\r\n[Form1]\r\nmOptions_C=&Settings\r\nmLangue_C=Language\r\n"
            b"[other]\r\nmsg94=%1 entries\r\n")
        program = self.start(path, home=home)
        program.table()

        program.menu("Options", "Langue")
        program.find(role="dialog", name="Change Langue")
        self.choose_english(program)
        program.find(role="dialog", name="Change Language")
        program.key("Escape")
        wait_until(lambda: not program.find_all(role="dialog"), "the end of the dialog")
        program.await_frame()
        program.menu("Options", "Langue")
        program.find(role="dialog", name="Change Langue")
        self.choose_english(program)
        program.find(role="dialog", name="Change Language")
        program.key("Return")
        program.find(name="2 entries")
        program.await_frame()
        program.key("ctrl+q")
        self.assertEqual(program.wait_for_end(), 0)

        program = self.start(path, home=home)
        program.table()
        program.find(name="2 entries")
        program.menu("Settings", "Language")
        program.find(role="dialog", name="Change Language")
        program.key("Escape")

    def choose_english(self, program):
        """The template stands in the list, too, once a message was looked up."""
        languages = program.find(role="list", inside=program.find(role="dialog", name="Change Langue"))
        row = next(row for row in range(languages.row_count()) if languages.cell(row, 0).name == "english")
        languages.cell(row, 0).click()
