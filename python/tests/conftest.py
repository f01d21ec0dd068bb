# Shared fixtures of the module's tests: the sample image, a scratch copy of it, the built tool.
import os
import shutil
import subprocess

import pytest

SOURCE_DIR = os.environ.get(
    "EPROM_SOURCE_DIR", os.path.join(os.path.dirname(__file__), "..", ".."))
SAMPLE = os.path.join(SOURCE_DIR, "examples", "sample.eeprom")


@pytest.fixture
def sample_path():
    return SAMPLE


@pytest.fixture
def scratch(tmp_path):
    """A copy of the sample that a test may change."""
    path = tmp_path / "module.eeprom"
    shutil.copyfile(SAMPLE, path)
    return path


@pytest.fixture
def tool():
    """Runs the built epromtool; returns (exit code, standard output)."""
    binary = os.environ.get("EPROMTOOL")
    if not binary:
        pytest.skip("EPROMTOOL is not set")

    def run(*arguments):
        done = subprocess.run([binary, *map(str, arguments)], capture_output=True, text=True)
        return done.returncode, done.stdout

    run.binary = binary
    return run
