"""What a screen reader is told, and what the keys reach: every window that a document's menus open, in every language."""
import shutil

from zelvane_e2e import SOURCES, ProgramTest, wait_until, write_catalogue

LANGUAGES = SOURCES / "data" / "lang"

#: Menus and their items by the names under which languages know them, with what they are called in French. Each item opens
#: one window at once, on a document in which an entry is selected.
FRENCH_MENUS = {"mFichier": "Fichier", "mEdition": "Edition", "mOutils": "Outils", "mPret": "Prêt", "mOptions": "Options",
                "mAide": "Aide"}
WINDOWS = [
    ("mFichier", "mImprimer", "Imprimer"),
    ("mEdition", "mEntree", "Ajouter une entrée"),
    ("mEdition", "mModifierEnree", "Editer l'entrée"),
    ("mEdition", "mSupprimerEntree", "Supprimer l'entrée"),
    ("mEdition", "mVoir", "Voir l'entrée"),
    ("mEdition", "mRechercher", "Rechercher"),
    ("mEdition", "mModifierCategorie", "Editer la catégorie"),
    ("mEdition", "mModifierCommentaires", "Commentaires"),
    ("mEdition", "mTxtPreEnregistre", "Textes pré-enregistrés"),
    ("mOutils", "mFusionner2Colonnes", "Fusionner 2 colonnes"),
    ("mOutils", "mSeparer1ColonneEn2", "Séparer 1 colonne en 2"),
    ("mOutils", "mComparer2Categories", "Comparer 2 catégories"),
    ("mOutils", "mStatistiques", "Statistiques"),
    ("mPret", "mMarquerCommePrete", "Marquer comme Prêté"),
    ("mPret", "mOrganiserSesContacts", "Organiser ses contacts"),
    ("mOptions", "mConfiguration", "Configuration"),
    ("mOptions", "mLangue", "Langue"),
    ("mAide", "mAPropos", "A Propos"),
]

#: What the user acts on.
CONTROLS = {"push button", "toggle button", "check box", "radio button", "text", "password text", "combo box", "spin button",
            "list", "tree", "table", "tree table", "slider", "page tab list", "link"}
#: Roles that say nothing.
NO_ROLES = {"unknown", "invalid", ""}
#: Roles of windows, which only a window and the document in the frame have.
WINDOWS_ROLES = {"frame", "dialog", "alert"}


def captions(language):
    """The captions of a document's menus in a language, without their mnemonics."""
    if language is None:
        return {**FRENCH_MENUS, **{item: caption for _, item, caption in WINDOWS}}
    text = (LANGUAGES / f"{language}.ini").read_text("cp1252")
    section = text.split("[Form1]\n")[1].split("\n[")[0]
    pairs = (line.partition("=") for line in section.splitlines())
    return {name.removesuffix("_C"): value.replace("&", "") for name, _, value in pairs if name.endswith("_C")}


