import os

import pytest

from korvane import Korvane


@pytest.fixture
def korvane():
    """A newly started program."""
    program = Korvane(os.environ["KORVANE_PROGRAM"])
    yield program
    program.stop()
