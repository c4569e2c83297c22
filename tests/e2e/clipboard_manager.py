"""A clipboard manager as desktops have one: it takes over the text on the clipboard when the program that holds it ends.

Prints a line when it is ready, and another one when it has taken a text over.
"""
from Xlib import X, Xatom, display
from Xlib.protocol import event


class Manager:

    def __init__(self):
        self._display = display.Display()
        self._window = self._display.screen().root.create_window(0, 0, 1, 1, 0, X.CopyFromParent)
        self._text = b""
        for name in ("CLIPBOARD", "CLIPBOARD_MANAGER", "SAVE_TARGETS", "TARGETS", "UTF8_STRING", "ZELVANE_TEXT"):
            setattr(self, name, self._display.get_atom(name))
        self._window.set_selection_owner(self.CLIPBOARD_MANAGER, X.CurrentTime)
        self._display.sync()
        print("ready", flush=True)

    def run(self):
        asked = None  # the request of the program that ends
        while True:
            happened = self._display.next_event()
            if happened.type == X.SelectionRequest and happened.selection == self.CLIPBOARD_MANAGER:
                asked = happened
                self._window.convert_selection(self.CLIPBOARD, self.UTF8_STRING, self.ZELVANE_TEXT, X.CurrentTime)
            elif happened.type == X.SelectionNotify and asked:
                self._take_over()
                self._answer(asked, asked.property)
                asked = None
                print("taken", flush=True)
            elif happened.type == X.SelectionRequest:
                self._give(happened)
            self._display.flush()

    def _take_over(self):
        found = self._window.get_full_property(self.ZELVANE_TEXT, X.AnyPropertyType)
        self._text = found.value if found else b""
        self._window.set_selection_owner(self.CLIPBOARD, X.CurrentTime)

    def _give(self, request):
        place = request.property or request.target
        if request.target == self.TARGETS:
            request.requestor.change_property(place, Xatom.ATOM, 32, [self.TARGETS, self.UTF8_STRING])
        elif request.target == self.UTF8_STRING:
            request.requestor.change_property(place, self.UTF8_STRING, 8, self._text)
        else:
            place = X.NONE
        self._answer(request, place)

    @staticmethod
    def _answer(request, place):
        request.requestor.send_event(event.SelectionNotify(
            time=request.time, requestor=request.requestor, selection=request.selection, target=request.target,
            property=place))


if __name__ == "__main__":
    Manager().run()