class ScreenReadersAndKeys(ProgramTest):

    def open_document(self, language):
        path = write_catalogue(self.folder() / "disques.qrt", ["Titre", "Artiste", "Prêté"],
                               [["Aja", "Steely Dan", ""], ["Blue", "Joni Mitchell", ""]])
        home = self.session.new_home()
        (home / "programme").mkdir()
        shutil.copytree(LANGUAGES, home / "programme" / "lang")
        settings = home / "config" / "zelvane" / "zelvane.ini"
        settings.parent.mkdir(parents=True)
        settings.write_text(f"[Options]\nqrtlangue={language or 'default'}\n")
        program = self.start(path, home=home)
        program.table().cell(0, 0).click()
        return program

    def windows(self):
        """The program's windows but for its frame."""
        root = self.program._root()
        return [window for window in (root.children() if root else []) if window.role != "frame" and window.has("showing")
                or window.role == "frame" and not window.name.startswith("Zelvane v2")]

    def open_window(self, menu, item):
        for name in (menu, item):
            self.program.find(role="menu item", name=name).click()
        wait_until(lambda: [window for window in self.windows() if window.has("active")], f"the window of '{item}'")
        return self.windows()[-1]

    def leave(self, window):
        """Escape leaves each. The one that follows, if there is one: a message comes before some."""
        name = window.name
        self.program.key("Escape")
        wait_until(lambda: all(other.name != name for other in self.windows()), f"the end of the window '{name}'")
        wait_until(lambda: self.program._frame_has_the_keys() or any(other.has("active") for other in self.windows()),
                   "who has the keys")
        return next(iter(self.windows()), None)

    def controls(self, window):
        """The widgets of a window that keys can go to, and the faults of all: a fault is one line for whoever mends it."""
        controls, faults = [], []
        for widget in self.program.find_all(inside=window):
            role, name = widget.role, widget.name
            if role in NO_ROLES and widget.has("focusable"):
                faults.append(f"no role: '{name}'")
            if role in WINDOWS_ROLES and widget._accessible != window._accessible and not self.is_document(widget):
                faults.append(f"the role of a window: '{name}', a {role} at {widget.area()}")
            if not widget.has("focusable") or role not in CONTROLS or not widget.has("enabled"):
                continue
            controls.append(widget)
            if not name:
                faults.append(f"no name: a {role} at {widget.area()}")
        return controls, faults

    def is_document(self, widget):
        """A document has a window of its own in the frame, which ends with a status line."""
        return bool(self.program.find_all(role="status bar", inside=widget))

    def mnemonics(self, window):
        """Two controls that show and answer to one key. Those of a group without a key of their own are told with the group's:
        that leads to the first of them."""
        keys, faults = {}, []
        for widget in self.program.find_all(inside=window):
            try:
                action = widget._accessible.queryAction()
            except NotImplementedError:
                continue
            found = {action.getKeyBinding(i).lower() for i in range(action.nActions)} - {""}
            for key in found:
                group = widget._accessible.parent
                other, its_group = keys.setdefault(key, (widget, group))
                if other is not widget and key.startswith("alt+") and not (group.getRoleName() == "panel" and group == its_group):
                    faults.append(f"{key}: '{other.name}' and '{widget.name}'")
        return faults

    def focused(self, window):
        """The control of a window that has the keys, as its role, name and place."""
        for widget in self.program.find_all(inside=window):
            if widget.has("focused") and widget.role in CONTROLS:
                return widget.role, widget.name, widget.area()
        return None

    def unreached(self, window, controls):
        """The controls that Tab does not come by on its way round. Of radio buttons it comes by the one that is checked; a
        list to choose from and its field are one."""
        wanted = {(widget.role, widget.name, widget.area()) for widget in controls
                  if (widget.role != "radio button" or widget.has("checked"))
                  and widget._accessible.parent.getRoleName() not in ("combo box", "spin button")}
        reached = set()
        for _ in range(2 * len(wanted) + 2):
            before = self.focused(window)
            reached.add(before)
            if wanted <= reached:
                return []
            self.program.key("Tab")
            wait_until(lambda: self.focused(window) not in (before, None), f"the focus to leave {before}")
        return sorted(f"not reached by Tab: {control}" for control in wanted - reached)

    def check(self, language, walk=False):
        program, names = self.open_document(language), captions(language)
        faults = {}
        for menu, item, french in WINDOWS:
            window = self.open_window(names[menu], names[item])
            while window:
                controls, found = self.controls(window)
                self.assertTrue(controls, french)
                faults[window.name] = found + self.mnemonics(window) + (self.unreached(window, controls) if walk else [])
                window = self.leave(window)
        controls, faults["frame"] = self.controls(program.find(role="frame"))
        faults["empty frame"] = self.empty_frame(walk)
        self.assertEqual({window: found for window, found in faults.items() if found}, {})

    def empty_frame(self, walk):
        """The faults of the frame once its document is closed, with what it offers then."""
        program = self.program
        program.key("ctrl+w")
        recents = program.find(role="list")
        frame = program.find(role="frame")
        found = self.controls(frame)[1] + self.mnemonics(frame)
        panel = program.find_all(role=lambda role: role in ("push button", "list"), inside=recents.above())
        self.assertGreater(len(panel), 3)
        return found + (self.unreached(frame, panel) if walk else [])

    def test_in_french_where_tab_goes_round(self):
        self.check(None, walk=True)

    def test_in_english(self):
        self.check("english")

    def test_in_german(self):
        self.check("deutsch")

    def test_in_spanish(self):
        self.check("espanol")
