"""The accessibility tree of a running program, read and worked as an assistive program does it.

To be imported when the environment says where the buses are; Atspi connects at the first question.
"""
import contextlib
import functools
from dataclasses import dataclass

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, Gio, GLib  # noqa: E402

from stage import Failure, wait_until  # noqa: E402

ANSWER_LIMIT = 10000  # milliseconds that a program may take for one answer
PRESS = 0  # the number of every button's first action


@dataclass(frozen=True)
class Seen:
    """What the tree says of a control at one moment."""
    role: str
    name: str
    description: str
    states: frozenset
    text: str


def is_true(word, states):
    """Whether a word of the table's column `at` is true of these states."""
    return {"shown": "showing" in states and "visible" in states,
            "hidden": "showing" not in states and "visible" not in states,
            "enabled": "enabled" in states and "sensitive" in states,
            "disabled": "enabled" not in states and "sensitive" not in states,
            "selected": "selected" in states,
            "unselected": "selected" not in states,
            "checked": "checked" in states,
            "raised": "checked" not in states}[word]


class Control:
    """One object of the tree. Everything is asked anew each time."""

    def __init__(self, accessible, bus):
        self.accessible = accessible
        self.bus = bus

    @functools.cached_property
    def role(self):
        return self.accessible.get_role_name()

    @property
    def name(self):
        return self.accessible.get_name() or ""

    @property
    def description(self):
        return self.accessible.get_description() or ""

    @property
    def text(self):
        """A text box's text; of all else its name."""
        return Atspi.Text.get_text(self.accessible, 0, -1) if self.role == "text" else self.name

    def write(self, text):
        if not Atspi.EditableText.set_text_contents(self.accessible, text):
            raise Failure(f"'{self.name}' does not take the text '{text}'")

    def children(self):
        count = self.accessible.get_child_count()
        found = map(self.accessible.get_child_at_index, range(count))
        return [Control(child, self.bus) for child in found if child]

    def all_below(self):
        for child in self.children():
            yield child
            yield from child.all_below()

    def states(self):
        return frozenset(state.value_nick for state in self.accessible.get_state_set().get_states())

    def look(self):
        return Seen(self.role, self.name, self.description, self.states(), self.text)

    def has(self, *words):
        """Whether all these words of the table's column `at` are true now."""
        states = self.states()
        return all(is_true(word, states) for word in words)

    def actions(self):
        count = Atspi.Action.get_n_actions(self.accessible)
        return [Atspi.Action.get_action_name(self.accessible, index) for index in range(count)]

    def localized_actions(self):
        """The names for people; libatspi asks for them by a call that Qt 6.4 does not have."""
        listed = self.bus.ask(self.accessible.path, "GetActions").unpack()[0]
        return [name for name, *_ in listed]

    def press(self):
        """Returns when the program has done all that the press does."""
        if not Atspi.Action.do_action(self.accessible, PRESS):
            raise Failure(f"'{self.name}' refuses to be pressed")

    def press_and_go_on(self):
        """Does not wait for the end of what the press does: for a press that opens a message box."""
        self.bus.tell(self.accessible.path, "DoAction", GLib.Variant("(i)", (PRESS,)))

    def act(self, action):
        """As `press`, by the name of an action."""
        if not Atspi.Action.do_action(self.accessible, self.actions().index(action)):
            raise Failure(f"'{self.name}' refuses '{action}'")

    @property
    def value(self):
        return Atspi.Value.get_current_value(self.accessible)

    @value.setter
    def value(self, value):
        if not Atspi.Value.set_current_value(self.accessible, value):
            raise Failure(f"'{self.name}' does not take the value {value}")

    def range(self):
        return Atspi.Value.get_minimum_value(self.accessible), Atspi.Value.get_maximum_value(self.accessible)

    def place(self):
        """On the display: x, y, width, height."""
        place = Atspi.Component.get_extents(self.accessible, Atspi.CoordType.SCREEN)
        return place.x, place.y, place.width, place.height

    def size(self):
        return self.place()[2:]

    def click(self, across=0.5, down=0.5):
        """A click of the mouse on it, there in parts of its size, through the X server."""
        x, y, width, height = self.place()
        if not Atspi.generate_mouse_event(x + int(width * across), y + int(height * down), "b1c"):
            raise Failure("the mouse cannot be moved")


