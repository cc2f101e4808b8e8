"""The main uses of every tool, through assistive technology only."""

from accessible import Role, State, until

TOKEN = "eyJhbGciOiJub25lIn0.eyJuYW1lIjoiQWRhIn0.c2ln"


def test_json_formatter(korvane):
    korvane.write("Input", '{"b":[1,2],"a":null}')
    korvane.press("Validate")
    korvane.shows("Valid JSON")
    korvane.press("Minify")
    korvane.reads("Output", '{"a":null,"b":[1,2]}')
    korvane.press("Tree View")
    korvane.write("Input", '{"a":[1]}')
    korvane.lists("Tree View", "root {1}", "a [1]", "[0] 1")


def test_json_tree_folds(korvane):
    korvane.press("Tree View")
    korvane.write("Input", "[[1]]")
    tree = korvane.list("Tree View")
    until(lambda: len(tree.children) == 3, lambda: f"the tree has {tree.children}")
    inner = tree.children[1]
    assert inner.has(State.EXPANDABLE) and inner.has(State.EXPANDED)
    assert not tree.children[2].has(State.EXPANDABLE)
    inner.press()
    until(lambda: len(tree.children) == 2, lambda: f"the tree still has {tree.children}")
    assert not tree.children[1].has(State.EXPANDED)


def test_base64(korvane):
    korvane.open("Base64")
    korvane.write("Plain Text", "Hello")
    korvane.press("Encode")
    korvane.reads("Base64 Output", "SGVsbG8=")
    korvane.press("Copy Base64 Output")
    korvane.choose("Decode")
    korvane.press("Clear", "Paste")
    korvane.reads("Base64 Input", "SGVsbG8=")
    korvane.press("Decode")
    korvane.reads("Decoded Text", "Hello")


def test_url_encoder(korvane):
    korvane.open("URL Encoder")
    korvane.write("Plain Text", "a b")
    korvane.press("Encode")
    korvane.reads("Encoded URL", "a%20b")
    korvane.choose("Analyze URL")
    korvane.write("URL Input", "https://example.org:8080/path?x=1")
    korvane.press("Analyze URL")
    korvane.shows("example.org")
    korvane.shows("8080")
    korvane.press("Copy x")


def test_jwt_decoder(korvane):
    korvane.open("JWT Decoder")
    korvane.write("JWT Token", TOKEN)
    korvane.press("Decode")
    korvane.reads("Header", '{\n  "alg" : "none"\n}')
    korvane.reads("Payload", '{\n  "name" : "Ada"\n}')
    korvane.reads("Signature", "c2ln")
    korvane.press("Copy Header", "Copy Payload", "Copy Signature")


def test_hash_generator(korvane):
    korvane.open("Hash Generator")
    korvane.write("Input Text", "abc")
    korvane.press("Generate All")
    korvane.reads("MD5", "900150983cd24fb0d6963f7d28e17f72")
    korvane.reads("SHA1", "a9993e364706816aba3e25717850c26c9cd0d89d")
    korvane.choose("SHA1")
    korvane.press("Copy SHA1")
    korvane.is_on("Live Update")
    korvane.write("Input Text", "")
    korvane.reads("MD5", "d41d8cd98f00b204e9800998ecf8427e")


def test_uuid_generator(korvane):
    korvane.open("UUID Generator")
    first = korvane.reads_something("UUID")
    assert len(first) == 36
    korvane.press("Hyphens")
    korvane.is_off("Hyphens")
    korvane.reads("UUID", first.replace("-", ""))
    korvane.step("Count", 3)
    korvane.press("Generate 3")
    history = korvane.list("History")
    until(lambda: len(history.children) >= 3, lambda: f"the history has {history.children}")
    newest = history.children[0]
    (copy,) = newest.children
    assert copy.name == "Copy " + newest.name.split(",")[0]
    copy.press()
    until(lambda: copy.name.startswith("Copied!"), lambda: f"the button is {copy}")
    korvane.press("Clear")
    korvane.shows("Generated UUIDs will appear here")


def test_timestamp_converter(korvane):
    korvane.open("Timestamp")
    korvane.write("Timestamp", "not a number")
    korvane.press("Convert to Date")
    korvane.reads_something("Error")
    korvane.choose("Milliseconds")
    korvane.write("Timestamp", "86400000")
    korvane.press("Convert to Date")
    assert "1970" in korvane.reads_something("Result")
    shown = korvane.editor("Date in Seconds").text
    korvane.press("Previous Month")
    day = next(day for day in korvane.window.descendants() if day.role == Role.RADIO_BUTTON and " 10, " in day.name)
    day.press()
    until(lambda: korvane.editor("Date in Seconds").text != shown, lambda: f"{day} changes nothing")


def test_the_time_of_a_date_is_a_value_in_minutes(korvane):
    korvane.open("Timestamp")
    time = korvane.find("Select Date", Role.SPIN_BUTTON)
    assert time.range == (0, 24 * 60 - 1)
    korvane.step("Select Date", 13 * 60 + 5)
    korvane.is_at("Select Date", 13 * 60 + 5)
    assert "05" in time.text


