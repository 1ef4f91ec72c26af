"""A whole colour edit through the accessibility bus alone: nothing is clicked and nothing typed.
Usage: bus-story.py PROGRAM"""

import colorsys
import sys

from session import session, wait_for
import bus
from gi.repository import Atspi, GLib


def check(is_so, sentence):
    if not is_so:
        sys.exit(sentence)


def summary(reader, name):
    return reader.find("panel", name).get_description()


def axis(reader, field, name):
    found = [child for child in bus.children(reader.find("panel", field)) if child.get_name() == name]
    check(len(found) == 1, f"The field {field!r} has no value {name!r}.")
    return found[0]


def hear(events):
    """What was heard is listed as the kind, the role and the name."""
    def note(event):
        # Children that come and go are told of by what holds them.
        node = event.any_data if event.type.startswith("object:children-changed") else event.source
        try:
            events.append((event.type, node.get_role_name(), node.get_name()))
        except (AttributeError, TypeError, GLib.Error):
            pass  # It has gone meanwhile.

    listener = Atspi.EventListener.new(note)
    for kind in ("object:state-changed:focused", "object:state-changed:checked", "object:children-changed",
                 "object:property-change:accessible-value", "object:property-change:accessible-description",
                 "object:text-changed"):
        listener.register(kind)
    return listener


def wait_for_event(events, kind, role, name):
    def heard():
        bus.pump()
        return any(event[0].startswith(kind) and event[1:] == (role, name) for event in events)

    wait_for(f"an event {kind} of the {role} {name!r} among {events}", heard)


def set_value(node, value):
    check(node.set_current_value(value), f"{node.get_name()!r} does not take values.")
    wait_for(f"{node.get_name()!r} to be {value}", lambda: abs(node.get_current_value() - value) < 1e-6)


def move_focus(one, reader, events):
    """What is at the keyboard is told, wherever it was sent from."""
    one.take_keys()
    reader.act("push button", "Vekora Now", "SetFocus")
    wait_for("the keyboard at the button", lambda: bus.states(reader.find("push button", "Vekora Now"))
             .contains(Atspi.StateType.FOCUSED))
    wait_for_event(events, "object:state-changed:focused", "push button", "Vekora Now")
    one.x("key", "Up")
    wait_for("the keyboard above it", lambda: bus.states(reader.find("list item", "Silence Alarms For"))
             .contains(Atspi.StateType.FOCUSED))
    wait_for_event(events, "object:state-changed:focused", "list item", "Silence Alarms For")


def relations(node):
    return {(relation.get_relation_type(), relation.get_target(index).get_name())
            for relation in node.get_relation_set() for index in range(relation.get_n_targets())}


def edit_color(one, reader, events):
    reader.act("list item", "Button Color", "Press")
    reader.find("push button", "#FF0000")
    wait_for_event(events, "object:children-changed:add", "panel", "Saturation and brightness")
    check(summary(reader, "Saturation and brightness") == "saturation 100 percent, brightness 100 percent",
          summary(reader, "Saturation and brightness"))

    saturation = axis(reader, "Saturation and brightness", "Saturation")
    check((saturation.get_minimum_value(), saturation.get_maximum_value(), saturation.get_minimum_increment())
          == (0, 100, 1), "The saturation counts otherwise than in percent.")
    linked = relations(reader.find("panel", "Saturation and brightness")) | relations(saturation)
    check({name for _, name in linked} == {"Saturation and brightness", "Saturation", "Brightness"},
          f"The field and its values are linked as {linked}.")
    set_value(reader.find("slider", "Hue"), 210)
    set_value(axis(reader, "Saturation and brightness", "Saturation"), 40)
    set_value(axis(reader, "Saturation and brightness", "Brightness"), 60)
    wait_for("the spoken summary", lambda: summary(reader, "Saturation and brightness")
             == "saturation 40 percent, brightness 60 percent")
    check(reader.find("slider", "Hue").get_description() == "hue 210 degrees", "The bar says otherwise.")
    wait_for_event(events, "object:property-change:accessible-value", "slider", "Saturation")
    wait_for_event(events, "object:property-change:accessible-description", "panel", "Saturation and brightness")

    stored = one.stored("buttonColor")
    expected = [255 * part for part in colorsys.hsv_to_rgb(210 / 360, 0.4, 0.6)]
    channels = [int(stored[place:place + 2], 16) for place in (1, 3, 5)]
    check(all(abs(a - b) <= 1 for a, b in zip(channels, expected)), f"{stored} is stored, not {expected}.")
    reader.find("push button", stored)

    set_value(reader.find("slider", "Red"), 200)
    check(one.stored("buttonColor")[1:3] == "C8", one.stored("buttonColor"))
    before = reader.find("slider", "Green").get_current_value()
    reader.act("slider", "Green", "Increase")
    wait_for("one step", lambda: reader.find("slider", "Green").get_current_value() == before + 1)
    reader.act("slider", "Green", "Decrease")
    wait_for("one step back", lambda: reader.find("slider", "Green").get_current_value() == before)


