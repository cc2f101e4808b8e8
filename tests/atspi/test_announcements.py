"""Messages are announced, wherever the focus is."""

import pytest

from accessible import Control, Role, until


@pytest.fixture
def listening(korvane):
    korvane.listen("object:state-changed:showing")
    return korvane


def test_a_result_is_announced(listening):
    listening.write("Input", "[]")
    listening.press("Validate")
    listening.announces("Valid JSON")


def test_an_error_is_announced(listening):
    listening.press("Validate")
    listening.announces("Input is empty")


def test_a_result_after_an_error_is_announced(listening):
    listening.press("Validate")
    listening.announces("Input is empty")
    listening.write("Input", "[]")
    listening.press("Validate")
    listening.announces("Valid JSON")


def test_a_message_below_a_field_is_announced(listening):
    listening.open("Number Base")
    listening.choose("Binary")
    listening.write("Input", "2")
    listening.announces(listening.reads_something("Error"))


def test_an_invalid_token_is_announced(listening):
    listening.open("JWT Decoder")
    listening.write("JWT Token", "one.two")
    listening.press("Decode")
    listening.announces("Invalid JWT format. Expected 3 parts separated by dots.")


def test_copying_is_announced(listening):
    listening.open("UUID Generator")
    listening.press("Copy UUID")
    listening.announces("Copied!")


def test_copying_a_row_is_announced(listening):
    listening.open("UUID Generator")
    listening.press("Generate New")
    listening.list("History").children[0].press()
    listening.announces("Copied!")


def test_the_count_of_matches_is_announced(listening):
    listening.open("Regex Tester")
    listening.write("Test String", "aab")
    listening.write("Pattern", "a")
    listening.announces("2 matches found")
    listening.write("Pattern", "c")
    listening.announces("No matches found")


def test_the_similarity_of_texts_is_announced(listening):
    listening.open("Text Diff")
    listening.write("Original Text", "a")
    listening.write("Modified Text", "a")
    listening.press("Compare")
    listening.announces("100% similar")


def test_progress_is_announced(listening):
    listening.open("Regex Tester")
    listening.write("Test String", "a" * 40)
    listening.write("Pattern", "(a|aa)+b")
    listening.announces("Matching...")


def test_an_announcement_is_removed_after_a_while(listening):
    listening.press("Validate")
    listening.announces("Input is empty")

    def left() -> list[Control]:
        return [control for control in listening.window.children if control.role == Role.NOTIFICATION]

    until(lambda: not left(), lambda: f"there are still {left()}")


def test_opening_a_screen_is_not_announced(listening):
    listening.open("Regex Tester")
    listening.open("Base64")
    listening.press("Encode")
    listening.announces("Input is empty")
    assert [event.name for event in listening.events if event.is_announcement] == ["Input is empty"]
