import os

import pytest

from korvane import Korvane


@pytest.fixture
def korvane():
    """The program, newly started."""
    program = Korvane(os.environ["KORVANE_PROGRAM"])
    yield program
    program.stop()