def type_color(one, reader, events):
    reader.act("push button", one.stored("buttonColor"), "Press")
    reader.find("push button", "Save")
    check(reader.look("slider", "Red") is None, "Under an alert there is nothing to reach.")
    alert = next(node for node in bus.every(reader.top) if node.get_role() == Atspi.Role.ALERT)
    check(alert.get_name().startswith("Please enter a hex value"), alert.get_name())
    field = reader.find("text", alert.get_name())
    wait_for("the focus in the alert's field", lambda: bus.states(field).contains(Atspi.StateType.EDITABLE))
    check(field.insert_text(0, "#33AA", 5), "The text cannot be edited.")
    wait_for("the text", lambda: field.get_text(0, -1) == "#33AA")
    check(field.insert_text(5, "88", 2) and field.delete_text(5, 7), "The text cannot be edited.")
    wait_for("what is left", lambda: field.get_text(0, -1) == "#33AA")
    check(field.set_text_contents("#33AA77"), "The text cannot be replaced.")
    wait_for("the whole text", lambda: field.get_text(0, -1) == "#33AA77")
    check(field.set_caret_offset(3), "The caret cannot be moved.")
    wait_for("the caret", lambda: field.get_caret_offset() == 3)
    wait_for_event(events, "object:text-changed:insert", "text", alert.get_name())
    reader.act("push button", "Save", "Press")
    wait_for("the typed colour in the file", lambda: one.stored("buttonColor") == "#33AA77")
    wait_for("the field that follows", lambda: summary(reader, "Saturation and brightness")
             == "saturation 70 percent, brightness 67 percent")
    reader.find("push button", "Hue: 154°")


def story(one):
    bus.connect(one.environment)
    one.open("--locale", "en_US")
    reader = bus.Reader(bus.application())
    events = []
    listener = hear(events)

    reader.act("check box", "Enabled", "Toggle")
    wait_for("the switch in the file", lambda: one.stored("enabled") is True)
    wait_for("the switch", lambda: bus.states(reader.find("check box", "Enabled"))
             .contains(Atspi.StateType.CHECKED))
    wait_for_event(events, "object:state-changed:checked", "check box", "Enabled")
    move_focus(one, reader, events)
    edit_color(one, reader, events)
    type_color(one, reader, events)
    reader.act("push button", "Back to Vekora", "Press")
    field = reader.find("text", "Button Text:")
    check(field.get_text(0, -1) == "Vekora", field.get_text(0, -1))
    check(field.set_text_contents("Snooze"), "The text cannot be replaced.")
    wait_for("the text in the file", lambda: one.stored("buttonText") == "Snooze")
    reader.act("list item", "Silence Alarms For", "Press")
    reader.act("radio button", "2 Hours", "Press")
    wait_for("the choice in the file", lambda: one.stored("disableForMinutes") == 120)
    check(bus.states(reader.find("radio button", "2 Hours")).contains(Atspi.StateType.CHECKED),
          "What was chosen is not marked.")
    del listener
    one.close()


with session(sys.argv[1]) as this:
    story(this)
