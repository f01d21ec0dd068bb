# The module against the tool and the sample image: listing, tables, editing and saving.
import json
import struct

import pytest

import epromdatablock as ed


def test_every_block_matches_the_tool_listing(sample_path, tool, snake):
    code, out = tool("list", "--json", sample_path)
    assert code == 0
    listed = json.loads(out)
    del listed["image"], listed["exitCode"]
    image = ed.Image.open(sample_path)
    assert image.to_dict() == snake(listed)
    assert len(image) == len(image.blocks) == len(listed["blocks"]) == 14
    for block, entry in zip(image.blocks, image.to_dict()["blocks"]):
        assert block.to_dict() == entry
        assert (block.offset, block.id, block.size, block.alignment, block.name, block.class_name,
                block.kind, block.is_end, block.checksum, block.crc32, block.over_capacity) == (
            entry["offset"], entry["id"], entry["size"], entry["alignment"], entry["name"],
            entry["class_name"], entry["kind"], entry["end"], entry["checksum"], entry["crc32"],
            entry["over_capacity"])
    assert image.problems == [] and image.verify()
    assert (image.end_offset, image.bytes_used, image.bytes_free) == (
        listed["endOffset"], listed["used"], listed["free"])


def test_tables_read_as_the_tool_exports_them(sample_path, tool):
    code, text = tool("export", sample_path)
    assert code == 0
    image = ed.Image.open(sample_path)
    assert "".join(block.export() for block in image.blocks) == text == image.export()
    table = image.find(15843).table
    assert (table.shape, table.indexes, table.cells[3]) == (
        (4, 5), [0, 10, 20, 30], [3011, 3006, 2996, 2987, 2972])
    assert image.find(15731).table.indexes is None
    level = image.find(15716).table
    assert (level.rows, level.cols, level.capacity) == (2, 8, (2, 128))
    assert (level.factor, level.raw_type) == (0.01, "int32")
    assert level.raw[0] == [2050, 2025, 1980, 1940, 1890, 1825, 1760, 1700]
    assert level.cells[1][3] == 1745 * 0.01
    assert image.find(16003).table.descriptors[:3] == [
        "USER_CAL        ", "NRP18S          ", "SN_101234       "]
    assert image.find(15716).table.descriptors is None
    assert image[0].table is None

    # set_cell scales, cuts toward zero and keeps the checksum.
    block = image.find(15716)
    block.table.set_cell(0, 1, 20.259)      # 2025.9 stored as 2025
    block.table.set_cell(0, 2, -3.999)      # -399.9 stored as -399
    block.table.set_raw(1, 7, 1234)
    assert block.table.raw[0][:3] == [2050, 2025, -399]
    assert block.table.raw[1][7] == 1234
    assert block.ok and block.checksum["stored"] == block.checksum["computed"]
    assert image.verify()


def test_saved_edit_changes_only_its_block(scratch):
    original = scratch.read_bytes()
    image = ed.Image.open(scratch)
    image.find(15731).table.set_raw(2, 3, 2241)
    image.save(scratch)
    backup = scratch.parent / (scratch.name + ".bak")
    assert backup.read_bytes() == original
    new = scratch.read_bytes()
    cell = 0xA4 + 16 + (2 * 10 + 3) * 4
    assert new == (original[:0xA4 + 4] + struct.pack("<H", image[5].checksum["computed"]) +
                   original[0xA4 + 6:cell] + struct.pack("<i", 2241) + original[cell + 4:])
    assert image.diff(ed.Image.from_bytes(original)) == {
        "differences": [{"kind": "changed", "id": 15731, "offset_a": 0xA4, "size_a": 176,
                         "offset_b": 0xA4, "size_b": 176, "bytes_changed": 1,
                         "header_changes": [{"field": "checksum", "before": image[5].checksum["stored"],
                                             "after": 28185}]}],
        "free_space_differs": False}
    backup.unlink()
    image.save(scratch, backup=False)
    assert not backup.exists()


def test_import_plan_is_the_tools_report_and_applies(sample_path, tool, tmp_path, snake):
    image = ed.Image.open(sample_path)
    text = image.export()
    assert image.plan_import(text).changed_count == 0

    edited = text.replace("1: \t1812.000\t1820.000", "1: \t1812.000\t1821.000")
    calibration = tmp_path / "edited.cal"
    calibration.write_text(edited)
    code, out = tool("import", "--dry-run", "--json", sample_path, calibration)
    report = json.loads(out)
    assert (report.pop("image"), report.pop("calibrationFile"), report.pop("blockCount"),
            report.pop("written")) == (sample_path, str(calibration), 14, "")
    plan = image.plan_import(edited)
    assert plan.to_dict() == snake(report)
    assert [(b.index, b.id, b.offset, b.name, b.outcome, b.note, b.complaints)
            for b in plan.blocks] == [tuple(b.values()) for b in (
                {k: d[k] for k in ("index", "id", "offset", "name", "outcome", "note",
                                   "complaints")} for d in report["blocks"])]
    assert [(s.name, s.line, s.reason) for s in plan.skipped_sections] == [
        (s["name"], s["line"], s["reason"]) for s in report["skippedSections"]]
    assert plan.changed_count == report["replaced"] == 1
    changed = next(b for b in plan.blocks if b.outcome == "changed")
    assert (changed.id, changed.note) == (15731, "1 cell changed, checksum 0x6e19 -> 0x6e18")
    image.apply_import(plan)
    assert image.find(15731).table.raw[0][:2] == [1812, 1821]
    assert image.verify()
