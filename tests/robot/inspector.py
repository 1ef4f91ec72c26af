"""The inspector in the window: how the robot opens it and gets at its controls."""

SPLITTER = 5

FAULTS = ["write", "vanish", "readonly", "half-written", "off"]
# The controls of the page Environment in the order in which Tab goes through them.
CONTROLS = ["size", "scale", "locale", "direction", "timezone", "now", "stand", "run", "seconds", "move", "toggle",
            "statusbar", "anew"] + FAULTS
FIRST_CONTROL = 250, 77  # In the inspector, in pixels, while the page is scrolled to its top.


class Inspector:
    def __init__(self, hand, path):
        """`path` is that of the file by which the inspector is remembered."""
        self.hand = hand
        self.path = path
        self.tab = 40

    def memory(self):
        entries = {"shown": "false", "page": ""}
        try:
            with open(self.path, encoding="utf-8") as file:
                entries.update(line.strip().split("=", 1) for line in file if "=" in line)
        except FileNotFoundError:
            pass
        return entries

    def is_open(self):
        return self.memory()["shown"] == "true"

    def show(self, shown):
        """Answers whether it is as wished; something may be in the way."""
        for _ in range(3):
            if self.is_open() == shown:
                return True
            self.hand.put_in_order()
            self.hand.key("i", "Control_L")
        return self.is_open() == shown

    def open_page(self, name):
        """Where the inspector begins, with that page in it; nothing when it can't be had."""
        for _ in range(12):
            if not self.show(False):
                return None
            left = self.hand.size()[0] + SPLITTER
            page = self.memory()["page"]
            if not self.show(True):
                return None
            if page == name:
                return left
            self.hand.click(left + self.tab, 14)
            if self.memory()["page"] != name:
                self.tab = 40 if self.tab > 420 else self.tab + 40
        return None

    def reach(self, name):
        """The keys go to that control of the page Environment; false when it can't be had."""
        left = self.open_page("environment")
        if left is None:
            return False
        self.hand.wheel(left + 6, 77, -30)
        self.hand.click(left + FIRST_CONTROL[0], FIRST_CONTROL[1])
        for _ in range(CONTROLS.index(name)):
            self.hand.key("Tab")
        return True

    def enter(self, name, text):
        if not self.reach(name):
            return False
        self.hand.key("a", "Control_L")
        self.hand.key("BackSpace")
        self.hand.type(text)
        self.hand.key("Return")
        return True

    def push(self, name):
        if not self.reach(name):
            return False
        self.hand.key("space")
        return True

    def step(self, name, key):
        if not self.reach(name):
            return False
        self.hand.key(key)
        return True
