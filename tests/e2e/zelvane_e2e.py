"""Drives the built program from outside, as a person does: a screen of its own, a bus of its own, settings of its own.

A test module starts one `Session` (a virtual display, a private session bus and its accessibility bus) and each test
starts the program in it. Widgets are found by role and name over AT-SPI, always with a time limit; clicks and keys are
those of an X server. When a test fails, a picture of the screen and what the program said are kept.

Run with /usr/bin/python3, where python3-pyatspi is installed. The environment names what is tested:
ZELVANE_E2E_PROGRAM (the executable), ZELVANE_E2E_SOURCES (the root of the sources), ZELVANE_E2E_PICTURES (a folder),
ZELVANE_E2E_INSTANCE (instance_essai, a small program that meets others as the program does), ZELVANE_E2E_DRAG
(glisser_essai, another program of the desktop, from and to which texts are dragged).
"""
import os
import pathlib
import shutil
import signal
import subprocess
import tempfile
import time
import unittest
import zipfile

PROGRAM = pathlib.Path(os.environ["ZELVANE_E2E_PROGRAM"]).resolve()
SOURCES = pathlib.Path(os.environ["ZELVANE_E2E_SOURCES"])
PICTURES = pathlib.Path(os.environ["ZELVANE_E2E_PICTURES"])
INSTANCE = os.environ["ZELVANE_E2E_INSTANCE"]
EXAMPLES = SOURCES / "examples"

#: How long anything may take before the test gives up, in seconds: far longer than a busy machine stands still.
PATIENCE = 60.0

#: The roles of windows that keys go to.
WINDOWS = ("frame", "dialog", "alert", "file chooser")


class TimeLimit(AssertionError):
    """What was waited for did not happen."""


def wait_until(condition, what, limit=PATIENCE):
    """Calls `condition` until it returns something true, and returns that. `what` completes "waited in vain for"."""
    deadline = time.monotonic() + limit
    while True:
        found = condition()
        if found:
            return found
        if time.monotonic() > deadline:
            raise TimeLimit(f"waited in vain for {what}")
        time.sleep(0.05)


class Session:
    """A screen, a bus and an accessibility bus. One a process: the AT-SPI library keeps its first connection."""

    #: How the program reaches the screen.
    platform = {"QT_QPA_PLATFORM": "xcb"}

    def __init__(self, width=1280, height=800):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="zelvane-e2e-"))
        self._processes = []
        read, write = os.pipe()
        # A server that resets when its last client goes turns away who comes at that moment. One that repeats keys that
        # are held presses them anew where the machine stands still before they are let go.
        self._start(["Xvfb", "-displayfd", str(write), "-screen", "0", f"{width}x{height}x24", "-nolisten", "tcp",
                     "-noreset", "-r"], pass_fds=[write])
        os.close(write)
        with os.fdopen(read) as answer:
            os.environ["DISPLAY"] = ":" + answer.readline().strip()
        # Without one, no window is the active one, and shortcuts go nowhere.
        self._start(["openbox", "--sm-disable"], stdout=subprocess.DEVNULL)
        wait_until(self._has_window_manager, "the window manager")
        bus = self._start(["dbus-daemon", "--session", "--nofork", "--print-address=1"], stdout=subprocess.PIPE)
        os.environ["DBUS_SESSION_BUS_ADDRESS"] = bus.stdout.readline().decode().strip()
        for name in ("WAYLAND_DISPLAY", "AT_SPI_BUS_ADDRESS", "SESSION_MANAGER"):
            os.environ.pop(name, None)
        import pyatspi  # not before the buses are there: it connects at once
        self.atspi = pyatspi
        # Trees that change while they are read are read again, so a slow answer must not become a hang.
        pyatspi.Atspi.set_timeout(5000, 15000)

    @staticmethod
    def _has_window_manager():
        # It names a window of its own on the root once it manages those of others.
        said = subprocess.run(["xprop", "-root", "_NET_SUPPORTING_WM_CHECK"], stdout=subprocess.PIPE, text=True).stdout
        return "window id" in said

    def _start(self, command, **how):
        process = subprocess.Popen(command, stderr=subprocess.DEVNULL, start_new_session=True, **how)
        self._processes.append(process)
        return process

    def close(self):
        for process in reversed(self._processes):
            process.terminate()
            process.wait()
            if process.stdout:
                process.stdout.close()
        shutil.rmtree(self.folder, ignore_errors=True)

    def new_home(self):
        """A home folder in which the program was never started."""
        return pathlib.Path(tempfile.mkdtemp(prefix="home-", dir=self.folder))

    def settle_pointer(self):
        """Has the pointer where the X server has it, for whoever moves it next."""

    def colour(self, x, y):
        """The colour of one point of the screen: "#RRGGBB"."""
        done = subprocess.run(["import", "-silent", "-window", "root", "-crop", f"1x1+{x}+{y}", "-depth", "8", "rgb:-"],
                              check=True, stdout=subprocess.PIPE)
        return "#" + done.stdout.hex().upper()

    def picture(self, path):
        """Saves what is on the screen."""
        path.parent.mkdir(parents=True, exist_ok=True)
        subprocess.run(["import", "-silent", "-window", "root", str(path)], check=True)


