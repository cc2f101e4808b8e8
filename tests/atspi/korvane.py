"""What a user of Korvane does and reads. Visible controls are found by role and name; each must be the only one of its
role and name.
"""

from __future__ import annotations  # the method `list` below hides the type of that name

from accessible import Atspi, Control, Program, Role, State, until

BUTTONS = (Role.PUSH_BUTTON, Role.CHECK_BOX)


class Korvane(Program):
    def __init__(self, path: str):
        super().__init__(path)
        self.find("Tools", Role.LIST)

    # Finding.

    def all(self, name: str, *roles: Role) -> list[Control]:
        return [
            control
            for control in self.window.descendants()
            if (not roles or control.role in roles) and control.name == name
        ]

    def find(self, name: str, *roles: Role) -> Control:
        """The only visible control of that name; waits for it."""

        def failure() -> str:
            showing = [control for control in self.window.descendants() if not roles or control.role in roles]
            return f"{len(self.all(name, *roles))} controls are called {name!r}; there are {showing}"

        def only() -> Control | None:
            found = self.all(name, *roles)
            return found[0] if len(found) == 1 else None

        return until(only, failure)

    def editor(self, name: str) -> Control:
        return self.find(name, Role.TEXT)

    def button(self, name: str) -> Control:
        return self.find(name, *BUTTONS)

    def list(self, name: str) -> Control:
        return self.find(name, Role.LIST)

    def rows(self, name: str) -> list[str]:
        return [row.name for row in self.list(name).children]

    def dialog(self) -> Control:
        """The only other window of the program; waits for it."""

        def others() -> list[Control]:
            return [window for window in self.windows() if window.is_showing and window.name != self.window.name]

        until(lambda: len(others()) == 1, lambda: f"the other windows are {others()}")
        return others()[0]

    # Acting.

    def activate(self) -> None:
        """Gives the window the keyboard by a click into the empty strip, as there is no window manager."""
        left, top, right, _ = self.window.extents
        Atspi.generate_mouse_event((left + right) // 2, top + 10, "b1c")
        until(lambda: self.window.has(State.ACTIVE), lambda: "the window is not active")

    def open(self, tool: str) -> None:
        row = next(row for row in self.list("Tools").children if row.name == tool)
        row.press()
        until(lambda: row.has(State.SELECTED), lambda: f"{tool} is not the chosen tool")

    def write(self, name: str, text: str) -> None:
        """Sets the text of an editor, which may share its name with an output."""

        def editors() -> list[Control]:
            return [control for control in self.all(name, Role.TEXT) if control.has(State.EDITABLE)]

        until(lambda: len(editors()) == 1, lambda: f"{len(editors())} editors are called {name!r}")
        editors()[0].set_text(text)

    def press(self, *names: str) -> None:
        for name in names:
            self.button(name).press()

    def choose(self, segment: str) -> None:
        """Presses a segment, which may share its name with a button."""
        control = self.find(segment, Role.RADIO_BUTTON)
        control.press()
        until(lambda: control.has(State.CHECKED), lambda: f"{segment} is not chosen")

    def pick(self, picker: str, choice: str) -> None:
        """Chooses an item of a menu."""
        choices = self.find(picker, Role.COMBO_BOX).children
        next(control for control in choices if control.name == choice).press()
        self.describes(picker, choice)

    def slide(self, name: str, value: float) -> None:
        self.find(name, Role.SLIDER).set_value(value)

    def step(self, name: str, value: int) -> None:
        self.find(name, Role.SPIN_BUTTON).set_value(value)

    # Reading. Each of these waits until it holds.

    def shows(self, text: str) -> None:
        """A label has that text."""
        self.find(text, Role.LABEL)

    def lacks(self, text: str) -> None:
        until(lambda: not self.all(text, Role.LABEL), lambda: f"{text!r} still shows")

    def reads(self, name: str, text: str) -> None:
        """An editor or an output has exactly that text."""
        editor = self.editor(name)
        until(lambda: editor.text == text, lambda: f"{name} reads {editor.text!r}, not {text!r}")

    def reads_something(self, name: str) -> str:
        editor = self.editor(name)
        return until(lambda: editor.text, lambda: f"{name} stays empty")

    def describes(self, name: str, description: str) -> None:
        """A control has that description."""
        until(
            lambda: any(control.description == description for control in self.all(name)),
            lambda: f"{name} is described by {[control.description for control in self.all(name)]}",
        )

    def lists(self, name: str, *rows: str) -> None:
        until(lambda: self.rows(name) == list(rows), lambda: f"{name} lists {self.rows(name)}")

    def is_on(self, name: str) -> None:
        until(lambda: self.button(name).has(State.CHECKED), lambda: f"{name} is not on")

    def is_off(self, name: str) -> None:
        until(lambda: not self.button(name).has(State.CHECKED), lambda: f"{name} is on")

    def is_at(self, name: str, value: float, *roles: Role) -> None:
        control = self.find(name, *roles or (Role.SLIDER, Role.SPIN_BUTTON))
        until(lambda: abs(control.value - value) < 1e-3, lambda: f"{name} is at {control.value}")

    def announces(self, text: str) -> None:
        """That is announced to screen readers, wherever the focus is."""
        until(
            lambda: any(event.is_announcement and event.name == text for event in self.events),
            lambda: f"nothing announces {text!r}; the events were {self.events}",
        )
