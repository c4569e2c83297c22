"""The program turns dark and light with the desktop's preference, while it runs."""
import os
import pathlib
import threading

from zelvane_e2e import ProgramTest, wait_until, write_catalogue

PICTURES = os.environ.get("COULEURS_IMAGES")
PORTAL = """
<node><interface name="org.freedesktop.portal.Settings">
  <method name="Read"><arg type="s" direction="in"/><arg type="s" direction="in"/><arg type="v" direction="out"/></method>
  <signal name="SettingChanged"><arg type="s"/><arg type="s"/><arg type="v"/></signal>
</interface></node>"""
PATH = "/org/freedesktop/portal/desktop"
COLOURS = ("org.freedesktop.appearance", "color-scheme")


class Portal:
    """The settings portal of the session, as far as the colours go."""

    def __init__(self, scheme):
        from gi.repository import Gio, GLib  # not before the bus is there
        self._glib = GLib
        self.scheme = scheme
        self._context = GLib.MainContext()
        self._loop = GLib.MainLoop.new(self._context, False)
        self._there = threading.Event()

        def serve():
            self._context.push_thread_default()
            self._bus = Gio.bus_get_sync(Gio.BusType.SESSION)
            self._bus.register_object(PATH, Gio.DBusNodeInfo.new_for_xml(PORTAL).interfaces[0], self._answer)
            self._bus.call_sync("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "RequestName",
                                GLib.Variant("(su)", ("org.freedesktop.portal.Desktop", 0)), None, 0, -1)
            self._there.set()
            self._loop.run()

        self._thread = threading.Thread(target=serve, daemon=True)
        self._thread.start()
        self._there.wait()

    def _answer(self, bus, sender, path, interface, method, arguments, invocation):
        if arguments.unpack() == COLOURS:
            value = self._glib.Variant("v", self._glib.Variant("u", self.scheme))
            invocation.return_value(self._glib.Variant("(v)", (value,)))
        else:
            invocation.return_dbus_error("org.freedesktop.portal.Error.NotFound", "not here")

    def change(self, scheme):
        self.scheme = scheme
        self._bus.emit_signal(None, PATH, "org.freedesktop.portal.Settings", "SettingChanged",
                              self._glib.Variant("(ssv)", (*COLOURS, self._glib.Variant("u", scheme))))

    def close(self):
        self._loop.quit()
        self._thread.join()


class Colours(ProgramTest):

    def await_dark(self, dark):
        """Waits until the empty part of the table is dark, or light."""
        x, y, width, height = self.program.table().area()
        light = lambda: int(self.session.colour(x + width // 2, y + height - 40)[1:3], 16) > 128
        wait_until(lambda: light() != dark, "dark windows" if dark else "light windows")

    def test_the_windows_follow_the_preference(self):
        path = write_catalogue(self.folder() / "disques.qrt", ["Titre", "Prêté"], [["Abbey Road", ""]])
        portal = Portal(1)
        self.addCleanup(portal.close)
        self.start(path)
        self.await_dark(True)
        self.program.menu("Fichier")
        self.program.find(role="menu item", name=str(path))
        if PICTURES:
            self.session.picture(pathlib.Path(PICTURES) / "sombre.png")
        self.program.key("Escape")
        portal.change(2)
        self.await_dark(False)
        portal.change(1)
        self.await_dark(True)
        portal.change(0)
        self.await_dark(False)
