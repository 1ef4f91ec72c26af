"""Every object that is shown, on every page and under an alert, has a name or holds others, a role, and a place.
Usage: bus-crawl.py PROGRAM"""

import sys

from session import session, wait_for
import bus
from gi.repository import Atspi, GLib

ROLES_WITHOUT_A_MEANING = {Atspi.Role.INVALID, Atspi.Role.UNKNOWN, Atspi.Role.EXTENDED, Atspi.Role.REDUNDANT_OBJECT}
# What only arranges others, and may be empty.
ARRANGING = {Atspi.Role.FILLER, Atspi.Role.PANEL, Atspi.Role.SPLIT_PANE, Atspi.Role.SCROLL_PANE, Atspi.Role.SEPARATOR,
             Atspi.Role.VIEWPORT, Atspi.Role.LAYERED_PANE}


# Its pages, and something on each.
INSPECTOR = (("File", "table", "Preference file"), ("Timeline", "table", "Timeline"), ("Views", "tree", "Views"),
             ("Environment", "push button", "Stand Still"))


def arranges_only(node):
    return not node.get_name() and node.get_role() in ARRANGING and node.get_child_count() == 0


def faults_of(node, window):
    name = f"{node.get_role_name()} {node.get_name()!r}"
    # The toolkit finds no role on the bus for the bar between two panels.
    if node.get_role() in ROLES_WITHOUT_A_MEANING and node.get_name() != "Divider":
        yield f"{name} has no role that means anything"
    # An empty cell shows nothing, and neither does an empty value that says whose it is.
    shows_nothing = node.get_role() == Atspi.Role.TABLE_CELL or (node.get_role() == Atspi.Role.LABEL
                                                                 and node.get_description())
    if not (node.get_name() or node.get_child_count() or node.get_role() in ARRANGING or shows_nothing):
        yield f"{name} has no name"
    place = node.get_extents(Atspi.CoordType.SCREEN)
    if place.width < 1 or place.height < 1:
        yield f"{name} is {place.width} by {place.height}"
    outside = (place.x >= window.x + window.width or place.y >= window.y + window.height
               or place.x + place.width <= window.x or place.y + place.height <= window.y)
    if outside:
        yield f"{name} is shown, but lies beyond the window, at {place.x}, {place.y}"
    if node.get_role() == Atspi.Role.SLIDER:
        if not node.get_minimum_value() <= node.get_current_value() <= node.get_maximum_value():
            yield f"{name} is at {node.get_current_value()}"


def every_shown(node):
    yield node
    for child in bus.children(node):
        # What a list is in that is not open, counts as shown to the toolkit.
        if bus.is_showing(child) and not arranges_only(child):
            if child.get_parent() != node:
                sys.exit(f"The {child.get_role_name()} {child.get_name()!r} has another parent than its holder.")
            yield from every_shown(child)


def crawl(application, where):
    """The number of objects that were looked at."""
    bus.pump()
    windows = [child for child in bus.children(application) if bus.is_showing(child)]
    if not windows:
        sys.exit(f"{where}: no window is shown.")
    window = windows[0].get_extents(Atspi.CoordType.SCREEN)
    faults, count = [], 0
    for node in every_shown(windows[0]):
        count += 1
        faults += faults_of(node, window)
    if faults:
        sys.exit(f"{where}:\n" + "\n".join(faults))
    print(f"{where}: {count} objects")
    return count


def settled(application, where, at_least):
    """A page may still be on its way."""
    def look():
        try:
            return crawl(application, where) >= at_least
        except GLib.Error:
            return False

    wait_for(f"{where} with {at_least} objects", look)


def other_panel(one, reader):
    def focused_in_phone():
        bus.pump()
        phone = reader.find("panel", "Phone")
        return bus.states(phone).contains(Atspi.StateType.FOCUSED)

    def focused_elsewhere():
        return not focused_in_phone() and any(bus.states(node).contains(Atspi.StateType.FOCUSED)
                                              for node in every_shown(reader.top))

    one.x("key", "F6")
    wait_for("the keyboard in the inspector", focused_elsewhere)
    one.x("key", "F6")
    wait_for("the keyboard in the phone", focused_in_phone)
    one.x("key", "ctrl+Tab")
    wait_for("the keyboard in the inspector again", focused_elsewhere)
    one.x("key", "ctrl+Tab")
    wait_for("the keyboard in the phone again", focused_in_phone)


def pane(one, locale):
    one.open("--locale", locale)
    application = bus.application()
    reader = bus.Reader(application)
    settled(application, f"{locale}: main page", 15)
    reader.act("list item", "Silence Alarms For", "Press")
    reader.find("radio button", "1 Hour")
    settled(application, f"{locale}: choices", 15)
    reader.act("push button", "Back to Vekora", "Press")
    reader.act("list item", "Button Color", "Press")
    reader.find("panel", "Saturation and brightness")
    settled(application, f"{locale}: color page", 15)
    reader.act("push button", "#FF0000", "Press")
    reader.find("push button", "Save")
    settled(application, f"{locale}: alert", 8)
    reader.act("push button", "Cancel", "Press")
    reader.act("push button", "Back to Vekora", "Press")
    reader.find("check box", "Enabled")
    one.take_keys()
    one.x("key", "F12")
    for page, role, name in INSPECTOR:
        reader.act("page tab", page, "Press")
        wait_for(page, lambda: bus.is_showing(reader.find(role, name)))
        settled(application, f"{locale}: inspector, {page}", 30)
    other_panel(one, reader)
    one.x("key", "F12")
    one.close()


def gallery(one, locale):
    one.open("gallery", "--locale", locale)
    application = bus.application()
    settled(application, f"{locale}: gallery", 10)
    # What lies further down has names, too.
    shown = [node.get_name() for node in bus.every(application) if node.get_role_name() in ("panel", "slider", "image")]
    for name in ("Hue and saturation", "Hue and brightness", "Saturation and brightness", "Brightness", "Hue",
                 "Saturation"):
        if name not in shown:
            sys.exit(f"{locale}: the gallery has no {name!r} among {shown}.")
    one.close()


with session(sys.argv[1]) as this:
    bus.connect(this.environment)
    for language in ("en_US", "ar_EG"):
        pane(this, language)
        gallery(this, language)
