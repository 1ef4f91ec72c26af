"""Reads all that is shown on the accessibility bus, again and again, as a screen reader may, until its standard input
ends; then it says how many objects it has read. That they go while they are read is no mistake."""

import select
import sys

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402


def is_over():
    return bool(select.select([sys.stdin], [], [], 0)[0])


def read(node):
    """The number of objects read in it."""
    node.get_role_name()
    node.get_name()
    node.get_state_set().get_states()
    node.get_extents(Atspi.CoordType.SCREEN)
    for index in range(node.get_n_actions()):
        node.get_action_name(index)
    if node.get_value_iface():
        node.get_current_value()
    if node.get_text_iface():
        node.get_text(0, -1)
    count = 1
    for index in range(node.get_child_count()):
        if is_over():
            break
        child = node.get_child_at_index(index)
        if child:
            count += read(child)
    return count


def main():
    Atspi.init()
    desktop = Atspi.get_desktop(0)
    desktop.set_cache_mask(Atspi.Cache.NONE)
    count = 0
    while not is_over():
        while GLib.MainContext.default().iteration(False):
            pass
        try:
            count += read(desktop)
        except GLib.Error:
            pass
    print(count)


main()
