# Bad input of every kind: damaged images listed as problems, wrong calls as Python exceptions.
import contextlib
import random
import struct
import subprocess

import pytest

import epromdatablock as ed


@pytest.mark.parametrize("data, problem", [
    (b"", "the image is empty"),
    (struct.pack("<4H", 15731, 0xFFFF, 0, 0) + bytes(40),
     "block 15731 of 65535 bytes runs past the end of the image (48 bytes left)"),
])
def test_damaged_images_list_their_problem(data, problem):
    image = ed.Image.from_bytes(data)
    assert [p.message for p in image.problems] == [problem]
    assert image.chain_broken and not image.verify() and image.to_bytes() == data


def test_hostile_table_counts_are_reported_and_read_within_capacity():
    block = struct.pack("<4H2I", 15731, 24, 0, 0, 0xFFFFFFFF, 7) + bytes(8)
    image = ed.Image.from_bytes(block + b"\xff\xff\x00\x00")
    table = image[0].table
    assert (table.rows, table.cols, table.shape) == (4294967295, 7, (4, 7))
    assert table.cells == [[0.0] * 7] * 4 and table.raw == [[0] * 7] * 4
    assert image[0].over_capacity == "counts 4294967295*7 exceed the capacity 4*10"


@pytest.mark.parametrize("call", [
    lambda image: ed.Image.from_bytes("text"),
    lambda image: ed.Image.open(5),
    lambda image: image.find("15731"),
    lambda image: image.find(70000),
    lambda image: image.find(15731).table.set_cell("0", 0, 1.0),
    lambda image: image.plan_import(42),
    lambda image: image.export(ids="15731"),
])
def test_wrong_argument_types_raise_type_error(sample_path, call):
    with pytest.raises(TypeError):
        call(ed.Image.open(sample_path))


@pytest.mark.parametrize("error, call, message", [
    (IndexError, lambda image: image[14], "block index 14 out of range (14)"),
    (IndexError, lambda image: image[-15], "block index -15 out of range (14)"),
    (ed.OutOfRangeError, lambda image: image.find(15731).table.set_raw(4, 0, 1),
     "cell (4, 0) is outside the 4*10 cells of RFBO_ALC_DATA"),
    (ed.OutOfRangeError, lambda image: image.find(15731).table.set_cell(0, 10, 1.0),
     "cell (0, 10) is outside the 4*10 cells of RFBO_ALC_DATA"),
    (ed.OutOfRangeError, lambda image: image.find(15731).table.set_raw(-1, 0, 1),
     "row -1 is outside the table"),
    (ed.DoesNotFitError, lambda image: image.find(15731).table.set_raw(0, 0, 2**40),
     "cell (0, 0) of RFBO_ALC_DATA: 1099511627776 does not fit the stored int32 from "
     "-2147483648 to 2147483647"),
    (ValueError, lambda image: image.find(15731).table.set_raw(0, 0, 1.5),
     "cell (0, 0) of RFBO_ALC_DATA: 1.5 does not fit the stored int32 from -2147483648 to "
     "2147483647, integers only"),
    (ValueError, lambda image: image.find(15730).table.set_raw(0, 0, -1),
     "cell (0, 0) of RFBO_ALC_FREQ: -1 does not fit the stored uint32 from 0 to 4294967295"),
    (ValueError, lambda image: image.find(15730).table.set_cell(0, 0, 5e11),
     "cell (0, 0) of RFBO_ALC_FREQ: 500000000000 does not fit the stored uint32 from 0 to "
     "4294967295"),
    (ed.UnknownFieldError, lambda image: image.find(2).set_field("NOPE", 1),
     "no field NOPE; the block has ALIGNMENT, EEPROMSIZE, PARTNUMBER, HWCODE, PRODUCTINDEX, SN, "
     "PRODUCTDATE, READCODE, TESTINSTRUCTION, NAME"),
    (ed.ReadOnlyError, lambda image: image.find(2).set_field("ALIGNMENT", 1),
     "ALIGNMENT is read only: the block's class has no setter for it"),
    (ed.NoFieldsError, lambda image: image.find(15731).set_field("SN", 1),
     "block 15731 has no named fields"),
    (ed.BadTextError, lambda image: image.plan_import(image.export().replace("4*10", "4*x")),
     "section RFBO_ALC_DATA, line 53: column count could not be read"),
])
def test_bad_indexes_and_values_raise_and_change_nothing(sample_path, error, call, message):
    image = ed.Image.open(sample_path)
    with pytest.raises(error) as raised:
        call(image)
    assert str(raised.value) == message
    # Each class is the library's code and still the builtin raised before it existed.
    assert isinstance(raised.value, ed.Error) == (error is not IndexError)
    assert isinstance(raised.value, (IndexError, ValueError))
    assert image.verify() and image.to_bytes() == open(sample_path, "rb").read()


def test_file_errors_raise_os_error(tmp_path, sample_path):
    missing = tmp_path / "missing.eeprom"
    with pytest.raises(ed.UnreadableError) as raised:
        ed.Image.open(missing)
    assert str(raised.value) == f"cannot read {missing}: No such file or directory"
    assert isinstance(raised.value, OSError) and raised.value.code == "input unreadable"
    with pytest.raises(ed.WriteFailedError) as raised:
        ed.Image.open(sample_path).save(tmp_path)
    assert str(raised.value) == f"cannot write {tmp_path}: Is a directory"
    assert isinstance(raised.value, OSError) and raised.value.code == "write failed"


def test_export_keeps_bytes_that_are_not_utf8(scratch, tool):
    data = bytearray(scratch.read_bytes())
    at = data.index(b"RF-BOARD 6G")
    data[at:at + 2] = b"\x9d\xe4"
    scratch.write_bytes(bytes(data))
    image = ed.Image.open(scratch)
    exported = image.export()
    assert "\udc9d\udce4-BOARD 6G" in exported
    assert exported.encode("utf-8", "surrogateescape") == subprocess.run(
        [tool.binary, "export", str(scratch)], capture_output=True).stdout
    # The import reads the same bytes back: an unedited name keeps its stored bytes.
    plan = image.plan_import(exported)
    assert plan.changed_count == 0
    assert [b.outcome for b in plan.blocks if b.id == 2] == ["unchanged"]


def test_mutated_samples_never_fail_outside_the_documented_errors(sample_path):
    data = open(sample_path, "rb").read()
    rng = random.Random(15)
    for _ in range(100):
        mutated = bytearray(data[:rng.choice([16, 200, 3000, len(data)])])
        for _ in range(rng.randint(1, 6)):
            mutated[rng.randrange(len(mutated))] = rng.randrange(256)
        image = ed.Image.from_bytes(bytes(mutated))
        repr(image)
        for block in image.blocks:
            repr(block), block.checksum, block.crc32, block.export()
            if (table := block.table) is not None:
                repr(table), table.cells, table.raw, table.indexes, table.descriptors
                with contextlib.suppress(IndexError, ValueError):
                    table.set_raw(0, 0, 1)
        with contextlib.suppress(ValueError):
            image.plan_import(image.export())
