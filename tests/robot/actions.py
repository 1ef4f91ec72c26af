"""What the robot does: each action is a handful of events, chosen and placed by chance."""

import os
import shutil

from inspector import FAULTS, SPLITTER, Inspector

WORDS = ["Vekora", "Hi there", "", "7", "255", "0", "360", "100", "-1", "1e9", "#00FF80", "00ff80", "0x12", "zzz",
         "a" * 70, "Wecker aus", "x y"]
PASTES = ["#123456", "Grüße", "שלום", "مرحبا", "日本語", "👍🏽", "two\nlines", "\ttab", "",
          "9" * 300, "\u202eback", "e\u0301"]
SINGLE_KEYS = ["Return", "Escape", "BackSpace", "Tab", "Left", "Right", "Up", "Down", "Home", "End", "Delete", "space",
               "Page_Up", "Page_Down", "F2", "a", "5", "KP_Enter"]
CHORDS = [("a", "Control_L"), ("c", "Control_L"), ("x", "Control_L"), ("v", "Control_L"), ("z", "Control_L"),
          ("Tab", "Shift_L"), ("Left", "Shift_L"), ("Right", "Control_L"), ("End", "Shift_L"), ("F12",),
          ("i", "Control_L"), ("r", "Control_L")]
SIZES = ["320x480", "320x568", "375x667", "414x736", "500x400", "1x1", "2000x320", "huge", "0x0", "375"]
LOCALES = ["en_US", "de_DE", "ar_EG", "he_IL", "ja_JP", "tr_TR", "fa_IR", "hi_IN", "xx_XX", "", "zh-Hant-TW"]
ZONES = ["UTC", "Europe/Berlin", "Asia/Kolkata", "America/St_Johns", "Atlantis"]
INSTANTS = ["real", "2014-01-05T10:17:42.6", "2014-03-30T02:30", "9999-12-31T23:59:59Z", "0001-01-01", "soon"]
SECONDS = ["60", "-3600", "0.5", "1e9", "1e99", "x"]

# What can be to blame for a file that is gone or halved: nothing in an action, or a button that it may push by chance
# on the inspector's page that is shown, or any button that the action may come to.
NOTHING, BUTTON_IN_SIGHT, ANY_BUTTON = range(3)
STATUS_LINE = 30


