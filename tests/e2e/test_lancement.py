"""What the program's main ties together, seen from outside: the command line, the desktop, the language, dialogs."""
import os
import subprocess

from zelvane_e2e import INSTANCE, PROGRAM, ProgramTest, wait_until, write_catalogue, xdotool


class Launching(ProgramTest):

    def catalogue(self):
        """Opens without a word, and without the start-up window, which would take the keys for a moment."""
        return write_catalogue(self.folder() / "disques.qrt", ["Titre", "Prêté"], [["Aja", ""]])

    def test_a_path_below_the_current_folder_is_kept_whole_among_the_recent_files(self):
        home = self.session.new_home()
        path = write_catalogue(home / "mes disques.qrt", ["Titre", "Prêté"], [["Aja", ""]])

        program = self.start("mes", "disques.qrt", home=home)

        program.table()
        program.menu("Fichier")
        program.find(role="menu item", name=str(path))

    def test_the_desktop_knows_the_program_by_one_name_whatever_its_file_is_called(self):
        link = self.folder() / "catalogue"
        os.symlink(PROGRAM, link)

        program = self.start(executable=link)

        window = program.await_window("Zelvane v2")
        told = subprocess.run(["xprop", "-id", window, "WM_CLASS"], check=True, stdout=subprocess.PIPE, text=True)
        self.assertEqual(told.stdout, 'WM_CLASS(STRING) = "catalogue", "zelvane"\n')

    def test_the_desktop_s_token_is_handed_to_the_instance_that_comes_to_the_front(self):
        home = self.session.new_home()
        runtime = home / "runtime"
        runtime.mkdir(mode=0o700)
        first = subprocess.Popen([INSTANCE, str(home), ""], stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True,
                                 env=os.environ | {"XDG_RUNTIME_DIR": str(runtime)})
        self.addCleanup(first.wait)
        self.addCleanup(first.kill)
        self.assertEqual(first.stdout.readline(), "premier\n")

        later = self.start(home=home, environment={"DESKTOP_STARTUP_ID": "bureau-1_TIME0"})

        self.assertEqual(later.wait_for_end(), 0)
        said, _ = first.communicate()
        self.assertIn("montre bureau-1_TIME0\n", said)

    def test_addresses_are_opened_by_the_desktop(self):
        home = self.session.new_home()
        opened = home / "adresse"
        opener = home / "xdg-open"
        opener.write_text(f'#!/bin/sh\nprintf %s "$1" > "{opened}.tmp"\nmv "{opened}.tmp" "{opened}"\n')
        opener.chmod(0o755)
        program = self.start(self.catalogue(), home=home, environment={"PATH": f"{home}:{os.environ['PATH']}"})
        program.table()

        program.menu("Aide", "Zelvane sur le Web")

        wait_until(opened.exists, "the address")
        self.assertTrue(opened.read_text().startswith("https://"))

    def test_numbers_are_written_in_french(self):
        entries = [[f"disque {number}", ""] for number in range(1200)]
        path = write_catalogue(self.folder() / "disques.qrt", ["Titre", "Prêté"], entries)
        program = self.start(path)
        table = program.table()
        table.click_title(0)
        wait_until(lambda: table.cell(0, 0).name == "disque 999", "the order")
        program.close()

        again = self.start(home=program.home)

        self.assertEqual(again.find(role="tree").row(0)[3], "1\u202f200")

    def test_a_dialog_that_is_larger_than_the_screen_is_made_smaller(self):
        program = self.start(self.catalogue(), environment={"QT_SCALE_FACTOR": "2"})
        program.table()

        program.key("ctrl+o")

        window = program.await_window("Ouvrir une Categorie")
        told = xdotool("getwindowgeometry", "--shell", window)
        size = dict(line.split("=") for line in told.splitlines())
        self.assertLess(int(size["WIDTH"]), 1280)
        self.assertLess(int(size["HEIGHT"]), 800)
