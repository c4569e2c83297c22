"""A picture that another program has copied becomes the image of an entry, and is saved with the category."""
import subprocess
import zipfile

from zelvane_e2e import ProgramTest, wait_until


class PastingPictures(ProgramTest):

    def test_a_picture_of_the_clipboard(self):
        program = self.start()
        program.key("ctrl+n")
        program.await_window("Creer une categorie")
        program.type("Titre")
        program.key("alt+c")
        program.await_window("Zelvane v2 - [Nouveau]")
        program.key("ctrl+e")
        program.await_window("Ajouter une entrée")
        zone = program.find(role="dialog", name="Ajouter une entrée").find(role="push button", name="Image")
        program.type("Aja")
        picture = subprocess.run(["convert", "-size", "60x40", "xc:red", "png:-"], check=True,
                                 stdout=subprocess.PIPE).stdout
        subprocess.run(["xclip", "-i", "-selection", "clipboard", "-t", "image/png"], input=picture, check=True,
                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        program.key("Tab", "Tab", "Tab")
        wait_until(lambda: zone.has("focused"), "the image to have the keys")
        program.key("ctrl+v")
        x, y, width, height = zone.area()

        def is_red():
            red, green, blue = bytes.fromhex(self.session.colour(x + width // 2, y + height // 2)[1:])
            return red > 240 and green < 16 and blue < 16

        wait_until(is_red, "the picture in the zone")
        program.key("alt+a")
        program.await_window("Zelvane v2 - [Nouveau]")
        path = self.folder() / "disques.qrt"
        program.key("ctrl+s")
        program.await_window("Enregistrer La Categorie Sous")
        program.key("ctrl+a")
        program.type_lines([path])
        program.await_window("Zelvane v2 - [disques.qrt]")
        with zipfile.ZipFile(path) as archive:
            self.assertTrue(archive.read("image.jpg").startswith(b"\xff\xd8\xff"))
            self.assertIn(b"|image.jpg", archive.read("Zelvane.qrt"))
        program.kill()
