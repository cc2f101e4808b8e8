"""The started program as assistive technology sees it: a tree of accessible objects with names, roles, states and
actions, and the events they send. This module is independent of the screens.

The program may act on a call after the call has returned, so every search is repeated until it succeeds or the
deadline has passed.
"""

import os
import subprocess
import time
from collections.abc import Callable, Iterator

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

Role = Atspi.Role
State = Atspi.StateType

DEADLINE = 10  # seconds: far longer than any step takes on a busy machine
TICK = 10  # milliseconds between two checks


def until(condition: Callable[[], object], failure: Callable[[], str]) -> object:
    """Checks until `condition` holds, and returns its result; handles events in the meantime."""
    deadline = time.monotonic() + DEADLINE
    context = GLib.MainContext.default()
    while True:
        try:
            if found := condition():
                return found
        except GLib.Error:
            pass  # the object was destroyed between two calls; the next check searches again
        assert time.monotonic() < deadline, failure()
        GLib.timeout_add(TICK, lambda: GLib.SOURCE_REMOVE)
        context.iteration(True)


class Control:
    """One accessible object."""

    def __init__(self, accessible: Atspi.Accessible):
        self.accessible = accessible

    def __repr__(self) -> str:
        return f"{self.role.value_nick} {self.name!r}"

    @property
    def name(self) -> str:
        return self.accessible.get_name()

    @property
    def description(self) -> str:
        return self.accessible.get_description()

    @property
    def role(self) -> Role:
        return self.accessible.get_role()

    @property
    def children(self) -> list["Control"]:
        count = self.accessible.get_child_count()
        found = (self.accessible.get_child_at_index(index) for index in range(count))
        return [Control(child) for child in found if child]

    @property
    def parent(self) -> "Control":
        return Control(self.accessible.get_parent())

    def has(self, state: State) -> bool:
        return self.accessible.get_state_set().contains(state)

    @property
    def is_showing(self) -> bool:
        return self.has(State.SHOWING)

    def descendants(self) -> Iterator["Control"]:
        """All visible descendants, in reading order."""
        for child in self.children:
            if child.is_showing:
                yield child
                yield from child.descendants()

    @property
    def interfaces(self) -> list[str]:
        return self.accessible.get_interfaces()

    # Content and place.

    @property
    def text(self) -> str:
        return Atspi.Text.get_text(self.accessible, 0, -1)

    @property
    def value(self) -> float:
        return Atspi.Value.get_current_value(self.accessible)

    @property
    def range(self) -> tuple[float, float]:
        return Atspi.Value.get_minimum_value(self.accessible), Atspi.Value.get_maximum_value(self.accessible)

    @property
    def extents(self) -> tuple[int, int, int, int]:
        """Left, top, right and bottom edge on the screen."""
        place = Atspi.Component.get_extents(self.accessible, Atspi.CoordType.SCREEN)
        return place.x, place.y, place.x + place.width, place.y + place.height

    # Actions.

    @property
    def actions(self) -> list[str]:
        count = Atspi.Action.get_n_actions(self.accessible)
        return [Atspi.Action.get_action_name(self.accessible, index) for index in range(count)]

    def act(self, action: str) -> None:
        assert action in self.actions, f"{self} offers {self.actions}, not {action}"
        Atspi.Action.do_action(self.accessible, self.actions.index(action))

    def press(self) -> None:
        """Presses a button or a row, or toggles a switch."""
        self.act("Toggle" if "Toggle" in self.actions else "Press")

    def set_text(self, text: str) -> None:
        assert Atspi.EditableText.set_text_contents(self.accessible, text), f"{self} rejects the text"

    def insert_text(self, position: int, text: str) -> None:
        length = len(text.encode())
        assert Atspi.EditableText.insert_text(self.accessible, position, text, length), f"{self} rejects the text"

    def delete_text(self, start: int, end: int) -> None:
        assert Atspi.EditableText.delete_text(self.accessible, start, end), f"{self} deletes nothing"

    def set_value(self, value: float) -> None:
        assert Atspi.Value.set_current_value(self.accessible, value), f"{self} rejects the value"

    def grab_focus(self) -> None:
        assert Atspi.Component.grab_focus(self.accessible), f"{self} does not take the focus"


class Event:
    """An event, with the name and the role that its source had when it was sent."""

    def __init__(self, event: Atspi.Event):
        self.type = event.type
        self.detail = event.detail1
        self.role = event.source.get_role()
        self.name = event.source.get_name()

    @property
    def is_announcement(self) -> bool:
        """Whether screen readers announce it: a notification has become visible."""
        return self.type == "object:state-changed:showing" and self.detail == 1 and self.role == Role.NOTIFICATION

    def __repr__(self) -> str:
        return f"{self.type} {self.detail} of {self.role.value_nick} {self.name!r}"


class Program:
    """The running program, from its start to its end."""

    def __init__(self, path: str):
        self.events: list[Event] = []
        self._listener = Atspi.EventListener.new(self._record)
        self._types: list[str] = []
        Control(Atspi.get_desktop(0)).children  # starts the registry before the program looks for it
        environment = os.environ | {"QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1", "QT_QPA_PLATFORM": "xcb"}
        self._process = subprocess.Popen([path], env=environment)
        self.window = until(self._window, lambda: "the program opens no window")

    def windows(self) -> list[Control]:
        for application in Control(Atspi.get_desktop(0)).children:
            if application.accessible.get_process_id() == self._process.pid:
                application.accessible.set_cache_mask(Atspi.Cache.NONE)  # tests need the current state
                return [window for window in application.children if window.is_showing]
        return []

    def _window(self) -> Control | None:
        return next(iter(self.windows()), None)

    def _record(self, event: Atspi.Event) -> None:
        try:
            if event.source.get_process_id() == self._process.pid:
                self.events.append(Event(event))
        except GLib.Error:
            pass  # its source was destroyed

    def listen(self, *types: str) -> None:
        for type in types:
            self._listener.register(type)
            self._types.append(type)

    def stop(self) -> None:
        for type in self._types:
            self._listener.deregister(type)
        self._process.terminate()
        self._process.wait()
