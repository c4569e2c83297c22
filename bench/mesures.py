#!/usr/bin/python3
"""Measures the engine against everyday tools, on one file and in one run, and holds it to limits.

Parts are measured by the Google Benchmark programs bench_moteur (engine), bench_fenetre (table view), bench_entrees
(commands on all entries), bench_colonnes (very many columns), bench_archive (a catalogue with images), bench_prets
(lending), bench_echange (copy and paste), bench_plugins (windows with plug-ins), bench_exports, bench_csv and
bench_doublons (plug-ins that come with the program), whole commands as processes. Everything is done several times and the quickest counts, on both sides
of a ratio: what is slower was disturbed by something else. Called by scripts/bench; see docs/performance.md.
"""
import argparse
import csv
import datetime
import json
import os
import pathlib
import platform
import random
import shutil
import sqlite3
import subprocess
import sys
import time
import zipfile

ROOT = pathlib.Path(__file__).resolve().parent.parent
MEMORY = pathlib.Path("/dev/shm")
FRENCH = {**os.environ, "LC_ALL": "fr_FR.UTF-8"}


def quickest(command, times, before=None, stdout=subprocess.DEVNULL, **how):
    """Seconds of the quickest of several runs of a command. `before` is called ahead of each, off the clock."""
    best = float("inf")
    for _ in range(times):
        if before:
            before()
        start = time.perf_counter()
        subprocess.run([str(part) for part in command], check=True, stdin=subprocess.DEVNULL,
                       stdout=stdout, **how)
        best = min(best, time.perf_counter() - start)
    return best


