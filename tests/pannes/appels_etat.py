"""What a category holds, read from wherever it may lie, without the program's help: an archive, a bare text, a
document's folder."""
import zipfile
from dataclasses import dataclass, field
from pathlib import Path

TEXT, EXACT, COMMENT = "Zelvane.qrt", "Zelvane.utf8", "Zelvane.txt"
SEPARATOR = "[Zelvane.txt]\r\n"


@dataclass(frozen=True)
class State:
    """Titles, entries (their values, the image last) in no order, the images' bytes, and the comment."""
    titles: tuple
    entries: tuple
    images: tuple = field(default=(), repr=False)
    comment: str = ""

    def narrowed(self):
        """What a bare text holds of it."""
        def narrow(value):
            return value.encode("cp1252", "replace").decode("cp1252")
        return make(map(narrow, self.titles), [map(narrow, entry) for entry in self.entries])


def make(titles, entries, images=None, comment=""):
    return State(tuple(titles), tuple(sorted(map(tuple, entries))), tuple(sorted((images or {}).items())), comment)


def exact_texts(files):
    """The text and the comment, in the characters that they were written with."""
    text, comment = files[TEXT], files.get(COMMENT, b"")
    try:
        wide = files.get(EXACT, b"").decode("utf-8")
    except UnicodeDecodeError:
        wide = ""
    first, second = wide[:len(text)], wide[len(text):].removeprefix(SEPARATOR)
    if not wide or first.encode("cp1252", "replace") != text:
        return text.decode("cp1252", "replace"), comment.decode("cp1252", "replace")
    exact = wide[len(text):].startswith(SEPARATOR) and second.encode("cp1252", "replace") == comment
    return first, second if exact else comment.decode("cp1252", "replace")


def parse(text, images=None, comment=""):
    """None unless the text is a whole one."""
    lines = text.split("\r\n")
    try:
        at = lines.index("[ColumHeaders]") + 1
        count = int(lines[at].removeprefix("Count="))
        titles = [line.split("=", 1)[1].split("|")[0] for line in lines[at + 1:at + 1 + count]]
        at = lines.index("[ListItems]") + 1
        total = int(lines[at].removeprefix("Count="))
        entries = [line.split("=", 1)[1].split("|")[:count + 1] for line in lines[at + 1:at + 1 + total]]
    except (ValueError, IndexError):
        return None
    if len(entries) != total or any(len(entry) != count + 1 for entry in entries) or lines[-1] != "":
        return None
    return make(titles, entries, images, comment)


def of_files(files):
    if TEXT not in files:
        return None
    text, comment = exact_texts(files)
    return parse(text, {name: data for name, data in files.items() if name not in (TEXT, EXACT, COMMENT)}, comment)


def of_archive(path):
    """None when it is not there or not whole."""
    try:
        with zipfile.ZipFile(path) as archive:
            return of_files({name: archive.read(name) for name in archive.namelist()})
    except (OSError, zipfile.BadZipFile, EOFError, NotImplementedError, RuntimeError, ValueError, IndexError):
        return None
    except Exception as error:  # zlib.error has no base of its own
        if type(error).__name__ == "error":
            return None
        raise


def of_text(path):
    """Of a bare text file, without its images."""
    try:
        return parse(Path(path).read_bytes().decode("cp1252", "replace"))
    except OSError:
        return None


def of_file(path, form):
    return of_archive(path) if form == "2" else of_text(path)


def of_folder(path):
    """Of a document's folder; the rescue copy beside it is not looked at. Files on their way are no part of it."""
    try:
        return of_files({file.name: file.read_bytes() for file in Path(path).iterdir()
                         if file.is_file() and not file.name.endswith("~")})
    except OSError:
        return None


def of_output(lines, folder):
    """Of what the program under test showed of a document, and of the images in its folder."""
    titles, entries = [], []
    for line in lines:
        kind, _, rest = line.partition(" ")
        if kind == "COLONNES":
            titles = rest.split("\t")[:-1]
        elif kind == "ENTREE":
            entries.append(rest.split("\t")[:-1])
    inside = of_folder(folder)
    return make(titles, entries, dict(inside.images) if inside else {}, inside.comment if inside else "")


# ---- The category that is saved over and over

def noise(size, seed):
    """Bytes that do not compress, the same each time."""
    data = bytearray()
    while len(data) < size:
        seed = (seed * 6364136223846793005 + 1442695040888963407) % 2**64
        data += seed.to_bytes(8, "little")
    return bytes(data[:size])


def text_of(entries, version="2"):
    titles = ["Titre|1000|", "Auteur|2000|un|deux", "Prêté|600|"]
    lines = ["[FileInfo]", "Type=QRT FILE", f"Version={version}", "", "[ListView]", "GridLines=1", "Sorted=1",
             "SortKey=0", "SortOrder=0", "View=3", "", "[ColumHeaders]", f"Count={len(titles)}",
             *(f"Colum{i}={title}" for i, title in enumerate(titles, 1)), "Dependant=0", "", "[ListItems]",
             f"Count={len(entries)}", *(f"It{i}={entry}" for i, entry in enumerate(entries, 1)), ""]
    return "\r\n".join(lines)


def sample_files(images=3, entries=40, size=1_300_000, comment="Écouté le 5 — Пётр\r\n"):
    """The files of a category: entries of which the first ones have an image, one of them large, and a comment. Not all
    of it fits into the code page."""
    names = ["grande.png", "petite.png", *(f"image{i}.jpg" for i in range(3, images + 1))][:images]
    text = text_of([f"Titre {i:05}|Auteur é{i} Я||{names[i] if i < len(names) else ''}" for i in range(entries)])
    sizes = {"grande.png": size, "petite.png": 3000}
    return {TEXT: text.encode("cp1252", "replace"), COMMENT: comment.encode("cp1252", "replace"),
            EXACT: (text + SEPARATOR + comment).encode(),
            **{name: noise(sizes.get(name, 20_000), i + 1) for i, name in enumerate(names)}}


def write_archive(path, files):
    with zipfile.ZipFile(path, "w", zipfile.ZIP_DEFLATED, compresslevel=5) as archive:
        archive.comment = b"Zelvane v2.2 by Morvenal"
        for name, data in files.items():
            archive.writestr(zipfile.ZipInfo(name, (2020, 1, 2, 3, 4, 6)), data, zipfile.ZIP_DEFLATED, 5)