class Actions:
    def __init__(self, hand, looks, chance, folders):
        self.hand = hand
        self.looks = looks
        self.chance = chance
        self.folders = folders
        self.inspector = Inspector(hand, folders.inspector)
        self.broken = False
        self.faulty = False
        self.crashes = 0

    # The phone.

    def anywhere(self):
        """Mostly on the phone, which is at the left and at least so large."""
        width, height = self.hand.size()
        if self.chance.random() < 0.8:
            width = min(width, 375)
        return self.chance.randrange(width), self.chance.randrange(max(1, height - STATUS_LINE))

    def tap(self):
        self.hand.click(*self.anywhere(), times=self.chance.choice([1, 1, 1, 1, 2, 3]))

    def other_button(self):
        self.hand.click(*self.anywhere(), button=self.chance.choice([2, 3]))
        self.hand.key("Escape")

    def drag(self):
        points = [self.anywhere()]
        for _ in range(self.chance.randrange(1, 12)):
            points.append(self.anywhere() if self.chance.random() < 0.5 else
                          tuple(part + self.chance.randrange(-15, 16) for part in points[-1]))
        self.hand.drag(points)

    def wheel(self):
        self.hand.wheel(*self.anywhere(), self.chance.choice([-9, -3, -1, 1, 2, 5, 12]))

    def key(self):
        self.hand.key(self.chance.choice(SINGLE_KEYS))

    def chord(self):
        self.hand.key(*self.chance.choice(CHORDS))

    def type(self):
        self.hand.type(self.chance.choice(WORDS))
        if self.chance.random() < 0.5:
            self.hand.key("Return")

    def paste(self):
        self.hand.paste(self.chance.choice(PASTES))

    def edit_text(self):
        """The last row of the main page, when that is shown."""
        width, _ = self.hand.size()
        self.hand.key("Escape")
        self.hand.wheel(100, 200, 12)
        self.hand.click(min(width - 20, 300), 535)
        self.hand.key("a", "Control_L")
        self.chance.choice([self.type, self.paste])()
        self.hand.key("Return")

    def go_back(self):
        if self.chance.random() < 0.5:
            self.hand.key("Escape")
        else:
            self.hand.click(30, 40)

    def open_color_page(self):
        self.hand.key("Escape")
        self.hand.wheel(100, 200, -12)
        self.hand.click(100, 490)

    def edit_color(self):
        self.open_color_page()
        for _ in range(self.chance.randrange(1, 4)):
            x, y = self.chance.randrange(20, 350), self.chance.randrange(100, 600)
            self.hand.drag([(x, y)] + [(x + self.chance.randrange(-80, 81), y + self.chance.randrange(-80, 81))
                                       for _ in range(self.chance.randrange(1, 6))])

    def edit_value(self):
        """The hex value's dialog, or that of one of the numbers below it."""
        self.open_color_page()
        self.hand.click(self.chance.choice([60, 187, 187, 310]), self.chance.choice([119, 119, 150, 560, 590, 620]))
        self.hand.key("a", "Control_L")
        self.chance.choice([self.type, self.paste])()
        self.hand.key(self.chance.choice(["Return", "Return", "Escape", "Tab"]))

    def interrupt_drag(self):
        """Something happens while the finger is down."""
        points = [self.anywhere() for _ in range(4)]
        self.hand.move(*points[0])
        self.hand.press()
        self.hand.move(*points[1])
        self.chance.choice([self.resize, self.swap_bundle, self.mend_bundle, self.key, self.chord, self.paste,
                            lambda: self.hand.wheel(*points[2], 3)])()
        self.hand.move(*points[3])
        self.hand.release()
        self.hand.sync()

    def be_usual(self):
        """Where most of the pane is within reach."""
        self.inspector.enter("size", "375x667")
        for _ in range(2):
            self.inspector.step("scale", "Up")
        self.inspector.show(False)
        self.resize_back()

    # The window.

    def resize(self):
        self.hand.resize(self.chance.randrange(300, 1200), self.chance.randrange(300, 1100))

    def resize_back(self):
        self.hand.resize(375 + (SPLITTER + 560 if self.inspector.is_open() else 0), 667 + STATUS_LINE)

    # The inspector.

    def look_around_in_inspector(self):
        if not self.inspector.show(True):
            return
        width, height = self.hand.size()
        left = min(width - 1, max(0, width - 600))
        for _ in range(self.chance.randrange(1, 8)):
            at = self.chance.randrange(left, width), self.chance.randrange(height)
            self.chance.choice([
                lambda: self.hand.click(*at), lambda: self.hand.click(*at, times=2),
                lambda: self.hand.wheel(*at, self.chance.choice([-3, 3])), self.key, self.type
            ])()
            # A dialog is left at once, so that nothing in it is ever used.
            self.hand.put_in_order()

    def environment(self):
        chance = self.chance
        chance.choice([
            lambda: self.inspector.enter("size", chance.choice(SIZES)),
            lambda: self.inspector.step("scale", chance.choice(["Up", "Down"])),
            lambda: self.inspector.enter("locale", chance.choice(LOCALES)),
            lambda: self.inspector.enter("locale", chance.choice(LOCALES)),
            lambda: self.inspector.step("direction", chance.choice(["Up", "Down"])),
            lambda: self.inspector.enter("timezone", chance.choice(ZONES)),
            lambda: self.inspector.enter("now", chance.choice(INSTANTS)),
            lambda: self.inspector.enter("seconds", chance.choice(SECONDS)),
            lambda: self.inspector.push(chance.choice(["stand", "run", "move", "toggle", "statusbar", "anew"])),
        ])()

    def fault(self):
        name = self.chance.choice(FAULTS)
        if self.inspector.push(name):
            self.faulty = name != "off"
        self.inspector.show(self.chance.random() < 0.3)

    def mend_faults(self):
        if self.faulty and self.inspector.push("off"):
            self.faulty = False
            self.inspector.show(False)

    # The bundle, as builds leave it.

    def swap_bundle(self):
        good, target = self.folders.good, self.folders.bundle
        kind = self.chance.choice(["good", "good", "half module", "no module", "half list", "no folder",
                                   "crash"])
        module, info = os.path.join(target, "Vekora"), os.path.join(target, "Info.plist")
        self.hand.events += 1
        shutil.rmtree(target, ignore_errors=True)
        self.broken = kind != "good"
        if kind == "no folder":
            return
        shutil.copytree(good, target)
        if kind == "good":
            with open(module, "ab") as file:  # Another build, to whoever looks.
                file.write(bytes(self.chance.randrange(256) for _ in range(8)))
        elif kind == "half module":
            os.truncate(module, os.path.getsize(module) // 2)
        elif kind == "no module":
            os.remove(module)
        elif kind == "crash":
            self.crashes += 1
            shutil.copyfile(self.folders.crasher, module)
            self.hand.wait_for_start_anew("Vekora")
            # Whoever tries again now gets the same again.
            self.hand.key("Escape")
            self.hand.wheel(*self.anywhere(), 3)
            self.mend_bundle()
        elif kind == "half list":
            os.truncate(info, os.path.getsize(info) // 2)
        self.hand.sync()

    def mend_bundle(self):
        if self.broken:
            shutil.rmtree(self.folders.bundle, ignore_errors=True)
            shutil.copytree(self.folders.good, self.folders.bundle)
            self.broken = False

    # How often each is done, and what in it may lose the file or halve it.

    def faults_of(self, blame):
        """Whether the file may vanish, and whether it may be halved, by an action that begins now."""
        if blame == ANY_BUTTON:
            return True, True
        if blame == NOTHING or not self.inspector.is_open():
            return False, False
        # The file's page, which it begins with, can delete it; the environment's, with the faults, does either.
        page = self.inspector.memory()["page"]
        return page in ("", "file", "environment"), page == "environment"

    def table(self):
        return [
            (40, self.tap, BUTTON_IN_SIGHT), (16, self.drag, BUTTON_IN_SIGHT), (6, self.wheel, NOTHING),
            (8, self.key, BUTTON_IN_SIGHT), (4, self.chord, NOTHING), (5, self.type, BUTTON_IN_SIGHT),
            (4, self.paste, NOTHING), (3, self.edit_text, BUTTON_IN_SIGHT), (6, self.go_back, NOTHING),
            (6, self.open_color_page, BUTTON_IN_SIGHT), (2, self.other_button, NOTHING), (2, self.resize, NOTHING),
            (3, self.resize_back, NOTHING), (2, self.look_around_in_inspector, ANY_BUTTON),
            (3, self.environment, ANY_BUTTON), (2, self.fault, ANY_BUTTON), (4, self.mend_faults, ANY_BUTTON),
            (1, self.swap_bundle, NOTHING), (6, self.mend_bundle, NOTHING), (20, self.edit_color, BUTTON_IN_SIGHT),
            (8, self.edit_value, BUTTON_IN_SIGHT), (6, self.interrupt_drag, BUTTON_IN_SIGHT),
            (1, self.be_usual, ANY_BUTTON),
        ]