class Inputs:
    """The files that all is measured on: one catalogue as bare text, in order and out of order, its columns, and its rows
    in a database; the same with all entries lent; the same in boxes; one of many columns; and one with images."""

    def __init__(self, folder, entries, images):
        folder.mkdir(parents=True, exist_ok=True)
        self.folder = folder
        self.sorted = self._make(f"trie-{entries}.qrt", entries)
        self.shuffled = self._make(f"desordre-{entries}.qrt", entries, "--desordre")
        self.size = self.sorted.stat().st_size
        self.rare_text = "ombre vive"  # the title of one entry in two thousand
        self.column_sorted_by = self._write_column(self.shuffled, 0)
        self.other_column = self._write_column(self.sorted, 1)
        self.changed = self._make_changed(f"change-{entries}.qrt")
        self.changed_column = self._write_column(self.changed, 1)
        self.database = self._make_database(self.sorted)
        self.lent = self._make_lent(f"prete-{entries}.qrt")
        self.tenth = self._make_tenth(f"dixieme-{entries}.txt")
        self.boxes = self._make_boxes(f"coffrets-{entries}.qrt", entries // 100)
        self.many_columns = self._make_columns("colonnes-20000.qrt", columns=20_000, entries=10)
        self.csv = self._make_csv(f"tableau-{entries}.csv")
        self.pdf = folder / "pages.pdf"
        self.output = MEMORY / f"zelvane-bench-sortie-{os.getpid()}"
        self.images = images
        self.text_with_images = folder / "images.txt"
        self.archive = self._make_archive(f"images-{images}.qrt", images)

    def _make(self, name, entries, *options):
        """Generated anew each time, a minute for a million: no figure may rest on a file of another version."""
        path = self.folder / name
        generator = ROOT / "examples" / "faire_exemples.py"
        subprocess.run(["/usr/bin/python3", "-B", generator, "--entrees", str(entries), path, *options], check=True)
        return path

    def _make_changed(self, name):
        """The entries out of order, every tenth of them with another artist."""
        path = self.folder / name
        head, mark, rest = self.shuffled.read_bytes().partition(b"[ListItems]\r\n")
        count, *entries = rest.splitlines(keepends=True)
        for rank in range(5, len(entries), 10):
            values = entries[rank].split(b"|")
            values[1] += b" bis"
            entries[rank] = b"|".join(values)
        path.write_bytes(head + mark + count + b"".join(entries))
        return path

    def _make_database(self, catalogue):
        """The entries of a catalogue as the rows of the table "entrees"."""
        path = self.folder / "entrees.db"
        path.unlink(missing_ok=True)
        lines = catalogue.read_bytes().partition(b"[ListItems]\r\n")[2].decode("cp1252").split("\r\n")[1:-1]
        rows = [line.partition("=")[2].split("|")[:-1] for line in lines]
        with sqlite3.connect(path) as database:
            database.execute(f"create table entrees ({', '.join(f'c{i} text' for i in range(len(rows[0])))})")
            database.executemany(f"insert into entrees values ({', '.join('?' * len(rows[0]))})", rows)
        database.close()
        return path

    def _make_csv(self, name):
        """The entries in order as a table in CSV, with quotes where they are needed."""
        path = self.folder / name
        lines = self.sorted.read_bytes().partition(b"[ListItems]\r\n")[2].decode("cp1252").split("\r\n")[1:-1]
        rows = [line.partition("=")[2].split("|")[:-1] for line in lines]
        with open(path, "w", encoding="utf-8", newline="") as table:
            writer = csv.writer(table)
            writer.writerow([f"Colonne {i}" for i in range(len(rows[0]))])
            writer.writerows(rows)
        return path

    def _make_lent(self, name):
        """The entries in order, each of them lent to one of a hundred borrowers."""
        path = self.folder / name
        head, mark, rest = self.sorted.read_bytes().partition(b"[ListItems]\r\n")
        count, *entries = rest.splitlines()
        for i, entry in enumerate(entries):
            loan = b"Camille %d - %02d/%02d/%d" % (i % 100, i % 28 + 1, i // 28 % 12 + 1, 2000 + i // 336 % 26)
            entries[i] = b"|".join([*entry.split(b"|")[:-2], loan, b""])
        path.write_bytes(head + mark + b"\r\n".join([count, *entries, b""]))
        return path

    def _make_tenth(self, name):
        """The lines of every tenth entry."""
        path = self.folder / name
        path.write_bytes(b"".join(self.sorted.read_bytes().partition(b"[ListItems]\r\n")[2].splitlines(keepends=True)[10::10]))
        return path

    def _make_boxes(self, name, boxes):
        """The entries in order, none of them lent, each in one of so many boxes: its second column, the dependant one."""
        path = self.folder / name
        head, mark, rest = self.sorted.read_bytes().partition(b"[ListItems]\r\n")
        count, *entries = rest.splitlines()
        for i, entry in enumerate(entries):
            first, _, *others = entry.split(b"|")[:-2]
            entries[i] = b"|".join([first, b"Coffret %d" % ((i // 10 * 7919 + i % 10 * 31) % boxes), *others, b"", b""])
        path.write_bytes(head.replace(b"Dependant=0", b"Dependant=2") + mark + b"\r\n".join([count, *entries, b""]))
        return path

    def _make_columns(self, name, columns, entries):
        head = ["[FileInfo]", "Type=QRT FILE", "Version=1.4", "", "[ListView]", "GridLines=1", "Sorted=1", "SortKey=0",
                "SortOrder=0", "View=3", "", "[ColumHeaders]", f"Count={columns}"]
        titles = [f"Colum{i}=Titre {i}|1000|" for i in range(1, columns + 1)]
        lines = ["|".join([f"It{i}=valeur {i}", *(f"{i}-{j}" for j in range(1, columns)), ""])
                 for i in range(1, entries + 1)]
        path = self.folder / name
        path.write_bytes(("\r\n".join([*head, *titles, "Dependant=0", "", "[ListItems]", f"Count={entries}", *lines])
                          + "\r\n").encode("cp1252"))
        return path

    def _make_archive(self, name, images):
        """A catalogue of so many entries with an image each: 150 KB that hardly get smaller, as photographs do."""
        chance = random.Random(1)
        head = ["[FileInfo]", "Type=QRT FILE", "Version=2", "", "[ListView]", "GridLines=1", "Sorted=1", "SortKey=0",
                "SortOrder=0", "View=3", "", "[ColumHeaders]", "Count=2", "Colum1=Titre|4200|", "Colum2=Prêté|600|",
                "Dependant=0", "", "[ListItems]", f"Count={images}"]
        entries = [f"It{i}=Titre {i:05}||{i:05}.jpg" for i in range(1, images + 1)]
        text = ("\r\n".join(head + entries) + "\r\n").encode("cp1252")
        self.text_with_images.write_bytes(text)
        path = self.folder / name
        with zipfile.ZipFile(path, "w", zipfile.ZIP_DEFLATED, compresslevel=5) as archive:
            archive.writestr("Zelvane.qrt", text)
            for i in range(1, images + 1):
                archive.writestr(f"{i:05}.jpg", chance.randbytes(147_000) + bytes(3_000))
        return path

    def _write_column(self, catalogue, column):
        """One column of a catalogue, a value a line in UTF-8, for GNU sort."""
        path = self.folder / f"{catalogue.stem}-colonne-{column + 1}.txt"
        entries = catalogue.read_bytes().partition(b"[ListItems]\r\n")[2].splitlines()[1:]
        values = (line.partition(b"=")[2].split(b"|")[column] for line in entries)
        path.write_text(b"\n".join(values).decode("cp1252", "replace") + "\n", encoding="utf-8")
        return path


class Parts:
    """What a benchmark program measures: seconds and counters by name."""

    def __init__(self, program, inputs, times, short):
        self._program = program.name
        out = inputs.folder / f"{program.name}.json"
        command = [program, f"--benchmark_out={out}", "--benchmark_out_format=json", f"--benchmark_repetitions={times}"]
        if short:
            command.append("--benchmark_min_time=0.01")
        environment = {**os.environ, "ZELVANE_BENCH_FICHIER": str(inputs.sorted),
                       "ZELVANE_BENCH_DESORDRE": str(inputs.shuffled), "ZELVANE_BENCH_ARCHIVE": str(inputs.archive),
                       "ZELVANE_BENCH_TEXTE": inputs.rare_text, "ZELVANE_BENCH_CHANGE": str(inputs.changed),
                       "ZELVANE_BENCH_PRETE": str(inputs.lent), "ZELVANE_BENCH_PDF": str(inputs.pdf),
                       "ZELVANE_BENCH_COFFRETS": str(inputs.boxes), "ZELVANE_BENCH_EXPORTS": str(inputs.output),
                       "ZELVANE_BENCH_CSV": str(inputs.csv)}
        subprocess.run([str(part) for part in command], check=True, env=environment, stdin=subprocess.DEVNULL,
                       stdout=subprocess.DEVNULL)
        runs = json.loads(out.read_text())["benchmarks"]
        self._runs = [run for run in runs if run["run_type"] == "iteration"]
        broken = [f"{run['name']}: {run['error_message']}" for run in runs if run.get("error_occurred")]
        if broken:
            sys.exit("mesures: " + "; ".join(broken))

    def _of(self, name):
        # A name may carry what it was run with: "TriAutreColonne/manual_time".
        runs = [run for run in self._runs if f"{run['name']}/".startswith(f"{name}/")]
        if not runs:
            sys.exit(f"mesures: {self._program} has no benchmark {name}")
        return runs

    def seconds(self, name):
        units = {"ns": 1e-9, "us": 1e-6, "ms": 1e-3, "s": 1.0}
        return min(run["real_time"] * units[run["time_unit"]] for run in self._of(name))

    def counter(self, name, counter):
        """The largest: what a counter counts is a cost, and a second run may find some of it paid already."""
        return max(run[counter] for run in self._of(name))

    def quickest_counter(self, name, counter):
        """The smallest, of one that counts seconds."""
        return min(run[counter] for run in self._of(name))


class Table:
    """Rows of the report: what was measured, against what, and whether it keeps its limit."""

    def __init__(self):
        self.rows = []
        self.broken = []

    def ratio(self, work, measured, yardstick, seconds, factor, beyond=("", 0.0), less=0.0, show="{:.3f} s"):
        """`measured` is at most `factor` times the yardstick's `seconds`, and `beyond` more (a text and a number). The
        ratio shown is that of `measured`, `less` what is no matter of the yardstick."""
        text, more = beyond
        self._add(work, show.format(measured), f"{yardstick}: {show.format(seconds)}",
                  f"{(measured - less) / seconds:.2f} ×", f"{factor} ×{text}", measured, factor * seconds + more)

    def more(self, work, measured, yardstick, seconds, at_most):
        """`measured` is at most `at_most` seconds more than the yardstick."""
        difference = measured - seconds
        self._add(work, f"{measured * 1e3:.1f} ms", f"{yardstick}: {seconds * 1e3:.1f} ms",
                  f"{difference * 1e3:.1f} ms more", f"{at_most * 1e3:.0f} ms more", difference, at_most)

    def time(self, work, measured, at_most):
        self._add(work, f"{measured * 1e3:.2f} ms", "", "", f"{at_most * 1e3:.0f} ms", measured, at_most)

    def memory(self, work, measured, at_most):
        self._add(work, f"{measured:.1f} MB", "", "", f"{at_most} MB", measured, at_most)

    def _add(self, work, measured, yardstick, ratio, at_most, value, limit):
        share = f"{value / limit:.0%}"
        self.rows.append((work, measured, yardstick, ratio, at_most, share))
        if value > limit:
            self.broken.append(f"{work}: {share} of {at_most}")

    def print(self):
        titles = ("Work", "Measured", "Against", "Ratio", "At most", "Used")
        widths = [max(len(row[i]) for row in [titles, *self.rows]) for i in range(len(titles))]
        for row in (titles, tuple("-" * width for width in widths), *self.rows):
            print("| " + " | ".join(cell.ljust(width) for cell, width in zip(row, widths)) + " |")


def measure_archive(table, inputs, images, times):
    """The rows of a catalogue with images. Both sides read and write on the same disk, and both replace a file: what goes
    has to be let go."""
    copy = inputs.folder / "copie.qrt"
    folder = inputs.folder / "unzip"

    def empty():
        shutil.rmtree(folder, ignore_errors=True)
        folder.mkdir()

    shutil.copyfile(inputs.archive, copy)
    cp = quickest(["cp", inputs.archive, copy], times, before=os.sync)
    copy.unlink()
    zipped = inputs.folder / "texte.zip"
    text = quickest(["zip", "-q", "-5", zipped, inputs.text_with_images], times,
                    before=lambda: zipped.unlink(missing_ok=True))
    unzip = quickest(["unzip", "-q", inputs.archive, "-d", folder], times, before=empty)
    copies = inputs.folder / "copies"

    def empty_copies():
        shutil.rmtree(copies, ignore_errors=True)
        copies.mkdir()
        os.sync()

    cp_images = quickest(["cp", *folder.glob("*.jpg"), copies], times, before=empty_copies)
    shutil.rmtree(copies)
    shutil.rmtree(folder)
    table.ratio(f"save of {inputs.images:,} images after an edit", images.seconds("EnregistrerArchive"),
                "cp of the archive", cp, 1.5, beyond=(" + zip -5 of the text", text))
    table.ratio(f"opening of {inputs.images:,} images", images.seconds("OuvrirArchive"), "unzip -q", unzip, 1.3)
    table.ratio(f"page with {inputs.images:,} images", images.seconds("ExporterImages"), "cp of the images", cp_images, 1.2)


def measure_exports(table, inputs, engine, cli, times):
    """The rows of exports and of the report. Both sides write files in memory."""
    out = MEMORY / f"zelvane-bench-export-{os.getpid()}"

    def export(kind):
        return quickest([cli, "export", inputs.sorted, out, "--as", kind], times, before=lambda: out.unlink(missing_ok=True))

    def sqlite(mode):
        command = ["sqlite3", "-cmd", f".mode {mode}", "-cmd", f".output {out}", inputs.database, "select * from entrees"]
        return quickest(command, times, before=lambda: out.unlink(missing_ok=True))

    try:
        csv, html = sqlite("csv"), sqlite("html")
        for kind, name, factor in (("csv", "semicolons", 0.5), ("tab", "tabs", 0.5), ("text", "a framed text", 0.8)):
            table.ratio(f"export to {name}", export(kind), "sqlite3 .mode csv", csv, factor)
        table.ratio("export to a page without images", export("html"), "sqlite3 .mode html", html, 0.6)
    finally:
        out.unlink(missing_ok=True)
    table.memory("memory of an export beside the table, at its peak", engine.counter("MemoireDExport", "octets") / 1e6, 8)
    table.ratio("report of loans to 100 borrowers", engine.seconds("RapportDesPrets"), "`ChargerFichier` of that file",
                engine.seconds("ChargerFichierPrete"), 1.5)


def measure_columns(table, inputs, columns, cli, times):
    """The rows of catalogues with very many columns."""
    table.time("opening of 100,000 columns, to the picture of them", columns.seconds("OuvrirColonnes/100000"), 1)
    table.time("opening of 1,000,000 columns, to the picture of them", columns.seconds("OuvrirColonnes/1000000"), 10)
    table.time("scroll or drag among 1,000,000 columns, the slowest", columns.counter("OuvrirColonnes/1000000", "pas"), 1)
    table.time("`zelvane-cli list --json` of 20,000 columns",
               quickest([cli, "list", "--json", inputs.many_columns], times), 0.5)


def measure_lending(table, inputs, lending, times):
    """The rows of lending and return."""
    iconv = quickest(["iconv", "-f", "cp1252", "-t", "utf-8", inputs.boxes], times)
    for work, name in (("lend a tenth of the entries", "PreterUnDixieme"),
                       ("return them with all dependants, of 10,000 values", "RendreUnDixieme"),
                       ("the same when all entries are lent", "RendreTout")):
        table.ratio(work, lending.seconds(name), "iconv", iconv, 4)


def measure_exchange(table, inputs, exchange, times):
    """The rows of copy and paste."""
    iconv = quickest(["iconv", "-f", "cp1252", "-t", "utf-8", inputs.tenth], times)
    table.ratio("copy a tenth of the entries", exchange.seconds("CopierUnDixieme"), "iconv of a tenth", iconv, 4)
    table.ratio("paste them into the sorted category", exchange.seconds("CollerDansLOrdre"), "its sort",
                exchange.seconds("Trier"), 1.5)


def measure_plugins(table, plugins):
    """The rows of a document window with a folder full of plug-ins."""
    alone = plugins.seconds("FenetreSansPlugin")
    table.more("a first window with 20 plug-ins", plugins.seconds("PremiereFenetre"), "a window without", alone, 0.1)
    table.more("a further window with them", plugins.seconds("FenetresSuivantes"), "a window without", alone, 0.1)


def json_of(inputs, times):
    """Seconds that Python takes to make the entries JSON and to write that, by its encoder in C."""
    head, _, rest = inputs.sorted.read_bytes().decode("cp1252").partition("[ListItems]\r\n")
    titles = [line.partition("=")[2].split("|")[0] for line in head.split("\r\n") if line.startswith("Colum")]
    rows = [dict(zip(titles, line.partition("=")[2].split("|"))) for line in rest.split("\r\n")[1:-1]]
    best = float("inf")
    for _ in range(times):
        start = time.perf_counter()
        (inputs.output / "python.json").write_text(json.dumps({"entrees": rows}, ensure_ascii=False), encoding="utf-8")
        best = min(best, time.perf_counter() - start)
    return best


def measure_added_exports(table, inputs, exports, times):
    """The rows of the exporters that come as plug-ins. Both sides write files in memory."""
    content, zipped = inputs.output / "content.xml", inputs.output / "content.zip"
    content.write_bytes(zipfile.ZipFile(inputs.output / "bench.ods").read("content.xml"))
    zip1 = quickest(["zip", "-q", "-1", zipped, content], times, before=lambda: zipped.unlink(missing_ok=True))
    table.ratio("export to JSON", exports.seconds("ExporterEnJson"), "json.dumps of Python, written",
                json_of(inputs, times), 1)
    table.ratio("export to a spreadsheet", exports.seconds("ExporterEnOds"), "zip -1 of its content.xml", zip1, 2.5)
    for kind, name in (("JSON", "ExporterEnJson"), ("a spreadsheet", "ExporterEnOds")):
        table.memory(f"memory of an export to {kind} beside the table, at its peak",
                     exports.counter(name, "octets") / 1e6, 16)


def measure_csv(table, inputs, opened, times):
    """The rows of a table of text that its plug-in opens."""
    reading = "import csv, sys; rows = list(csv.reader(open(sys.argv[1], encoding='utf-8', newline='')))"
    python = quickest(["/usr/bin/python3", "-c", reading, inputs.csv], times)
    table.ratio("open a table in CSV", opened.seconds("OuvrirUnTableau"), "Python's csv.reader, rows kept", python, 1.5)
    table.ratio("memory of that table", opened.counter("OuvrirUnTableau", "octets") / 1e6, "the file",
                inputs.csv.stat().st_size / 1e6, 3, show="{:.1f} MB")


def measure_duplicates(table, inputs, duplicates, times):
    """The rows of the search for duplicates by two columns."""
    columns = inputs.folder / "deux-colonnes.txt"
    with open(columns, "wb") as out:
        subprocess.run(["paste", inputs.column_sorted_by, inputs.other_column], check=True, stdout=out)
    sort = quickest(["sort", columns], times, env=FRENCH)
    table.ratio("equal entries by two columns", duplicates.seconds("DoublonsEgaux"), "GNU sort of them", sort, 1)
    table.ratio("nearly equal entries by two columns", duplicates.seconds("DoublonsPresqueEgaux"), "GNU sort of them",
                sort, 8)


def measure_comm(inputs, times):
    """Seconds of comm on the columns of two catalogues, sorted."""
    ordered = []
    for column in (inputs.other_column, inputs.changed_column):
        ordered.append(inputs.folder / f"{column.stem}-triee.txt")
        subprocess.run(["sort", "-o", ordered[-1], column], check=True, env=FRENCH)
    return quickest(["comm", *ordered], times, env=FRENCH)


def measure_printing(table, inputs, printing, times):
    """The rows of printing: what comes before the user is asked, against reading the text of the same pages."""
    printing.seconds("EcrireLePdf")
    pdftotext = quickest(["pdftotext", inputs.pdf, "-"], times)
    table.ratio("composing the pages of 100,000 entries", printing.seconds("ComposerLesPages"), "pdftotext of their PDF",
                pdftotext, 2)
    table.memory("memory of those pages", printing.counter("MemoireDesPages", "octets") / 1e6, 100)


def measure(inputs, engine, window, entries, cli, times):
    """All rows of the table."""
    table = Table()
    folder = inputs.folder
    copy = MEMORY / f"zelvane-bench-{os.getpid()}"
    zipped = folder / "zip.zip"
    converted = folder / "converti.qrt"
    small = ROOT / "examples" / "bibliotheque.qrt"

    def remove(path):
        return lambda: path.unlink(missing_ok=True)

    iconv = quickest(["iconv", "-f", "cp1252", "-t", "utf-8", inputs.sorted], times)
    # Into a pipe: where its output goes to /dev/null, grep stops at the first line that it finds.
    grep = quickest(["grep", "-aic", inputs.rare_text, inputs.sorted], times, stdout=subprocess.PIPE,
                    env={**os.environ, "LC_ALL": "C"})
    sort_same = quickest(["sort", inputs.column_sorted_by], times, env=FRENCH)
    sort_other = quickest(["sort", inputs.other_column], times, env=FRENCH)
    compare = measure_comm(inputs, times) + sort_other + quickest(["sort", inputs.changed_column], times, env=FRENCH)
    try:
        cp = quickest(["cp", inputs.sorted, copy], times, before=remove(copy))
    finally:
        copy.unlink(missing_ok=True)
    zip5 = quickest(["zip", "-q", "-5", zipped, inputs.sorted], times, before=remove(zipped))
    convert = quickest([cli, "convert", inputs.sorted, converted], times, before=remove(converted))
    list_text = quickest([cli, "list", inputs.sorted], times)
    list_json = quickest([cli, "list", "--json", inputs.sorted], times)
    search = quickest([cli, "search", inputs.sorted, inputs.rare_text], times)
    true = quickest(["/bin/true"], times * 5)
    listed = quickest([cli, "list", small], times * 5)

    in_order = engine.seconds("ChargerFichierTrie")
    table.ratio("`ChargerFichier`, file in order", in_order, "iconv", iconv, 3)
    table.ratio("`ChargerFichier`, file not in order (ratio: what that adds)", engine.seconds("ChargerFichierDesordre"),
                "GNU sort of the sort column", sort_same, 0.7, beyond=(" + 3 × iconv", 3 * iconv), less=in_order)
    table.ratio("memory of the loaded table", engine.counter("MemoireTableChargee", "octets") / 1e6, "the file",
                inputs.size / 1e6, 2.5, show="{:.1f} MB")
    table.ratio("search for a rare text, whole line", engine.seconds("ChercherDansLaLigne"), "grep -aic", grep, 2)
    table.ratio("search for a rare text in two columns", engine.seconds("ChercherDansDeuxColonnes"), "grep -aic", grep, 4)
    table.ratio("memory of a million results", engine.counter("TrouverTout", "octets") / 1e6, "the file",
                inputs.size / 1e6, 2.5, show="{:.1f} MB")
    table.ratio("a text of every entry, to the picture of the results", entries.seconds("ImageDesResultats"), "iconv",
                iconv, 6)
    table.ratio("`zelvane-cli search`", search, "grep -aic", grep, 3, beyond=(" + 30 ms", 0.030))
    table.ratio("comparison of two catalogues by another column", engine.seconds("ComparerDeux"),
                "GNU sort of both columns, and comm", compare, 1)
    table.ratio("memory of that comparison, at its peak", engine.counter("MemoireDeComparaison", "octets") / 1e6,
                "one file", inputs.size / 1e6, 1, show="{:.1f} MB")
    table.ratio("memory of a comparison without an equal value, at its peak",
                engine.counter("MemoireSansRienDEgal", "octets") / 1e6, "one file", inputs.size / 1e6, 1,
                show="{:.1f} MB")
    table.ratio("sort by another column", engine.seconds("TriAutreColonne"), "GNU sort of that column", sort_other, 0.7)
    table.ratio("text writer", engine.seconds("EcrireFichier14"), "cp to memory", cp, 2,
                beyond=(" + 0.1 s", 0.1))
    table.ratio("`zelvane-cli convert` 1.4 → 2", convert, "zip -5", zip5, 1.3)
    table.ratio("`zelvane-cli list`", list_text, "iconv", iconv, 3)
    table.ratio("`zelvane-cli list --json`", list_json, "iconv", iconv, 7)
    table.more("`zelvane-cli list` of a small file", listed, "/bin/true", true, 0.030)
    table.time("`RecalculerCles`", engine.seconds("RecalculerCles"), 0.020)
    table.time("`SelItemsCount`", engine.seconds("SelItemsCount"), 0.020)
    table.ratio("edit all entries together", entries.seconds("EditionMultiple"), "iconv", iconv, 8)
    table.ratio("list a hundredth of the entries and their dependants", entries.seconds("ListerDependantes"), "iconv",
                iconv, 3)
    table.ratio("list all entries for deletion, to the picture of it", entries.seconds("ImageDeLaListe"), "iconv",
                iconv, 0.5)
    table.ratio("delete every tenth entry", entries.seconds("SupprimerUnDixieme"), "iconv", iconv, 0.5)
    for work, name in (("move", "DeplacerUneColonne"), ("delete", "SupprimerUneColonne"),
                       ("merge", "FusionnerDeuxColonnes"), ("split", "SeparerUneColonne"),
                       ("duplicate", "DupliquerUneColonne")):
        table.ratio(f"{work} a column", entries.seconds(name), "iconv", iconv, 6)
    table.ratio("memory of the table after a column was duplicated",
                engine.counter("MemoireApresColonnes", "octets") / 1e6, "the file", inputs.size / 1e6, 3.5, show="{:.1f} MB")
    table.ratio("click on a title, to the picture of the sorted table", window.seconds("ClicSurUnTitre"),
                "the sort alone", window.quickest_counter("ClicSurUnTitre", "tri"), 1.2)
    table.time("both counts, every other entry selected", window.seconds("Comptes"), 0.100)
    table.time("a picture of the table while it scrolls", window.seconds("ImageDeDefilement"), 0.008)
    table.time("first picture of a filled table", window.seconds("PremiereImage"), 0.100)
    table.time("select all, to the picture of it", window.seconds("ToutSelectionner"), 0.100)
    table.time("select every other entry, to the picture of it", window.seconds("SelectionEnMiettes"), 0.100)
    return table


def describe_machine(inputs, entries):
    processor = next((line.partition(":")[2].strip() for line in open("/proc/cpuinfo") if line.startswith("model name")),
                     platform.machine())
    memory = os.sysconf("SC_PAGE_SIZE") * os.sysconf("SC_PHYS_PAGES") / 2**30
    print(f"{datetime.date.today()}: {entries} entries, {inputs.size / 1e6:.1f} MB of text; "
          f"{processor}, {os.cpu_count()} processors, {memory:.0f} GiB\n")


def main():
    arguments = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    arguments.add_argument("--programmes", type=pathlib.Path, required=True, help="folder of the built programs")
    arguments.add_argument("--travail", type=pathlib.Path, required=True, help="folder for the files made")
    arguments.add_argument("--sans-limite", action="store_true", help="measure, but let broken limits pass")
    arguments.add_argument("--rapide", action="store_true", help="20,000 entries, 20 images, each thing once, no limits")
    given = arguments.parse_args()

    entries, pictures, times = (20_000, 20, 1) if given.rapide else (1_000_000, 2_000, 5)
    cli = (given.programmes / "zelvane-cli").resolve()
    inputs = Inputs(given.travail.resolve(), entries, pictures)
    engine = Parts((given.programmes / "bench_moteur").resolve(), inputs, times, short=given.rapide)
    window = Parts((given.programmes / "bench_fenetre").resolve(), inputs, times, short=given.rapide)
    commands = Parts((given.programmes / "bench_entrees").resolve(), inputs, times, short=given.rapide)
    columns = Parts((given.programmes / "bench_colonnes").resolve(), inputs, times, short=given.rapide)
    printing = Parts((given.programmes / "bench_impression").resolve(), inputs, times, short=given.rapide)
    images = Parts((given.programmes / "bench_archive").resolve(), inputs, times, short=given.rapide)
    lending = Parts((given.programmes / "bench_prets").resolve(), inputs, times, short=given.rapide)
    exchange = Parts((given.programmes / "bench_echange").resolve(), inputs, times, short=given.rapide)
    plugins = Parts((given.programmes / "bench_plugins").resolve(), inputs, times, short=given.rapide)
    duplicates = Parts((given.programmes / "bench_doublons").resolve(), inputs, times, short=given.rapide)
    opened = Parts((given.programmes / "bench_csv").resolve(), inputs, times, short=given.rapide)
    inputs.output.mkdir()
    try:
        exports = Parts((given.programmes / "bench_exports").resolve(), inputs, times, short=given.rapide)
        table = measure(inputs, engine, window, commands, cli, times)
        measure_added_exports(table, inputs, exports, times)
    finally:
        shutil.rmtree(inputs.output)
    measure_exports(table, inputs, engine, cli, times)
    measure_printing(table, inputs, printing, times)
    measure_columns(table, inputs, columns, cli, times)
    measure_lending(table, inputs, lending, times)
    measure_exchange(table, inputs, exchange, times)
    measure_plugins(table, plugins)
    measure_csv(table, inputs, opened, times)
    measure_duplicates(table, inputs, duplicates, times)
    measure_archive(table, inputs, images, times)

    describe_machine(inputs, entries)
    table.print()
    if table.broken and not (given.rapide or given.sans_limite):
        print("\nLimits broken:", *table.broken, sep="\n  ")
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main())
