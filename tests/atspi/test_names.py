"""Every control of every tool has a role and a name; decorations have neither name nor description."""

import os

import pytest

from accessible import Role, State
from korvane import Korvane

TOOLS = (
    "JSON Formatter",
    "Base64",
    "URL Encoder",
    "JWT Decoder",
    "Hash Generator",
    "UUID Generator",
    "Timestamp",
    "Regex Tester",
    "Color Picker",
    "Text Diff",
    "Text Transformer",
    "Number Base",
    "Lorem Ipsum",
    "Password Generator",
    "Markdown Preview",
    "Image Converter",
)

CONTROLS = (
    Role.CHECK_BOX,
    Role.COMBO_BOX,
    Role.LIST,
    Role.PUSH_BUTTON,
    Role.RADIO_BUTTON,
    Role.SLIDER,
    Role.SPIN_BUTTON,
    Role.TEXT,
)

PARTS = (Role.LIST_ITEM, Role.LABEL, Role.IMAGE)

# The containers between the window and its controls.
GROUPS = (Role.FILLER, Role.PANEL, Role.SPLIT_PANE, Role.SEPARATOR, Role.MENU_BAR, Role.MENU_ITEM)


@pytest.fixture(scope="module")
def running():
    """One program for all tools; no test changes its state."""
    program = Korvane(os.environ["KORVANE_PROGRAM"])
    yield program
    program.stop()


@pytest.fixture(scope="module", params=TOOLS)
def tool(running, request):
    """Everything visible while a tool is open."""
    running.open(request.param)
    running.shows(request.param)
    return list(running.window.descendants())


def test_all_tools_are_listed(running):
    assert running.rows("Tools") == list(TOOLS)


def test_every_control_has_a_name(tool):
    assert [control for control in tool if control.role in (*CONTROLS, Role.LIST_ITEM) and not control.name] == []


def test_everything_has_a_known_role(tool):
    known = (*CONTROLS, *PARTS, *GROUPS, Role.NOTIFICATION)
    assert [control for control in tool if control.role not in known] == []


def test_only_controls_take_the_focus(tool):
    takers = [control for control in tool if control.has(State.FOCUSABLE)]
    kinds = (*CONTROLS, *PARTS, Role.MENU_BAR, Role.MENU_ITEM)
    assert takers and [control for control in takers if control.role not in kinds] == []


def test_controls_of_one_role_have_distinct_names(tool):
    named = [(control.role, control.name) for control in tool if control.role in CONTROLS]
    assert [control for control in named if named.count(control) > 1] == []


def test_decorations_have_no_name_or_description(tool):
    leaves = [control for control in tool if control.role == Role.FILLER and not control.children]
    assert [leaf for leaf in leaves if leaf.name or leaf.description] == []


def test_rows_are_in_their_list(tool):
    assert [row for row in tool if row.role == Role.LIST_ITEM and row.parent.role not in (Role.LIST, Role.COMBO_BOX)] == []
