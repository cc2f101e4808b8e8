"""Which control has the focus, and where rows are."""

import pytest

from accessible import Control, Role, State, until


def focused(korvane) -> list[Control]:
    return [control for control in korvane.window.descendants() if control.has(State.FOCUSED)]


FIELDS = (
    ("JSON Formatter", "Input", Role.TEXT),
    ("JSON Formatter", "Output", Role.TEXT),
    ("JSON Formatter", "Search tools...", Role.TEXT),
    ("Regex Tester", "Pattern", Role.TEXT),
    ("UUID Generator", "Count", Role.SPIN_BUTTON),
    ("Timestamp", "Select Date", Role.SPIN_BUTTON),
    ("Color Picker", "HEX Input", Role.TEXT),
    ("Image Converter", "Width", Role.TEXT),
    ("Image Converter", "Format", Role.COMBO_BOX),
)


@pytest.mark.parametrize("tool, name, role", FIELDS)
def test_only_the_focused_field_has_the_focus(korvane, tool, name, role):
    korvane.activate()
    korvane.open(tool)
    field = korvane.find(name, role)
    field.grab_focus()
    until(lambda: field.has(State.FOCUSED), lambda: f"{focused(korvane)} has the focus")
    assert [(control.name, control.role) for control in focused(korvane)] == [(name, role)]


def test_the_focused_row_of_a_list_has_the_focus(korvane):
    korvane.activate()
    korvane.list("Tools").children[2].act("SetFocus")
    until(lambda: [control.name for control in focused(korvane)] == ["URL Encoder"], lambda: f"{focused(korvane)}")


def test_rows_of_a_tree_are_inside_the_window(korvane):
    korvane.press("Tree View")
    korvane.write("Input", '["' + "long " * 200 + '",' + ",".join(map(str, range(200))) + "]")
    tree = korvane.list("Tree View")
    until(lambda: len(tree.children) == 202, lambda: f"the tree has {len(tree.children)} rows")
    (left, top, right, bottom) = korvane.window.extents
    rows = [row for row in tree.children if row.is_showing]
    assert 5 < len(rows) < 200
    for row in rows:
        (row_left, row_top, row_right, row_bottom) = row.extents
        assert left <= row_left < row_right <= right and top <= row_top < row_bottom <= bottom, row