class WaylandSession(Session):
    """The same with a Wayland compositor that covers the screen. The frame of the program covers it, too, so that places in
    the frame are those on the screen; dialogs lie where the compositor wills, which nobody is told: keys reach them."""

    def __init__(self, width=1280, height=800):
        super().__init__(width, height)
        socket = self.folder / "wayland"
        self._start(["weston", "--backend=x11-backend.so", "--shell=kiosk-shell.so", "--use-pixman", "--no-config",
                     f"--width={width}", f"--height={height}", "--fullscreen", f"--socket={socket.name}"],
                    stdout=subprocess.DEVNULL, env=os.environ | {"XDG_RUNTIME_DIR": str(self.folder)})
        wait_until(socket.exists, "the compositor")
        # An empty name of the X screen keeps the program from it, as a session without one does.
        self.platform = {"QT_QPA_PLATFORM": "wayland", "WAYLAND_DISPLAY": str(socket), "DISPLAY": ""}

    def settle_pointer(self):
        # The compositor moves its pointer as far as that of the X server moves, and may have begun elsewhere. In the corner
        # both stop.
        xdotool("mousemove", 0, 0)


class Widget:
    """One accessible object of the program."""

    def __init__(self, program, accessible):
        self._program = program
        self._accessible = accessible

    @property
    def name(self):
        return self._accessible.name

    @property
    def text(self):
        """What stands in a field to type in."""
        return self._accessible.queryText().getText(0, -1)

    @property
    def role(self):
        return self._accessible.getRoleName()

    def has(self, state):
        """True when the widget is in a state: "showing", "enabled", "checked", "focused" ..."""
        wanted = getattr(self._program.session.atspi, "STATE_" + state.upper())
        return self._accessible.getState().contains(wanted)

    def children(self):
        return [Widget(self._program, child) for child in self._accessible if child is not None]

    def above(self):
        """What holds it."""
        return Widget(self._program, self._accessible.parent)

    def find(self, **what):
        return self._program.find(inside=self, **what)

    def area(self):
        """x, y, width and height on the screen."""
        box = self._accessible.queryComponent().getExtents(self._program.session.atspi.DESKTOP_COORDS)
        return box.x, box.y, box.width, box.height

    def click(self, button=1):
        self._program.await_ready()
        # What was pressed before may free it only in a moment.
        wait_until(lambda: self.has("enabled"), f"the {self.role} '{self.name}' to be enabled")
        x, y, width, height = self.area()
        click_at(x + width // 2, y + height // 2, button)

    # A table, seen by rows and columns that count from 0.

    def row_count(self):
        return self._accessible.queryTable().nRows

    def titles(self):
        table = self._accessible.queryTable()
        return [table.getColumnDescription(column) for column in range(table.nColumns)]

    def cell(self, row, column):
        return Widget(self._program, self._accessible.queryTable().getAccessibleAt(row, column))

    def title_area(self, column):
        """Where the title of a column is, above the first row."""
        x, y, width, _ = self.cell(0, column).area()
        top = self.area()[1]
        return x, top, width, y - top

    def click_title(self, column):
        self._program.await_ready()
        x, y, width, height = self.title_area(column)
        click_at(x + width // 2, y + height // 2)

    def row(self, row):
        return [self.cell(row, column).name for column in range(self._accessible.queryTable().nColumns)]


class Program:
    """The program, started with a command line, in a home folder of its own or in one where it ran before."""

    def __init__(self, session, *arguments, home=None, runtime=None, environment=None, executable=PROGRAM):
        self.session = session
        self.home = home or session.new_home()
        self._runtime = runtime or self.home / "runtime"
        # The last that a start does is to make it where there is none.
        self._settings_file = self.home / "programme" / "Zelvane.ini"
        self._settings_file.unlink(missing_ok=True)
        self._ready = False
        self.log = pathlib.Path(tempfile.mkstemp(prefix="said-", suffix=".txt", dir=self.home)[1])
        with self.log.open("wb") as said:
            self._process = subprocess.Popen([str(executable), *map(str, arguments)],
                                             env=self._environment() | (environment or {}), cwd=self.home,
                                             stdin=subprocess.DEVNULL, stdout=said, stderr=said)

    def _environment(self):
        folders = {
            "HOME": self.home,
            "XDG_CONFIG_HOME": self.home / "config",
            "XDG_DATA_HOME": self.home / "data",
            "XDG_CACHE_HOME": self.home / "cache",
            "XDG_RUNTIME_DIR": self._runtime,
            "ZELVANE_DOSSIER": self.home / "programme",
            "TMPDIR": self.home / "tmp",
        }
        for folder in folders.values():
            folder.mkdir(mode=0o700, exist_ok=True)
        return {
            **{name: value for name, value in os.environ.items() if not name.startswith(("QT_", "XDG_", "LC_", "LANG"))},
            **{name: str(folder) for name, folder in folders.items()},
            "LC_ALL": "C.UTF-8",
            "TZ": "UTC",
            **self.session.platform,
            "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1",
        }

    @property
    def running(self):
        return self._process.poll() is None

    def _root(self):
        """The program on the accessibility bus, once it is there."""
        if not self.running:
            raise AssertionError(f"the program ended with status {self._process.returncode}")
        for application in self.session.atspi.Registry.getDesktop(0):
            if application is not None and application.get_process_id() == self._process.pid:
                # Asked anew each time: the cache is only kept up to date where an event loop runs.
                application.set_cache_mask(self.session.atspi.Atspi.Cache.NONE)
                return Widget(self, application)
        return None

    def find_all(self, role=None, name=None, table=False, inside=None):
        """Every widget that shows and has the role and the name (each a text, or a function that judges one)."""
        found = []
        start = inside or self._root()
        ahead = [start] if start else []
        while ahead:
            widget = ahead.pop(0)
            try:
                # What a hidden widget holds is hidden too: the menus alone are a hundred widgets.
                if widget is not start and not widget.has("showing"):
                    continue
                if self._fits(widget, role, name, table):
                    found.append(widget)
                # A table has a child for each cell: those are reached by row and column.
                if "Table" not in self.session.atspi.listInterfaces(widget._accessible):
                    ahead.extend(widget.children())
            except self._gone():
                continue
        return found

    @staticmethod
    def _fits(widget, role, name, table):
        for wanted, has in [(role, lambda: widget.role), (name, lambda: widget.name)]:
            if wanted is not None and not (wanted(has()) if callable(wanted) else has() == wanted):
                return False
        # A list has the interface of a table, too.
        if table and (widget.role == "list"
                      or "Table" not in widget._program.session.atspi.listInterfaces(widget._accessible)):
            return False
        return widget.has("showing")

    @staticmethod
    def _gone():
        """What AT-SPI raises for a widget that went while its tree was read."""
        from gi.repository import GLib
        return (GLib.GError, LookupError, NotImplementedError)

    def find(self, role=None, name=None, table=False, inside=None, limit=PATIENCE):
        """The first such widget, waited for. One in a dialog is there once the keys go to that dialog."""
        what = f"a {role if isinstance(role, str) else 'widget'}" + (f" named '{name}'" if isinstance(name, str) else "")

        def first():
            found = self.find_all(role, name, table, inside)
            return found[0] if found and self._takes_keys(found[0]) else None

        return wait_until(first, what, limit)

    def _takes_keys(self, widget):
        """False while the widget's dialog is not active."""
        try:
            while widget.role not in WINDOWS:
                above = widget._accessible.parent
                if above is None:
                    return True
                widget = Widget(self, above)
            return widget.role == "frame" or widget.has("active")
        except self._gone():
            return False

    def table(self):
        """The table that shows."""
        return self.find(table=True)

    def texts(self):
        """The texts of all labels that show."""
        return [label.name for label in self.find_all(role="label")]

    def window_titles(self):
        """The titles of the program's windows on the screen, as the X server has them."""
        windows = xdotool("search", "--onlyvisible", "--pid", self._process.pid, "--name", ".", check=False).split()
        return [xdotool("getwindowname", window, check=False).strip() for window in windows]

    def await_window(self, title):
        """Waits until the keys go to the window of a title: much faster than looking for a widget in it. Returns its
        number: a moment later another window may have them, or none while it changes."""

        def active():
            window = xdotool("getactivewindow", check=False).strip()
            return window and xdotool("getwindowname", window, check=False).strip() == title and window

        return wait_until(active, f"the window '{title}'")

    def await_frame(self):
        """Waits until the program knows that keys go to its frame: the last dialog goes a moment before that."""
        wait_until(self._frame_has_the_keys, "the frame to have the keys")

    def _frame_has_the_keys(self):
        root = self._root()
        try:
            return root and any(window.role == "frame" and window.has("active") for window in root.children())
        except self._gone():
            return False

    def await_ready(self):
        """Waits until the program is ready for the first key or click: its start is over, or a dialog of it waits for
        an answer. Its windows are on the screen, and the window manager calls one of them active, a moment before they
        have their places and the program knows of that itself: what is pressed until then is lost."""
        if not self._ready:
            wait_until(self._takes_the_first_key, "the end of the start")
            self.session.settle_pointer()
            self._ready = True

    def _takes_the_first_key(self):
        root = self._root()
        try:
            return root and any(window.has("active") and (window.role != "frame" or self._settings_file.exists())
                                and self.find_all(role="push button", inside=window) for window in root.children())
        except self._gone():
            return False

    def type(self, text):
        self.await_ready()
        xdotool("type", "--delay", 20, text)

    def type_lines(self, texts):
        """Types texts fast, with Enter after each."""
        self.await_ready()
        xdotool(*(part for text in texts for part in ("type", "--delay", 4, "--args", 1, text, "key", "Return")))

    def key(self, *keys):
        """Presses keys by their X names: "Return", "ctrl+a" ..."""
        self.await_ready()
        xdotool("key", "--delay", 40, *keys)

    def menu(self, *names):
        """Walks through menus by the names of their items and clicks the last."""
        for depth, name in enumerate(names):
            self.find(role="menu item" if depth else None, name=name).click()

    def comments(self):
        """The dialog of the comments, which greets who opens a catalogue that has some."""
        return self.find(role="dialog", name=lambda name: name.startswith("Commentaires ("))

    def close_comments(self):
        """Reads the comments that greet, closes them, and returns their text."""
        text = self.comments().find(role="text").text
        self.key("Escape")
        wait_until(lambda: not self.find_all(role="dialog"), "the end of the comments")
        self.await_frame()
        return text

    def settings(self):
        """The named settings as they are stored, keys in lower case."""
        found = {}
        for path in (self.home / "config").rglob("*.ini"):
            for line in path.read_text().splitlines():
                name, equals, value = line.partition("=")
                if equals:
                    found[name.lower()] = value
        return found

    def send(self, sent):
        """Sends the process a signal."""
        self._process.send_signal(sent)

    def await_stop(self):
        """Waits until the process stands still, as by SIGSTOP."""
        state = lambda: pathlib.Path(f"/proc/{self._process.pid}/stat").read_text().rpartition(")")[2].split()[0]
        wait_until(lambda: state() == "T", "the process to stop")

    def kill(self):
        """Ends the process as a crash or a power cut does."""
        self._process.kill()
        self._process.wait()

    def wait_for_end(self, limit=PATIENCE):
        """The exit status of the program, which ends by itself."""
        return self._process.wait(limit)

    def tree(self):
        """The widgets that show, indented, for a failing test."""
        lines = []

        def add(widget, depth):
            try:
                lines.append(f"{'  ' * depth}{widget.role} '{widget.name}'")
                if "Table" not in self.session.atspi.listInterfaces(widget._accessible):
                    for child in widget.children():
                        if child.has("showing"):
                            add(child, depth + 1)
            except self._gone():
                lines.append("  " * depth + "(gone)")

        root = self._root() if self.running else None
        if root:
            add(root, 0)
        return "\n".join(lines)

    def close(self):
        if self.running:
            self._process.send_signal(signal.SIGTERM)
            try:
                self._process.wait(5)
            except subprocess.TimeoutExpired:
                self._process.kill()
                self._process.wait()


def read_catalogue(path):
    """The titles and the entries' values of a catalogue file of either form, read without the program's help."""
    if zipfile.is_zipfile(path):
        with zipfile.ZipFile(path) as archive:
            text = archive.read("Zelvane.qrt")
    else:
        text = path.read_bytes()
    lines = text.decode("cp1252").split("\r\n")
    count = int(lines[12].partition("=")[2])
    titles = [line.partition("=")[2].split("|")[0] for line in lines[13:13 + count]]
    first = lines.index("[ListItems]") + 2
    entries = [line.partition("=")[2].split("|")[:count] for line in lines[first:] if line]
    return titles, entries


def write_catalogue(path, titles, entries, width=2000, dependant=0):
    """Writes a catalogue of the bare form, without the program's help. Nothing in it brings up a question. `dependant`: the
    number of its dependant column."""
    head = ["[FileInfo]", "Type=QRT FILE", "Version=1.4", "", "[ListView]", "GridLines=1", "Sorted=0", "SortKey=0",
            "SortOrder=0", "View=3", "", "[ColumHeaders]", f"Count={len(titles)}"]
    columns = [f"Colum{i}={title}|{width}|" for i, title in enumerate(titles, 1)]
    lines = [f"It{i}={'|'.join(values)}|" for i, values in enumerate(entries, 1)]
    text = "\r\n".join([*head, *columns, f"Dependant={dependant}", "", "[ListItems]", f"Count={len(entries)}", *lines, ""])
    path.write_bytes(text.encode("cp1252"))
    return path


def xdotool(*arguments, check=True):
    """Runs xdotool and returns what it printed."""
    # Where a failure is no matter, a window that went meanwhile is none either.
    said = None if check else subprocess.DEVNULL
    done = subprocess.run(["xdotool", *map(str, arguments)], check=check, stdout=subprocess.PIPE, stderr=said, text=True)
    return done.stdout


def click_at(x, y, button=1):
    """Clicks at a place of the screen. Two clicks are no double click where the machine stands still between them: what
    is opened by one is opened by a key here."""
    xdotool("mousemove", x, y, "click", button)


def drag(x, y, to_x, to_y):
    """Drags with the left button from one place of the screen to another."""
    xdotool("mousemove", x, y, "mousedown", 1, "mousemove", (x + to_x) // 2, (y + to_y) // 2, "mousemove", to_x, to_y,
            "mouseup", 1)


class ProgramTest(unittest.TestCase):
    """A test that starts the program. The session is the module's: see main."""

    session = None
    kind = Session
    maxDiff = None

    @classmethod
    def setUpClass(cls):
        if ProgramTest.session is None:
            ProgramTest.session = cls.kind()
            unittest.addModuleCleanup(ProgramTest._end_session)

    @staticmethod
    def _end_session():
        ProgramTest.session.close()
        ProgramTest.session = None

    def start(self, *arguments, home=None, runtime=None, environment=None, executable=PROGRAM):
        """Starts the program; it is closed when the test ends. `home`: of a run before; `runtime`: of a session;
        `environment`: variables beside the usual ones; `executable`: a link to the program."""
        self.program = Program(self.session, *arguments, home=home, runtime=runtime, environment=environment,
                               executable=executable)
        self.addCleanup(self.program.close)
        return self.program

    def folder(self):
        """A folder of the test's own, gone when the session ends."""
        return pathlib.Path(tempfile.mkdtemp(dir=self.session.folder))

    def _callTestMethod(self, method):
        # The picture must be taken while the program still runs, that is before the cleanups.
        try:
            super()._callTestMethod(method)
        except Exception:
            picture = PICTURES / f"{self.id()}.png"
            self.session.picture(picture)
            print(f"\n{self.id()}: the screen is saved as {picture}")
            if hasattr(self, "program"):
                print(self.program.tree())
                print(self.program.log.read_text(errors="replace"))
            raise
