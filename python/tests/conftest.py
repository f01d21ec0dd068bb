# Shared fixtures: the sample image, a scratch copy of it, tool(*arguments) running the built
# epromtool to (exit code, standard output), and snake(json) with the tool's names as the
# module spells them.
import os
import re
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
    path = tmp_path / "module.eeprom"
    shutil.copyfile(SAMPLE, path)
    return path


@pytest.fixture
def tool():
    binary = os.environ.get("EPROMTOOL")
    if not binary:
        pytest.skip("EPROMTOOL is not set")

    def run(*arguments):
        done = subprocess.run([binary, *map(str, arguments)], capture_output=True, text=True)
        return done.returncode, done.stdout

    run.binary = binary
    return run


@pytest.fixture
def snake():
    """The one mapping between the tool's JSON and the module's dicts: camelCase keys become
    snake_case, nothing else changes."""
    def convert(value):
        if isinstance(value, dict):
            return {re.sub(r"[A-Z]", lambda m: "_" + m.group(0).lower(), k): convert(v)
                    for k, v in value.items()}
        if isinstance(value, list):
            return [convert(v) for v in value]
        return value

    return convert