class _Bus:
    """The accessibility bus, for what libatspi does not offer: presses that are not waited for."""

    def __init__(self, process):
        session = Gio.bus_get_sync(Gio.BusType.SESSION)
        session.set_exit_on_close(False)
        address = session.call_sync("org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus", "GetAddress", None, None,
                                    Gio.DBusCallFlags.NONE, ANSWER_LIMIT).unpack()[0]
        flags = (Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT |
                 Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION)
        self.connection = Gio.DBusConnection.new_for_address_sync(address, flags)
        self.program = self._name_of(process)

    def _name_of(self, process):
        for name in self._ask_bus("ListNames"):
            if name.startswith(":") and self._process_of(name) == process:
                return name
        raise Failure("the program is not on the accessibility bus")

    def _process_of(self, name):
        try:
            return self._ask_bus("GetConnectionUnixProcessID", name)
        except GLib.Error as error:
            # Of a program that has gone since the names were listed.
            if error.matches(Gio.DBusError.quark(), Gio.DBusError.NAME_HAS_NO_OWNER):
                return None
            raise

    def _ask_bus(self, method, *arguments):
        signature = GLib.Variant("(s)", arguments) if arguments else None
        return self.connection.call_sync("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
                                         method, signature, None, Gio.DBusCallFlags.NONE,
                                         ANSWER_LIMIT).unpack()[0]

    def ask(self, path, method):
        return self.connection.call_sync(self.program, path, "org.a11y.atspi.Action", method, None, None,
                                         Gio.DBusCallFlags.NONE, ANSWER_LIMIT)

    def tell(self, path, method, arguments):
        self.connection.call(self.program, path, "org.a11y.atspi.Action", method, arguments, None,
                             Gio.DBusCallFlags.NONE, ANSWER_LIMIT, None, None)


class Program(Control):
    """The program with that process number; Failure when it does not come up in the tree."""

    def __init__(self, process):
        Atspi.init()
        Atspi.set_timeout(ANSWER_LIMIT, ANSWER_LIMIT)
        self.process = process
        super().__init__(wait_until(self._find, "the program in the accessibility tree"), None)
        self.bus = _Bus(process)
        # What libatspi remembers is brought up to date by events, which nobody serves here.
        self.accessible.set_cache_mask(Atspi.Cache.NONE)

    @contextlib.contextmanager
    def events(self, kind):
        """Listens to events of that kind. A call of what it gives serves those that have come, and lists (role,
        name, number) of all of them."""
        heard = []

        def note(event):
            if event.source.get_process_id() == self.process:
                heard.append((event.source.get_role_name(), event.source.get_name(), event.detail1))

        def all_heard():
            while GLib.MainContext.default().iteration(False):
                pass
            return heard

        listener = Atspi.EventListener.new(note)
        listener.register(kind)
        try:
            yield all_heard
        finally:
            listener.deregister(kind)

    def _find(self):
        desktop = Atspi.get_desktop(0)
        desktop.clear_cache()
        for index in range(desktop.get_child_count()):
            try:
                found = desktop.get_child_at_index(index)
                if found and found.get_process_id() == self.process and found.get_child_count() > 0:
                    return found
            except GLib.Error:
                continue  # a program that is just coming or going
        return None

    def windows_on_show(self, *roles):
        """Those that close while they are looked at are left out."""
        found = []
        for index in range(self.accessible.get_child_count()):
            try:
                window = Control(self.accessible.get_child_at_index(index), self.bus)
                if window.accessible and window.role in roles and window.has("shown"):
                    found.append(window)
            except GLib.Error:
                continue
        return found
