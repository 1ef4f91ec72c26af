"""Whole colour edits by the keyboard alone, in a real window: no mouse and no other way in.
Usage: keys-story.py PROGRAM"""

import colorsys
import sys

from session import session, wait_for


def near(stored, hue, saturation, brightness):
    """As far as a colour's bytes tell."""
    if not stored:
        return False
    expected = [255 * part for part in colorsys.hsv_to_rgb(hue / 360, saturation / 100, brightness / 100)]
    return all(abs(int(stored[place:place + 2], 16) - part) <= 1 for place, part in zip((1, 3, 5), expected))


class Keys:
    def __init__(self, one):
        self.one = one

    def press(self, *names, times=1):
        self.one.x("key", *(names * times))

    def type(self, text):
        self.one.x("type", text)

    def expect(self, color):
        wait_for(f"{color} in the file", lambda: self.one.stored("buttonColor") == color)

    def expect_near(self, hue, saturation, brightness):
        wait_for(f"hue {hue}, saturation {saturation} and brightness {brightness} in the file",
                 lambda: near(self.one.stored("buttonColor"), hue, saturation, brightness))

    def expect_channel(self, place, digits):
        wait_for(f"{digits} at {place} in the file",
                 lambda: self.one.stored("buttonColor")[place:place + 2] == digits)


def edit_with_first_picker(keys):
    keys.press("Tab", times=3)  # From the hexadecimal number to the field.
    keys.press("Left")
    keys.press("shift+Left")
    keys.expect_near(0, 89, 100)
    keys.press("Down")
    keys.press("Page_Down")
    keys.expect_near(0, 89, 89)
    keys.press("Up", "Up", "Down", "Down", "Right", "Left")
    keys.expect_near(0, 89, 89)
    keys.press("Tab", times=2)  # The bar.
    keys.press("ctrl+Right", times=12)
    keys.press("Right", "Left", "Left")
    keys.expect_near(119, 89, 89)
    keys.press("Tab", times=2)  # The red slider.
    keys.press("End")
    keys.expect_channel(1, "FF")
    keys.press("Left")
    keys.expect_channel(1, "FE")
    keys.press("shift+Down")
    keys.expect_channel(1, "F4")
    keys.press("Home")
    keys.expect_channel(1, "00")
    keys.press("Tab", "Return")  # Green's number, and the question for it.
    keys.type("128")
    keys.press("Return")
    keys.expect_channel(3, "80")
    keys.press("Home", "Return")  # The first on the page: the hexadecimal number.
    keys.type("12")
    keys.press("Tab", "space")  # Cancel.
    keys.press("Return")
    keys.type("33AA77")
    keys.press("Tab", "Tab", "Return")  # Save.
    keys.expect("#33AA77")
    keys.press("Escape")


def edit_with_second_picker(keys):
    keys.press("Tab", times=3)
    keys.press("Home")  # Of what lies across the field: red.
    keys.expect("#AA3333")
    keys.press("ctrl+Home")  # Of what lies down it: grey.
    keys.expect("#AAAAAA")
    keys.press("Tab", "Tab", "End")
    keys.expect("#FFFFFF")
    keys.press("Home")
    keys.expect("#000000")
    keys.press("Tab", "shift+Tab", "Page_Up", "Up", "Up")
    keys.expect_near(0, 0, 12)


def story(one):
    keys = Keys(one)
    one.open("--locale", "en_US")
    one.take_keys()
    keys.press("Tab", "space")
    wait_for("the switch in the file", lambda: one.stored("enabled") is True)
    keys.press("Tab", times=4)
    keys.press("Return")
    edit_with_first_picker(keys)
    keys.press("Tab", "Return", "ctrl+a")
    keys.type("Hi there")
    keys.press("Tab")
    wait_for("the text in the file", lambda: one.stored("buttonText") == "Hi there")
    one.store("colorPickerType", 2)  # The pane has no row for it.
    keys.press("End", "Up", "Return")
    edit_with_second_picker(keys)
    keys.press("Escape", "Home", "Down", "Return", "End", "space")
    wait_for("the last choice in the file", lambda: one.stored("disableForMinutes") == 1440)
    one.close()
    if one.stored("buttonText") != "Hi there" or one.stored("enabled") is not True:
        sys.exit("What was stored first is lost.")


with session(sys.argv[1]) as this:
    story(this)
