"""The pages of the manual and the completions tell of all that zelvane-cli can do, and of nothing else."""
import gzip
import os
import pathlib
import re
import subprocess
import tempfile
import unittest

SOURCES = pathlib.Path(os.environ["ZELVANE_E2E_SOURCES"])
BUILD = pathlib.Path(os.environ["ZELVANE_E2E_PROGRAM"]).parent.parent
COMMAND_LINE = pathlib.Path(os.environ["ZELVANE_E2E_PROGRAM"]).with_name("zelvane-cli")
BASH_COMPLETION = "/usr/share/bash-completion/bash_completion"


def said(*command, **how):
    return subprocess.run([*map(str, command)], check=True, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, text=True,
                          **how).stdout


def commands():
    """Each command with the words of its help that stand for arguments."""
    lines = [re.match(r"  ([a-z]+(?: [a-z]+)?)((?: [A-Z0-9a-z|]+)*)$", line) for line in said(COMMAND_LINE, "--help").split("\n")]
    return {line[1]: line[2].split() for line in lines if line}


def options(command):
    return set(re.findall(r"^  (--[a-z-]+)", said(COMMAND_LINE, *command.split(), "--help"), re.MULTILINE))


class Pages(unittest.TestCase):

    @classmethod
    def setUpClass(cls):
        cls._folder = tempfile.TemporaryDirectory(prefix="zelvane-e2e-")
        cls.addClassCleanup(cls._folder.cleanup)
        cls.prefix = pathlib.Path(cls._folder.name) / "usr"
        subprocess.run(["cmake", "--install", BUILD, "--prefix", cls.prefix], check=True, stdout=subprocess.DEVNULL)
        cls.commands = commands()
        cls.options = {command: options(command) for command in cls.commands}

    def pages(self):
        folder = self.prefix / "share/man"
        return [folder / language / "man1" / f"{name}.1.gz" for language in ("", "fr") for name in ("zelvane", "zelvane-cli")]

    def test_the_help_is_understood_here(self):
        self.assertGreaterEqual(len(self.commands), 17)
        self.assertIn("--select", self.options["lend"])
        self.assertEqual(self.commands["column move"], ["ENTREE", "SORTIE", "N", "left|right"])

    def test_the_pages_are_laid_out_without_a_complaint(self):
        for page in self.pages():
            with self.subTest(page=page):
                done = subprocess.run(["man", "--warnings", "-E", "UTF-8", "-l", "-Tutf8", "-Z", page], check=True,
                                      capture_output=True, text=True, env={**os.environ, "LC_ALL": "C.UTF-8"})
                self.assertEqual(done.stderr, "")
                self.assertIn(page.name.partition(".")[0], said("lexgrog", page))

    def test_the_pages_name_all_commands_and_options(self):
        every = set().union(*self.options.values())
        for page in self.pages()[1::2]:
            text = gzip.decompress(page.read_bytes()).decode().replace("\\-", "-")
            with self.subTest(page=page):
                told = re.findall(r'^\.BI "?([a-z]+(?: [a-z]+)?)"? " (?:[A-Z])', text, re.MULTILINE)
                self.assertEqual(sorted(told), sorted(self.commands))
                self.assertEqual(set(re.findall(r"^\.TP\n\.BI? (--[a-z-]+)", text, re.MULTILINE)), every)

    def offered(self, line):
        """What bash offers behind a line."""
        words = line.split(" ")
        script = f"""
            source {BASH_COMPLETION}
            source {self.prefix}/share/bash-completion/completions/zelvane-cli
            COMP_LINE=$1; COMP_POINT=${{#COMP_LINE}}; shift
            COMP_WORDS=("$@"); COMP_CWORD=$(($# - 1))
            _zelvane_cli
            printf '%s\\n' "${{COMPREPLY[@]}}"
        """
        return set(said("bash", "--norc", "-c", script, "bash", line, *words, cwd=SOURCES / "examples").split())

    def test_bash_offers_the_commands(self):
        first = {command.split()[0] for command in self.commands}
        self.assertEqual(self.offered("zelvane-cli "), first | {"--help", "--version"})
        second = {command.split()[1] for command in self.commands if " " in command}
        self.assertEqual(self.offered("zelvane-cli column "), second | {"--help"})
        self.assertEqual(self.offered("zelvane-cli column me"), {"merge"})

    def test_bash_offers_the_options_of_a_command(self):
        for command, known in self.options.items():
            with self.subTest(command=command):
                self.assertEqual(self.offered(f"zelvane-cli {command} --"), known | {"--help"})

    def test_bash_offers_values_and_files(self):
        self.assertEqual(self.offered("zelvane-cli export --as "), {"html-images", "html", "text", "csv", "tab"})
        self.assertEqual(self.offered("zelvane-cli convert --format "), {"2", "1.4"})
        self.assertEqual(self.offered("zelvane-cli column move a.qrt b.qrt 2 "), {"left", "right"})
        self.assertIn("discotheque.qrt", self.offered("zelvane-cli list disco"))

    def test_zsh_is_told_the_same(self):
        path = self.prefix / "share/zsh/vendor-completions/_zelvane-cli"
        subprocess.run(["zsh", "-n", path], check=True)
        text = path.read_text(encoding="utf-8")
        named = re.findall(r"^        '([a-z]+):", text, re.MULTILINE)
        first = {command.split()[0] for command in self.commands}
        second = {command.split()[1] for command in self.commands if " " in command}
        self.assertEqual(set(named), first | second)
        self.assertEqual(set(re.findall(r"'(--[a-z-]+)\[", text)),
                         set().union(*self.options.values()) | {"--help", "--version"})
