# The module's surface: catalogue, readable reprs, docstrings and the stub editors read.
import ast
import os

import epromdatablock as ed


def test_catalogue_lists_every_known_id_once():
    entries = ed.catalogue()
    ids = [e["id"] for e in entries]
    assert ids == sorted(set(ids))
    alc = next(e for e in entries if e["id"] == 15731)
    assert alc == {"id": 15731, "name": "RFBO_ALC_DATA", "class": "HwDatablockOroRfboAlcData",
                   "kind": "calibration table", "template": "token", "reads_back": True}
    assert next(e for e in entries if e["id"] == 2)["kind"] == "identification"


def test_reprs_read_as_one_line(sample_path):
    image = ed.Image.open(sample_path)
    assert repr(image) == "<Image 32768 bytes, 14 blocks, end block at 0x2d1c, ok>"
    assert repr(image[5]) == "<Block 15731 RFBO_ALC_DATA at 0x00a4, 176 bytes, ok>"
    assert repr(image[5].table) == "<Table RFBO_ALC_DATA 4*10 of 4*10 int32, factor 1>"
    assert repr(image[13]) == "<Block 65535 END at 0x2d1c, 4 bytes>"
    broken = ed.Image.from_bytes(b"\x00")
    assert repr(broken) == "<Image 1 bytes, 0 blocks, chain broken, 1 problem>"
    assert repr(broken.problems[0]) == (
        "<Problem at 0x0000: block header cut short: 1 byte of 8 left>")


def public(owner):
    return {n for n in dir(owner) if not n.startswith("_")}


def test_every_class_and_function_has_a_docstring_and_a_stub():
    stub = ast.parse(open(os.path.join(os.path.dirname(ed.__file__), "epromdatablock.pyi")).read())
    stubbed = {node.name: {n.name for n in node.body
                           if isinstance(n, ast.FunctionDef) and not n.name.startswith("_")}
               for node in stub.body if isinstance(node, (ast.ClassDef, ast.FunctionDef))}
    assert set(stubbed) == public(ed)
    for name in public(ed):
        thing = getattr(ed, name)
        assert thing.__doc__, name
        if isinstance(thing, type) and issubclass(thing, ed.Error):
            assert thing is ed.Error or ed.Error in thing.__bases__, name
        elif isinstance(thing, type):
            assert public(thing) == stubbed[name], name
            for member in public(thing):
                assert getattr(thing, member).__doc__, f"{name}.{member}"