def test_regex_tester(korvane):
    korvane.open("Regex Tester")
    korvane.write("Pattern", r"(\w)-(\d)")
    korvane.write("Test String", "a-1 b-2")
    korvane.describes("Matches", "2 matches found")
    korvane.lists(
        "Matches",
        "Match 1: a-1",
        "Match 1 Group 1: a",
        "Match 1 Group 2: 1",
        "Match 2: b-2",
        "Match 2 Group 1: b",
        "Match 2 Group 2: 2",
    )
    korvane.press("Copy Match 2")
    korvane.press("Find & Replace")
    korvane.write("Replacement Pattern", "$2$1")
    korvane.reads("Result", "1a 2b")


def test_color_picker(korvane):
    korvane.open("Color Picker")
    korvane.write("HEX Input", "#FF8000")
    korvane.press("Apply")
    korvane.reads("RGB", "rgb(255, 128, 0)")
    korvane.slide("Opacity", 0.5)
    korvane.is_at("Opacity", 0.5)
    korvane.shows("Opacity: 50%")
    korvane.slide("B", 255)
    korvane.press("Apply RGB")
    korvane.reads("RGB", "rgb(255, 128, 255)")


def test_text_diff(korvane):
    korvane.open("Text Diff")
    korvane.write("Original Text", "same\nold")
    korvane.write("Modified Text", "same\nnew")
    korvane.press("Compare")
    korvane.shows("33% similar")
    korvane.lists("Original", "1 same", "removed 2 old", "no line")
    korvane.lists("Modified", "1 same", "no line", "added 2 new")
    korvane.choose("Unified")
    korvane.lists("Unified Diff", "1 same", "removed 2 old", "added 2 new")
    korvane.press("Clear All")
    korvane.reads("Original Text", "")


def test_text_transformer(korvane):
    korvane.open("Text Transformer")
    korvane.write("Input Text", "one two")
    korvane.choose("UPPERCASE")
    korvane.reads("Output", "ONE TWO")
    korvane.choose("Statistics")
    korvane.shows("Words")
    korvane.shows("7")


def test_number_base(korvane):
    korvane.open("Number Base")
    korvane.write("Input", "255")
    korvane.reads("Hexadecimal", "FF")
    korvane.choose("Binary")
    korvane.write("Input", "2")
    korvane.reads_something("Error")
    korvane.write("Input", "1010")
    korvane.reads("Decimal", "10")
    korvane.press("Copy Decimal")


def test_lorem_ipsum(korvane):
    korvane.open("Lorem Ipsum")
    korvane.choose("Words")
    korvane.step("Count", 7)
    korvane.press("Generate")
    assert len(korvane.reads_something("Generated Text").split()) == 7
    korvane.press("Copy Generated Text", "Clear")
    korvane.shows("Click Generate to create Lorem Ipsum text")


def test_password_generator(korvane):
    korvane.open("Password Generator")
    korvane.slide("Password Length", 32)
    korvane.is_at("Password Length", 32)
    assert korvane.find("Password Length", Role.SLIDER).range == (8, 128)
    for kind in ("Uppercase (A-Z)", "Lowercase (a-z)", "Symbols (!@#$%...)"):
        korvane.press(kind)
        korvane.is_off(kind)
    korvane.press("Generate")
    password = korvane.editor("Password")
    until(lambda: password.text.isdigit() and len(password.text) == 32, lambda: f"the password is {password.text}")
    korvane.press("Copy Password")
    history = korvane.list("History")
    until(lambda: history.children[0].name.startswith(password.text), lambda: f"the history has {history.children}")
    history.children[0].press()


def test_an_empty_password_has_a_name(korvane):
    korvane.open("Password Generator")
    for kind in ("Uppercase (A-Z)", "Lowercase (a-z)", "Numbers (0-9)", "Symbols (!@#$%...)"):
        korvane.press(kind)
    korvane.press("Generate")
    newest = until(
        lambda: next((row for row in korvane.list("History").children if row.name.startswith("empty")), None),
        lambda: f"the history has {korvane.rows('History')}",
    )
    assert newest.children[0].name == "Copy empty value"


def test_markdown_preview(korvane):
    korvane.open("Markdown Preview")
    korvane.write("Markdown", "# Title")
    preview = next(control for control in korvane.all("Preview") if "Text" in control.interfaces)
    until(lambda: preview.text.strip() == "Title", lambda: f"the preview reads {preview.text!r}")
    korvane.choose("HTML Output")
    assert "<h1>Title</h1>" in korvane.reads_something("HTML Output")
    korvane.press("Copy HTML Output")


def test_image_converter(korvane):
    korvane.open("Image Converter")
    korvane.pick("Format", "JPEG")
    korvane.slide("Quality", 0.5)
    korvane.shows("50%")
    korvane.write("Width", "640")
    korvane.reads("Width", "640")
    korvane.press("Maintain aspect ratio")
    korvane.is_off("Maintain aspect ratio")
    assert not korvane.button("Apply Transforms").has(State.ENABLED)
    korvane.press("Choose File")
    cancel = next(button for button in korvane.dialog().descendants() if button.name.replace("&", "") == "Cancel")
    cancel.press()
    until(lambda: len(korvane.windows()) == 1, lambda: "the dialog stays open")
