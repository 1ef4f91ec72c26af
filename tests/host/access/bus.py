"""The accessibility bus, by the client library that screen readers use."""

import os

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

from session import wait_for  # noqa: E402


def connect(environment):
    """Before anything else here. The library takes its buses from the environment."""
    os.environ.update(environment)
    Atspi.init()
    # What is asked is asked of the window, every time.
    Atspi.get_desktop(0).set_cache_mask(Atspi.Cache.NONE)


def pump():
    """Lets events that have come in be heard."""
    while GLib.MainContext.default().iteration(False):
        pass


def children(node):
    return [child for index in range(node.get_child_count()) if (child := node.get_child_at_index(index))]


def every(node):
    yield node
    for child in children(node):
        yield from every(child)


def application():
    def look():
        pump()
        found = [child for child in children(Atspi.get_desktop(0)) if child.get_child_count() > 0]
        return found[0] if found else None

    found = wait_for("the window on the bus", look)
    found.set_cache_mask(Atspi.Cache.NONE)
    return found


def states(node):
    return node.get_state_set()


def is_showing(node):
    return states(node).contains(Atspi.StateType.SHOWING)


class Reader:
    """Finds things by role and name, as a screen reader's user does."""

    def __init__(self, top):
        self.top = top

    def look(self, role, name):
        """None when there is no such thing, or things change meanwhile."""
        pump()
        try:
            for node in every(self.top):
                if node.get_role_name() == role and node.get_name() == name:
                    return node
        except GLib.Error:
            pass
        return None

    def find(self, role, name):
        return wait_for(f"the {role} {name!r}", lambda: self.look(role, name))

    def act(self, role, name, action):
        node = self.find(role, name)
        names = [node.get_action_name(index) for index in range(node.get_n_actions())]
        if action not in names:
            raise SystemExit(f"The {role} {name!r} can do {names}, but not {action!r}.")
        node.do_action(names.index(action))
