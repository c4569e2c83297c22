"""What must be had back: the history of each document as the guinea pig said it, and the judgement of what is there.

A document is a list of states, one more for each step that changes it. A step that had begun when the process ended may
or may not have happened. After an end that gave no time, nothing may fall behind the last state of which a save or a
rescue copy said to be finished; after a polite one nothing may fall behind the last state. Images that a user replaces or
deletes are gone at once: so each entry and each image is judged for itself, between these states.
"""
import dataclasses
import hashlib
import os
import pathlib
import random
import zipfile

COLUMNS = ["Titre", "Auteur", "Lieu", "Note", "Prêté"]
ARCHIVE, TEXT = "2", "3"


@dataclasses.dataclass(frozen=True)
class State:
    """`rows`: title -> (values, image's name). `files`: name -> SHA-256 of the images and of the comments."""
    rows: dict
    files: dict

    def with_rows(self, change):
        return State({title: change(title, *row) for title, row in self.rows.items()}, self.files)

    def with_row(self, title, values=None, image=None):
        old = self.rows.get(title, ((title,) + ("",) * (len(COLUMNS) - 1), ""))
        return State({**self.rows, title: (values or old[0], old[1] if image is None else image)}, self.files)


def sha(content):
    return hashlib.sha256(content).hexdigest()


