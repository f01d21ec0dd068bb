# epromdatablock.inventory: the same rows as `epromtool inventory --json`, for good, damaged,
# empty and missing images and paths with blanks and non-ASCII letters.
import json
import os
import pathlib
import shutil

import epromdatablock as ed


def depot(tmp_path, sample_path):
    folder = tmp_path / "dep\u00f6t"
    (folder / "rack 1").mkdir(parents=True)
    shutil.copyfile(sample_path, folder / "a.eeprom")
    damaged = bytearray(pathlib.Path(sample_path).read_bytes())
    damaged[0x2C + 9] ^= 1
    (folder / "rack 1" / "b, \"bad\".eeprom").write_bytes(bytes(damaged))
    (folder / "rack 1" / "empty").write_bytes(b"")
    return folder


def test_rows_match_the_tool(tmp_path, sample_path, tool, snake):
    folder = depot(tmp_path, sample_path)
    rows = ed.inventory([folder, str(tmp_path / "missing")], recursive=True)
    code, out = tool("inventory", "--json", "-r", folder, tmp_path / "missing")
    assert code == 2
    assert rows == snake(json.loads(out)["images"])
    assert [(os.path.relpath(r["path"], tmp_path), r["verdict"]) for r in rows] == [
        ("dep\u00f6t/a.eeprom", "ok"),
        ("dep\u00f6t/rack 1/b, \"bad\".eeprom", "failed checks"),
        ("dep\u00f6t/rack 1/empty", "broken chain"),
        ("missing", "unreadable"),
    ]
    assert rows[0] == {
        "path": str(folder / "a.eeprom"), "verdict": "ok", "blocks": 14,
        "part_number": "1234.5678.02", "serial_number": 102345, "hardware_code": 37,
        "product_date": "2021-06-15", "name": "RF-BOARD 6G", "last_service_date": "2023-11-07",
        "operating_hours": 15872, "problems": 0, "reason": None}
    assert rows[3]["reason"] == "No such file or directory" and rows[3]["blocks"] is None
    # Every row has every column: a DataFrame takes the list as it is.
    assert all(list(row) == list(rows[0]) for row in rows)


def test_one_path_and_no_walk(tmp_path, sample_path):
    folder = depot(tmp_path, sample_path)
    assert [r["verdict"] for r in ed.inventory(folder / "a.eeprom")] == ["ok"]
    only = ed.inventory(str(folder))
    assert [(r["verdict"], r["reason"]) for r in only] == [("unreadable", "Is a directory")]
