"""A hand that uses one program's window on a private X server through the XTEST extension. Nothing waits for time to
pass: after each event the program is asked for a sign of life, which it gives when it has come to it in its queue."""

import os
import select
import time

from Xlib import X, XK, Xatom, display, error
from Xlib.ext import xtest
from Xlib.protocol import event

DEADLINE = 120  # Seconds; only a program that hangs takes as long.


class Failure(Exception):
    """What the program under test did wrong, in one sentence."""


class Hand:
    """Mouse, keyboard, clipboard and window manager of one program, which runs as `process`. `look` is called again and
    again while the program works."""

    def __init__(self, name, look, process):
        self.display = display.Display(name)
        self.screen = self.display.screen()
        self.root = self.screen.root
        self.look = look
        self.process = process
        self.events = 0
        self.window = None
        self.clipboard = ""
        self.pings = 0
        self.down = False
        self.root.change_attributes(event_mask=X.SubstructureNotifyMask | X.StructureNotifyMask)
        self.own = self.root.create_window(0, 0, 1, 1, 0, self.screen.root_depth)
        self.keys = {}

    def atom(self, name):
        return self.display.intern_atom(name)

    # The program's windows.

    def wait_for_window(self, title):
        while not self.window:
            for child in self.top_levels():
                if title in (child.get_wm_name() or ""):
                    self.window = child
            if not self.window:
                self.handle_events(lambda got: got.type in (X.MapNotify, X.PropertyNotify))
        self.focus()
        self.sync()

    def wait_for_start_anew(self, title):
        """Until the program has gone down and come back, be it with a window of the same number."""
        self.handle_events(lambda got: got.type == X.DestroyNotify and got.window.id == self.window.id)
        self.window = None
        self.wait_for_window(title)

    def top_levels(self):
        """Windows that a window manager would manage, topmost last."""
        found = []
        for child in self.root.query_tree().children:
            try:
                attributes = child.get_attributes()
                if attributes.map_state == X.IsViewable and not attributes.override_redirect:
                    found.append(child)
            except error.BadWindow:
                pass  # It has just gone.
        return found

    def dialogs(self):
        return [window for window in self.top_levels() if window.id != self.window.id]

    def popups(self):
        found = []
        for child in self.root.query_tree().children:
            try:
                attributes = child.get_attributes()
                if attributes.map_state == X.IsViewable and attributes.override_redirect:
                    found.append(child)
            except error.BadWindow:
                pass
        return found

    def focus(self):
        self.window.set_input_focus(X.RevertToPointerRoot, X.CurrentTime)

    def has_focus(self):
        focus = self.display.get_input_focus().focus
        return not isinstance(focus, int) and focus.id == self.window.id

    def put_in_order(self):
        """Nothing modal in the way, and the keys are the window's."""
        for _ in range(20):
            if not self.dialogs() and not self.popups():
                break
            self.key("Escape")
        if self.dialogs():
            raise Failure("A dialog does not close.")
        if not self.has_focus():
            self.focus()
            self.sync()

    def size(self):
        geometry = self.window.get_geometry()
        return geometry.width, geometry.height

    def resize(self, width, height):
        self.events += 1
        self.window.configure(width=width, height=height)
        self.sync()

    def picture(self, x, y, width, height):
        return self.window.get_image(x, y, width, height, X.ZPixmap, 0xFFFFFFFF).data

    # Signs of life.

    def sync(self):
        # An answer may overtake what was sent just before it and waits in the toolkit's own queue; one that is given
        # after the program has gone to sleep can't.
        for _ in range(2):
            self.pings += 1
            number = self.pings
            ping = event.ClientMessage(window=self.window, client_type=self.atom("WM_PROTOCOLS"),
                                       data=(32, [self.atom("_NET_WM_PING"), number, self.window.id, 0, 0]))
            self.window.send_event(ping)
            self.handle_events(lambda got: self.is_pong(got, number))
            self.wait_for_sleep()

    def wait_for_sleep(self):
        end = time.monotonic() + DEADLINE
        while self.process.poll() is None and time.monotonic() < end:
            with open(f"/proc/{self.process.pid}/task/{self.process.pid}/stat", encoding="utf-8") as file:
                if file.read().rsplit(")", 1)[1].split()[0] == "S":
                    return
            self.look()

    def is_pong(self, got, number):
        if got.type != X.ClientMessage or got.client_type != self.atom("WM_PROTOCOLS"):
            return False
        return got.data[1][0] == self.atom("_NET_WM_PING") and got.data[1][1] == number

    def handle_events(self, is_wanted):
        """Until one is wanted. Meanwhile the clipboard is served."""
        end = time.monotonic() + DEADLINE
        while True:
            while self.display.pending_events():
                got = self.display.next_event()
                if got.type == X.SelectionRequest:
                    self.give_clipboard(got)
                elif is_wanted(got):
                    return
            self.look()
            if self.process.poll() is not None:
                raise Failure("The program has ended.")
            if time.monotonic() > end:
                raise Failure("The program does not answer.")
            select.select([self.display], [], [], 0.002)

    def give_clipboard(self, request):
        targets, text = self.atom("TARGETS"), self.atom("UTF8_STRING")
        place = request.property or request.target
        if request.target == targets:
            request.requestor.change_property(place, Xatom.ATOM, 32, [targets, text])
        elif request.target == text:
            request.requestor.change_property(place, text, 8, self.clipboard.encode())
        else:
            place = X.NONE
        request.requestor.send_event(event.SelectionNotify(time=request.time, requestor=request.requestor,
                                                           selection=request.selection, target=request.target,
                                                           property=place))
        self.display.flush()

    # Events.

    def fake(self, kind, detail=0, x=0, y=0):
        self.events += 1
        xtest.fake_input(self.display, kind, detail, x=x, y=y)
        self.display.flush()

    def move(self, x, y):
        origin = self.window.get_geometry()
        self.fake(X.MotionNotify, x=origin.x + int(x), y=origin.y + int(y))

    def press(self, button=1):
        self.down = button == 1
        self.fake(X.ButtonPress, button)

    def release(self, button=1):
        self.down = False
        self.fake(X.ButtonRelease, button)

    def click(self, x, y, button=1, times=1):
        self.move(x, y)
        for _ in range(times):
            self.press(button)
            self.release(button)
        self.sync()

    def wheel(self, x, y, steps):
        self.move(x, y)
        for _ in range(abs(steps)):
            self.press(5 if steps > 0 else 4)
            self.release(5 if steps > 0 else 4)
        self.sync()

    def drag(self, points):
        self.move(*points[0])
        self.press()
        self.sync()
        for point in points[1:]:
            self.move(*point)
            self.sync()
        self.release()
        self.sync()

    def key(self, name, *modifiers):
        self.key_without_answer(name, *modifiers)
        self.sync()

    def key_without_answer(self, name, *modifiers):
        code, shifted = self.code(name)
        held = [self.code(modifier)[0] for modifier in modifiers]
        if shifted:
            held.append(self.code("Shift_L")[0])
        for modifier in held:
            self.fake(X.KeyPress, modifier)
        self.fake(X.KeyPress, code)
        self.fake(X.KeyRelease, code)
        for modifier in reversed(held):
            self.fake(X.KeyRelease, modifier)

    def code(self, name):
        if name not in self.keys:
            symbol = XK.string_to_keysym(name) or ord(name)
            code = self.display.keysym_to_keycode(symbol)
            if not code:
                raise ValueError(f"no key {name}")
            self.keys[name] = code, self.display.keycode_to_keysym(code, 0) != symbol
        return self.keys[name]

    def type(self, text):
        for character in text:
            self.key(character)

    def paste(self, text):
        self.clipboard = text
        self.own.set_selection_owner(self.atom("CLIPBOARD"), X.CurrentTime)
        self.key("v", "Control_L")


def private_folders(scratch):
    """An environment in which nothing is anybody's own."""
    environment = {"PATH": os.path.join(scratch, "bin"), "LANG": "C.UTF-8"}
    for name in ("ASAN_OPTIONS", "LSAN_OPTIONS", "UBSAN_OPTIONS"):
        if name in os.environ:
            environment[name] = os.environ[name]
    for name, folder in (("HOME", "home"), ("XDG_RUNTIME_DIR", "runtime"), ("XDG_CONFIG_HOME", "config"),
                         ("XDG_DATA_HOME", "data"), ("XDG_CACHE_HOME", "cache")):
        environment[name] = os.path.join(scratch, folder)
        os.mkdir(environment[name], 0o700)
    os.mkdir(environment["PATH"])
    return environment
