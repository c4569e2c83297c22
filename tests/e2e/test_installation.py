"""What "cmake --install" makes is complete and can be used where it lands."""
import os
import pathlib
import subprocess
import tempfile
import unittest

SOURCES = pathlib.Path(os.environ["ZELVANE_E2E_SOURCES"])
BUILD = pathlib.Path(os.environ["ZELVANE_E2E_PROGRAM"]).parent.parent


class AnInstallation(unittest.TestCase):

    @classmethod
    def setUpClass(cls):
        cls._folder = tempfile.TemporaryDirectory(prefix="zelvane-e2e-")
        cls.addClassCleanup(cls._folder.cleanup)
        cls.prefix = pathlib.Path(cls._folder.name) / "usr"
        subprocess.run(["cmake", "--install", BUILD, "--prefix", cls.prefix], check=True, stdout=subprocess.DEVNULL)

    def test_the_tool_runs_from_there(self):
        done = subprocess.run([self.prefix / "bin/zelvane-cli", "type", SOURCES / "examples/bibliotheque.qrt"],
                              check=True, capture_output=True, text=True, env={"HOME": self._folder.name, "PATH": "/nowhere"})

        self.assertEqual(done.stdout, "2\n")

    def test_the_mime_type_is_well_formed_and_the_one_that_the_desktop_entry_opens(self):
        subprocess.run(["xmllint", "--noout", self.prefix / "share/mime/packages/zelvane.xml"], check=True)
        kind = subprocess.run(["xmllint", "--xpath", "string(//*[local-name()='mime-type']/@type)",
                               self.prefix / "share/mime/packages/zelvane.xml"], check=True, capture_output=True, text=True)
        entry = (self.prefix / "share/applications/zelvane.desktop").read_text(encoding="utf-8").splitlines()

        self.assertIn(f"MimeType={kind.stdout.strip()};", entry)
        self.assertIn('Exec="zelvane" %f', entry)

    def test_desktops_and_software_centres_accept_the_entries(self):
        subprocess.run(["desktop-file-validate", self.prefix / "share/applications/zelvane.desktop"], check=True)
        subprocess.run(["appstreamcli", "validate", "--no-net", self.prefix / "share/metainfo/zelvane.metainfo.xml"],
                       check=True, stdout=subprocess.DEVNULL)

    def test_the_icons_have_the_names_that_desktops_look_for(self):
        icons = self.prefix / "share/icons/hicolor/scalable"

        self.assertTrue((icons / "apps/zelvane.svg").is_file())
        self.assertTrue((icons / "mimetypes/application-x-zelvane-qrt.svg").is_file())

    def test_what_the_program_s_folder_holds_for_everybody_is_there(self):
        self.assertEqual((self.prefix / "share/zelvane/astuces.txt").read_bytes(),
                         (SOURCES / "data/astuces.txt").read_bytes())
        self.assertEqual((self.prefix / "share/zelvane/AideQrt/aideZelvane.html").read_bytes(),
                         (SOURCES / "data/AideQrt/aideZelvane.html").read_bytes())

    def test_all_languages_and_all_pages_of_the_help_are_there_as_they_are_in_the_sources(self):
        for folder in ("lang", "AideQrt"):
            expected = self._files(SOURCES / "data" / folder)
            expected.pop("default.ini", None)  # the program's own, made where it runs

            self.assertGreater(len(expected), 2)
            self.assertEqual(self._files(self.prefix / "share/zelvane" / folder), expected)

    def test_the_plug_ins_lie_with_the_libraries_and_the_program_s_folder_leads_there(self):
        folder = self.prefix / "share/zelvane/plugins"

        self.assertTrue(folder.is_symlink())
        self.assertFalse(os.path.isabs(os.readlink(folder)), "the tree could not be moved")
        self.assertEqual(sorted(library.name for library in folder.iterdir()),
                         ["Doublons.dll", "ExporterJson.dll", "ExporterOds.dll", "ImporterCsv.dll"])
        for library in folder.iterdir():
            self.assertEqual(library.stat().st_mode & 0o022, 0, "the program would not load it")
        self.assertFalse(folder.resolve().is_relative_to(self.prefix / "share"), "machine code lies below share")

    @staticmethod
    def _files(folder):
        return {str(path.relative_to(folder)): path.read_bytes() for path in folder.rglob("*") if path.is_file()}

    def test_the_document_icon_has_all_sizes(self):
        sizes = subprocess.run(["identify", "-format", "%w %m\n", self.prefix / "share/zelvane/IcoFile.ico"], check=True,
                               capture_output=True, text=True).stdout.split("\n")[:-1]

        self.assertEqual([int(size.split()[0]) for size in sizes], [16, 24, 32, 48, 64, 128, 256])
