"""Opening a catalogue from the command line, seen from outside."""
import os
import shutil
import time
import zipfile

from zelvane_e2e import EXAMPLES, ProgramTest, read_catalogue, wait_until


class OpeningACatalogue(ProgramTest):

    def test_the_catalogue_is_shown_with_its_titles_entries_and_counts(self):
        titles, entries = read_catalogue(EXAMPLES / "discotheque.qrt")
        program = self.start(EXAMPLES / "discotheque.qrt")
        program.close_comments()

        table = program.table()

        self.assertEqual(table.titles(), titles)
        self.assertEqual(table.row_count(), len(entries))
        self.assertEqual(table.row(0), entries[0])
        self.assertEqual(table.row(len(entries) - 1), entries[-1])
        program.find(name=f"{len(entries)} entrée(s)")
        program.find(name="0 selectionnée(s)")
        [title] = program.window_titles()
        self.assertIn("Zelvane v2", title)
        self.assertIn("discotheque.qrt", title)

    def test_the_whole_command_line_is_one_path(self):
        path = self.folder() / "ma belle  collection.qrt"
        shutil.copy(EXAMPLES / "bibliotheque.qrt", path)
        program = self.start(*str(path).split(" "))
        program.close_comments()

        self.assertEqual(program.table().titles(), read_catalogue(path)[0])

    def test_a_name_that_is_no_utf8_opens_and_stays_in_the_recent_files(self):
        path = os.fsdecode(os.fsencode(self.folder()) + b"/mes \xe9t\xe9s.qrt")
        shutil.copy(EXAMPLES / "bibliotheque.qrt", path)
        program = self.start(path)
        program.close_comments()
        self.assertEqual(program.table().titles(), read_catalogue(path)[0])
        program.close()

        self.assertIn("\\xe9t\\xe9s.qrt", program.settings()["frecent1"])

    def test_a_click_selects_an_entry_and_counts_it(self):
        program = self.start(EXAMPLES / "discotheque.qrt")
        program.close_comments()

        program.table().cell(2, 0).click()

        program.find(name="1 selectionnée(s)")

    def test_the_comments_greet_until_the_user_has_read_enough_of_them(self):
        program = self.start(EXAMPLES / "discotheque.qrt")

        text = program.comments().find(role="text").text
        program.comments().find(name="Afficher les commentaires lors de l'ouverture.").click()
        program.close_comments()

        with zipfile.ZipFile(EXAMPLES / "discotheque.qrt") as archive:
            self.assertEqual(text, archive.read("Zelvane.txt").decode("cp1252").replace("\r\n", "\n"))
        self.assertEqual(program.settings()["commentatstartup"], "0")
        program.close()
        program = self.start(EXAMPLES / "discotheque.qrt", home=program.home)
        program.table()
        program.find(name="624 entrée(s)")
        self.assertEqual(program.find_all(role="dialog"), [])
        program.menu("Edition", "Commentaires")
        self.assertEqual(program.close_comments(), text)

    def test_comments_that_were_typed_are_saved_with_the_catalogue(self):
        path = self.folder() / "disques.qrt"
        shutil.copy(EXAMPLES / "discotheque.qrt", path)
        program = self.start(path)
        program.close_comments()

        program.menu("Edition", "Commentaires")
        program.comments()
        program.key("ctrl+Home")
        program.type("Lu. ")
        program.close_comments()
        program.key("ctrl+s")

        def saved():
            with zipfile.ZipFile(path) as archive:
                return archive.read("Zelvane.txt").startswith(b"Lu. ")
        wait_until(saved, "the comments in the archive")

    def test_a_damaged_file_is_told_and_the_frame_stays(self):
        path = self.folder() / "abime.qrt"
        path.write_bytes((EXAMPLES / "discotheque.qrt").read_bytes()[:5000])
        program = self.start(path)

        program.find(name="Erreur lors de l'ouverture : le fichier n'est pas un fichier qrt correcte")
        self.assertEqual(len(program.window_titles()), 2)
        program.key("Return")

        wait_until(lambda: len(program.window_titles()) == 1, "the end of the message")
        self.assertTrue(program.running)
        self.assertEqual(program.find_all(table=True), [])

    def test_a_file_that_is_not_there_is_told(self):
        program = self.start(self.folder() / "nulle-part.qrt")

        program.find(name="Erreur lors de l'ouverture : le fichier n'existe pas")

    def test_a_locked_file_asks_for_its_password(self):
        program = self.start(EXAMPLES / "protege.qrt")

        program.find(role="password text", name="Mot de passe")
        program.type("zelvane")
        program.key("Return")
        program.close_comments()

        self.assertGreater(program.table().row_count(), 0)

    def test_a_million_entries_are_shown_read_and_selected(self):
        path = self.folder() / "million.qrt"
        head = ["[FileInfo]", "Type=QRT FILE", "Version=1.4", "", "[ListView]", "GridLines=1", "Sorted=0", "SortKey=0",
                "SortOrder=0", "View=3", "", "[ColumHeaders]", "Count=2", "Colum1=Titre|4000|", "Colum2=Prêté|600|",
                "Dependant=0", "", "[ListItems]", "Count=1000000"]
        lines = (f"It{i}=Titre {i}||" for i in range(1, 1_000_001))
        path.write_bytes("\r\n".join([*head, *lines, ""]).encode("cp1252"))
        program = self.start(path)

        table = program.table()

        self.assertEqual(table.row_count(), 1_000_000)
        self.assertEqual(table.row(999_999), ["Titre 1000000", ""])
        table.cell(0, 0).click()
        program.key("ctrl+a")
        program.find(name="1000000 selectionnée(s)")
        program.key("End")
        program.find(name="1 selectionnée(s)")
        self.assertTrue(table.cell(999_999, 0).has("selected"))
        self.assertTrue(table.cell(999_999, 0).has("showing"))

        def typed():
            # Letters that come late begin another search: where the machine stands still, all is typed anew.
            program.type("titre 654321")
            time.sleep(1)
            return table.cell(654_320, 0).has("selected")
        wait_until(typed, "the entry that was typed")