def make_catalogue(path, prefix, entries, images, seed, size):
    """Writes an archive, or with `images` None a bare text; returns the state that it holds. Made by other hands than
    the program's."""
    chance = random.Random(seed)
    rows, contents = {}, {}
    for number in range(1, entries + 1):
        title = f"{prefix}{number:05d}"
        image = f"{prefix}{number:05d}.jpg" if images and number <= images else ""
        rows[title] = ((title, f"première-{number}", f"côté {number % 97}", f"note {number * 7919}", ""), image)
        if image:
            contents[image] = chance.randbytes(chance.randint(size // 4, size))
    text = catalogue_text(rows, "1.4" if images is None else "2")
    if images is None:
        path.write_bytes(text)
        return State(rows, {})
    contents["Zelvane.txt"] = "Des disques, prêtés à l'été.\r\n".encode("cp1252")
    with zipfile.ZipFile(path, "w", zipfile.ZIP_DEFLATED, compresslevel=5) as archive:
        archive.comment = b"Zelvane v2.2 by Morvenal"
        archive.writestr("Zelvane.qrt", text)
        for name, content in contents.items():
            archive.writestr(name, content)
    return State(rows, {name: sha(content) for name, content in contents.items()})


def catalogue_text(rows, version):
    lines = ["[FileInfo]", "Type=QRT FILE", f"Version={version}", "", "[ListView]", "GridLines=1", "Sorted=1", "SortKey=0",
             "SortOrder=0", "View=3", "", "[ColumHeaders]", f"Count={len(COLUMNS)}"]
    lines += [f"Colum{number}={name}|2000|" for number, name in enumerate(COLUMNS, 1)]
    lines += ["Dependant=0", "", "[ListItems]", f"Count={len(rows)}"]
    lines += [f"It{number}=" + "|".join(values) + "|" + image for number, (values, image) in enumerate(rows.values(), 1)]
    return ("\r\n".join(lines) + "\r\n").encode("cp1252")


def edited(seed):
    """What the step "editer" makes of an entry."""
    return lambda title, values, image: (
        (title,) + tuple(f"{seed}-{title}-{column}" for column in range(2, len(values) + 1)), image)


def applied(text):
    """What the step "appliquer" makes of an entry."""
    return lambda title, values, image: ((title, text) + values[2:], image)


def inscribed(title):
    """The values that the step "inscrire" gives a new entry."""
    return (title, "inscrit") + ("",) * (len(COLUMNS) - 2)


class Document:
    """One document of a round: its states, what was saved of them, and where it may be found."""

    def __init__(self, path, state, form):
        self.states = [state]
        self.floor = 0      # index of the state that nothing may fall behind
        self.saved = 0      # index of the state that its file holds
        self.unsure = False  # a step that changes it had begun and not ended
        self.dropped = False  # the user had said that the changes since the last save are to go
        self.open = False
        self.places = [(path, form)]  # its file; two while it goes over to another one

    @property
    def path(self):
        return self.places[-1][0]

    @property
    def last(self):
        return len(self.states) - 1

    @property
    def dirty(self):
        return self.last != self.saved

    def allowed(self, polite):
        """The states between which all that is found must lie. A polite end keeps what the last step made."""
        if self.dropped:
            return self.states[self.saved:]
        if polite:
            return self.states[-2:] if self.unsure else self.states[-1:]
        return self.states[self.floor:]


class Story:
    """What a round did, told step by step as the guinea pig said it. `settled`: path -> (state, form) of the files at
    the target; those in `writing` may hold anything, as a save had begun on them and not ended."""

    def __init__(self, files, sources):
        self.settled = dict(files)
        self.writing = set()
        self.sources = sources  # path -> SHA-256 of the images that a user adds
        self.documents = []
        self.odd = []  # steps that ended otherwise than they should

    def tell(self, step, ended):
        """`ended`: "ok", "non", or None for a step that had begun only."""
        name, _, arguments = step.partition(" ")
        words = arguments.split(" ")
        if ended == "non" and name not in ("secours", "sans-image"):
            self.odd.append(step)
        if name == "ouvrir":
            path = pathlib.Path(arguments)
            document = Document(path, *self.settled[path])
            document.open = ended == "ok"
            self.documents.append(document)
        elif name == "reprendre":
            # It has no file any more, but the one that it came from stays what it is.
            self.documents[0].saved = None
        elif name in ("sauver-tout", "quitter"):
            for document in self.documents:
                self._save_or_close(document, name, words[-1], ended)
        elif words[0].isdigit() and name not in ("lenteur", "attendre", "dire"):
            document = self.documents[int(words[0]) - 1]
            if name in ("sauver", "fermer"):
                self._save_or_close(document, name, words[-1], ended)
            elif name == "sauver-sous":
                document.places.append((pathlib.Path(words[2]), words[1]))
                self._save(document, ended)
            elif name.startswith("secours"):
                document.floor = document.last if ended == "ok" else document.floor
            elif ended != "non":
                document.states.append(self._changed(document.states[-1], name, words[1:]))
                document.unsure = ended is None

    def _save(self, document, ended):
        self.writing.add(document.path)
        if ended != "ok":
            return
        self.writing.discard(document.path)
        document.places = document.places[-1:]
        self.settled[document.path] = (document.states[-1], document.places[-1][1])
        document.saved = document.floor = document.last

    def _save_or_close(self, document, name, answer, ended):
        if not document.open:
            return
        closes = name in ("fermer", "quitter")
        if not closes or (document.dirty and answer == "oui"):
            self._save(document, ended)
        elif document.dirty:
            document.dropped = True
        if closes and ended == "ok":
            document.open = False

    def _changed(self, state, name, words):
        if name == "editer":
            return state.with_rows(edited(words[0]))
        if name == "appliquer":
            return state.with_rows(applied(words[0]))
        if name == "inscrire":
            return state.with_row(words[0], values=inscribed(words[0]))
        if name == "sans-image":
            gone = state.rows[words[0]][1]
            left = State(state.rows, {key: value for key, value in state.files.items() if key != gone})
            return left.with_row(words[0], image="")
        title, image, source = words
        return State(state.rows, {**state.files, image: self.sources[source]}).with_row(title, image=image)


def shortfall(found, states, form=ARCHIVE):
    """What `found` (rows, files as the guinea pig tells them) lacks of what `states` allow; empty when nothing is lost."""
    if found is None:
        return "nothing there"
    rows = {row[0]: (tuple(row[:-1]), row[-1]) for row in found["lignes"]}
    if len(rows) != len(found["lignes"]):
        return "an entry twice"
    for title in rows.keys() | set().union(*(state.rows for state in states)):
        allowed = {state.rows.get(title) for state in states}
        if rows.get(title) not in allowed:
            return f"entry {title}: {rows.get(title)} is none of {sorted(map(str, allowed))[:3]}"
    if form == TEXT:
        return ""
    for name in set().union(*(state.files for state in states)):
        allowed = {state.files.get(name) for state in states}
        if found["fichiers"].get(name) not in allowed:
            return f"file {name}: {found['fichiers'].get(name)} is none of {len(allowed)} allowed ones"
    return ""


def archive_damage(path):
    """What a foreign reader of archives says about one; empty when it is whole."""
    try:
        with zipfile.ZipFile(path) as archive:
            bad = archive.testzip()
            return f"{bad} is damaged" if bad else ""
    except (OSError, zipfile.BadZipFile, RuntimeError) as error:
        return str(error)


def found_in_file(finding, allowed, place):
    """What a file lacks; a whole archive is one that a foreign reader finds whole, too."""
    path, form = place
    missing = shortfall(finding, allowed, form)
    return missing or (archive_damage(path) if form == ARCHIVE else "")


def is_cut(story, document, finding, missing):
    """Whether the file, though the changes are safe elsewhere, is neither the one before a save nor the one after."""
    if document.path not in story.writing or not missing or not (finding or document.path.exists()):
        return False
    before = story.settled.get(document.path)
    return not before or bool(found_in_file(finding, [before[0]], (document.path, before[1])))


def judge(story, polite, findings):
    """What is wrong after a round, a sentence each. `findings`: what the guinea pig says of the next start."""
    by_path = {finding["chemin"]: finding if finding["ouvert"] else None
               for finding in findings if finding["genre"] == "fichier"}
    offers = [finding for finding in findings if finding["genre"] == "secours" and finding["ouvert"]]
    wrong = []
    for path, (state, form) in story.settled.items():
        missing = path not in story.writing and found_in_file(by_path.get(str(path)), [state], (path, form))
        if missing:
            wrong.append(f"LOSS {path.name}, which nobody was writing: {missing}")
    for document in story.documents:
        if not document.open:
            continue
        allowed = document.allowed(polite)
        in_files = [found_in_file(by_path.get(str(place[0])), allowed, place) for place in document.places]
        in_offers = [shortfall(offer, allowed) for offer in offers]
        if all(in_files) and all(in_offers):
            wrong.append(f"LOSS {document.path.name}: in its file: {in_files}; in what is offered: {in_offers or 'nothing'}")
        elif polite and is_cut(story, document, by_path.get(str(document.path)), in_files[-1]):
            wrong.append(f"CUT {document.path.name}: {in_files[-1]}")
    return wrong


def leftovers(target, story):
    """Names at the target that are no file of a user."""
    known = {path.name for path in story.settled} | {path.name for path in story.writing}
    return sorted(name for name in os.listdir(target) if name not in known)


def keep(folder, copy):
    """A copy for study that costs next to nothing: the files are the same ones under another name."""
    for where, _, names in os.walk(folder):
        there = pathlib.Path(copy) / pathlib.Path(where).relative_to(folder)
        there.mkdir(parents=True)
        for name in names:
            try:
                os.link(os.path.join(where, name), there / name, follow_symlinks=False)
            except OSError:
                pass  # sockets
