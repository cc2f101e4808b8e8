"""Assistive technology writes and reads texts exactly."""

import pytest

from accessible import State

LINES = "unix\nwindows\r\nold\rnext\u0085separator\u2028paragraph\u2029form\ffeed\vend"


def test_every_line_break_is_kept(korvane):
    korvane.write("Input", LINES)
    korvane.reads("Input", LINES)


def test_line_breaks_are_encoded_exactly(korvane):
    korvane.open("Base64")
    korvane.write("Plain Text", "a\r\nb")
    korvane.press("Encode")
    korvane.reads("Base64 Output", "YQ0KYg==")


def test_text_is_inserted_and_deleted_in_the_middle(korvane):
    editor = korvane.editor("Input")
    editor.set_text("one\r\nthree")
    editor.insert_text(5, "two\r\n")
    korvane.reads("Input", "one\r\ntwo\r\nthree")
    editor.delete_text(3, 8)
    korvane.reads("Input", "one\r\nthree")


def test_a_long_line_is_read_without_breaks(korvane):
    text = '["' + "0123456789" * 3000 + '"]'
    korvane.write("Input", text)
    korvane.reads("Input", text)
    korvane.press("Minify")
    korvane.reads("Output", text)


@pytest.mark.parametrize("text", ["", " ", "é👩‍🔬𝄞"])
def test_any_text_can_be_written(korvane, text):
    korvane.write("Input", text)
    korvane.reads("Input", text)


def test_an_output_is_read_only(korvane):
    output = korvane.editor("Output")
    assert output.has(State.READ_ONLY) and not output.has(State.EDITABLE)
    assert "EditableText" not in output.interfaces


def test_an_empty_editor_has_its_placeholder_as_description(korvane):
    assert korvane.editor("Input").description == "Paste your JSON here..."
    korvane.write("Input", "[]")
    korvane.reads("Input", "[]")
    assert korvane.editor("Input").description == ""


def test_a_field_rejects_text_that_cannot_be_typed_into_it(korvane):
    korvane.open("Image Converter")
    korvane.write("Width", "640")
    korvane.write("Width", "wide")
    korvane.reads("Width", "640")
