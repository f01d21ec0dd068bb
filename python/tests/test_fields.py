# Named fields of record blocks and chains inside a larger file, against the tool.
import datetime
import json

import epromdatablock as ed

IDENT_FIELDS = {
    "ALIGNMENT": "0", "EEPROMSIZE": "32768", "PARTNUMBER": "1234.5678.02", "HWCODE": "37",
    "PRODUCTINDEX": "03.01", "SN": "102345", "PRODUCTDATE": "2021-06-15", "READCODE": "0",
    "TESTINSTRUCTION": "01.02", "NAME": "RF-BOARD 6G"}


def test_fields_set_through_the_class_change_only_their_block(scratch, tool):
    image = ed.Image.open(scratch)
    ident = image.find(2)
    assert list(ident.fields.items()) == list(IDENT_FIELDS.items())
    assert image.find(15731).fields is None and image.find(15731).field_values is None
    assert ident.field_values == {
        "ALIGNMENT": 0, "EEPROMSIZE": 32768, "PARTNUMBER": (12345678, 2), "HWCODE": 37,
        "PRODUCTINDEX": 301, "SN": 102345, "PRODUCTDATE": datetime.date(2021, 6, 15),
        "READCODE": 0, "TESTINSTRUCTION": 102, "NAME": "RF-BOARD 6G"}
    assert image.find(200).field_values["OPHOURS"] == 12345
    ident.set_field("SN", 123456)
    ident.set_field("productdate", datetime.date(2026, 11, 22))
    ident.set_field("NAME", "RF-BOARD 6G B")
    assert ident.fields == {**IDENT_FIELDS, "SN": "123456", "PRODUCTDATE": "2026-11-22",
                            "NAME": "RF-BOARD 6G B"}
    assert ident.checksum == {"stored": 0x52B3, "computed": 0x52B3, "ok": True}
    image.save(scratch)
    assert tool("verify", scratch)[0] == 0
    changes = json.loads(tool("diff", "--json", str(scratch) + ".bak", scratch)[1])["differences"]
    assert [(c["id"], c["bytesChanged"]) for c in changes] == [(2, 6)]


def test_chain_inside_a_larger_file_keeps_the_bytes_around_it(tmp_path, sample_path):
    sample = open(sample_path, "rb").read()
    flash = tmp_path / "flash.bin"
    flash.write_bytes(bytes(0x10000) + sample)
    image = ed.Image.open(flash, offset=0x10000)
    assert (image.chain_start, image.verify(), image.find(300).offset) == (0x10000, True, 0x10044)
    image.find(300).set_field("OPHOURS", 16000)
    image.save(flash, backup=False)
    assert flash.read_bytes()[:0x10044] == bytes(0x10000) + sample[:0x44]
    assert ed.Image.open(flash, offset=0x10000).find(300).fields["OPHOURS"] == "16000"
    assert ed.Image.from_bytes(sample, offset=-1).chain_broken
