"""epromtool on EEPROM devices: the FUSE double of an at24 sysfs file and a loop block device.

Pages written are counted by the double; faults are injected by it. A test that cannot mount or
attach says SKIPPED and why."""
import os
import random
import re
import shutil
import signal
import stat
import struct
import subprocess
import sys
import time

import pytest

sys.path.insert(0, os.path.dirname(__file__))
from at24_double import Double, fuse_unavailable  # noqa: E402

TOOL = os.environ["EPROMTOOL"]
SAMPLE = open(os.path.join(os.environ["EPROM_SOURCE_DIR"], "examples/sample.eeprom"), "rb").read()
CAL = open(os.path.join(os.environ["EPROM_SOURCE_DIR"], "examples/sample.cal"), "rb").read()


def tool(*args, cwd):
    p = subprocess.run([TOOL, *map(str, args)], cwd=cwd, capture_output=True, text=True)
    return p.returncode, p.stdout, p.stderr


def blocks(image):
    """(offset, size) of every block of the chain, the end block last."""
    offset, found = 0, []
    while offset + 4 <= len(image):
        ident, size = struct.unpack_from("<HH", image, offset)
        found.append((offset, 4 if ident == 0xFFFF else size))
        if ident == 0xFFFF or size < 8:
            break
        offset += size
    return found


@pytest.fixture
def fuse(tmp_path):
    reason = fuse_unavailable()
    if reason:
        pytest.skip("SKIPPED: " + reason)
    with Double(str(tmp_path), SAMPLE) as double:
        yield double


@pytest.fixture
def loop(tmp_path):
    if not shutil.which("losetup"):
        pytest.skip("SKIPPED: no losetup")
    backing = tmp_path / "loop.eeprom"
    backing.write_bytes(SAMPLE)
    attach = subprocess.run(["losetup", "-f", "--show", str(backing)], capture_output=True, text=True)
    if attach.returncode != 0:
        pytest.skip("SKIPPED: no loop device: " + attach.stderr.strip())
    device = attach.stdout.strip()
    try:
        yield device, backing
    finally:
        subprocess.run(["losetup", "-d", device])


def edited(tmp_path, *args):
    """What `epromtool ARGS` makes of a plain copy of the sample: the expected device content."""
    plain = tmp_path / "plain.eeprom"
    plain.write_bytes(SAMPLE)
    code, _, err = tool(args[0], plain, *args[1:], "--no-backup", cwd=tmp_path)
    assert code == 0, err
    return plain.read_bytes()


def many_pages(tmp_path):
    """A consistent image that differs from the sample in a byte of every 64 of every block.
    Each such byte grows by one, so that no part of the changes can cancel out in a checksum."""
    new = bytearray(SAMPLE)
    for offset, size in blocks(SAMPLE)[:-1]:
        for at in range(offset + 16, offset + size, 64):
            new[at] = new[at] + 1 if new[at] < 0xFF else new[at]
    path = tmp_path / "new.eeprom"
    path.write_bytes(bytes(new))
    tool("fix", path, "--no-backup", cwd=tmp_path)
    assert tool("verify", path, cwd=tmp_path)[0] == 0
    return path


def test_commands_write_only_changed_pages_on_the_double(fuse, tmp_path):
    expected = edited(tmp_path, "set", "--id", "2", "SN=4242")
    code, out, err = tool("set", fuse.path, "--id", "2", "SN=4242", "--in-place", "--dry-run", cwd=tmp_path)
    assert code == 0 and re.search(r"dry run: would write [12] pages? of 32 bytes", out), out + err
    assert fuse.stats()["pages"] == 0 and fuse.content() == SAMPLE
    # A backup that cannot be written stops the command before the device is touched.
    code, _, err = tool("set", fuse.path, "--id", "2", "SN=4242", "--in-place", "--backup-dir",
                        tmp_path / "missing", cwd=tmp_path)
    assert code == 3 and "cannot write the backup" in err and "left as it is" in err
    assert fuse.stats()["pages"] == 0 and fuse.content() == SAMPLE

    code, out, err = tool("set", fuse.path, "--id", "2", "SN=4242", "--in-place", cwd=tmp_path)
    assert code == 0, err
    assert fuse.content() == expected and 1 <= fuse.stats()["pages"] <= 2
    backup = re.search(r"backup of \S+ kept as (\S+)", out).group(1)
    assert re.fullmatch(r".*/eeprom-mnt-\d{8}-\d{6}\.eeprom", backup)
    assert open(backup, "rb").read() == SAMPLE and stat.S_IMODE(os.stat(backup).st_mode) == 0o600
    assert "read-back of %s matched" % fuse.path in out

    cal = tmp_path / "edit.cal"
    cal.write_bytes(CAL.replace(b"102345", b"777777"))
    code, out, err = tool("import", fuse.path, cal, "--in-place", "--no-backup", cwd=tmp_path)
    assert code == 0 and fuse.content() == edited(tmp_path, "import", cal), out + err
    code, out, err = tool("fix", fuse.path, "--in-place", cwd=tmp_path)
    assert code == 0 and "nothing to fix" in out

    code, out, err = tool("write", backup, fuse.path, "--in-place", "--no-backup", cwd=tmp_path)
    assert code == 0 and fuse.content() == SAMPLE, out + err
    assert tool("verify", fuse.path, cwd=tmp_path)[0] == 0


# The faults of the double at every point of a write, and what the one error line says.
FAULTS = [
    ({"eio_after": 0}, r"cannot write .* at 0x\w+: Input/output error, after 0 of \d+ pages"),
    ({"eio_after": 5}, r"Input/output error, after 5 of \d+ pages"),
    ({"eio_after": "last"}, r"Input/output error, after (\d+) of \d+ pages"),
    ({"stall_after": 3}, r"Input/output error, after 3 of"),
    ({"flip_read": True}, "the read-back differs at 0x"),
    ({"read_only": True}, "cannot write .*: Permission denied; nothing written"),
]


def test_fault_matrix(fuse, tmp_path):
    new = many_pages(tmp_path)
    code, out, _ = tool("write", new, fuse.path, "--in-place", "--dry-run", cwd=tmp_path)
    total = int(re.search(r"would write (\d+) pages", out).group(1))
    assert code == 0 and total > 20
    for faults, message in FAULTS:
        if faults.get("eio_after") == "last":
            faults = {"eio_after": total - 1}
        for left in tmp_path.glob("eeprom-mnt-*"):
            left.unlink()
        fuse.faults(**faults)
        code, out, err = tool("write", new, fuse.path, "--in-place", cwd=tmp_path)
        assert code == 3 and re.search(message, err) and err.count("\n") == 1, (faults, err)
        kept = list(tmp_path.glob("eeprom-mnt-*"))
        if "read_only" in faults:
            assert kept == [] and fuse.content() == SAMPLE
            continue
        assert len(kept) == 1 and kept[0].read_bytes() == SAMPLE and str(kept[0].name) in err
        fuse.faults()
        code, _, err = tool("write", kept[0], fuse.path, "--in-place", "--no-backup", cwd=tmp_path)
        assert code == 0 and fuse.content() == SAMPLE, (faults, err)
    # Writes that take half a page at a time are looped until complete.
    fuse.faults(short=True)
    assert tool("write", new, fuse.path, "--in-place", "--no-backup", cwd=tmp_path)[0] == 0
    assert fuse.content() == new.read_bytes()


def test_sigkill_during_a_device_write(tmp_path):
    reason = fuse_unavailable()
    if reason:
        pytest.skip("SKIPPED: " + reason)
    new = many_pages(tmp_path)
    after = new.read_bytes()
    original = tmp_path / "sample.eeprom"
    original.write_bytes(SAMPLE)
    with Double(str(tmp_path), SAMPLE, delay_ms=3) as fuse:
        seed = random.randrange(1 << 30)
        chance = random.Random(seed)
        torn = 0
        for run in range(25):
            fuse.faults()
            subprocess.run([TOOL, "write", original, fuse.path, "--in-place", "--no-backup"], capture_output=True)
            assert fuse.content() == SAMPLE
            backups = tmp_path / ("run%d" % run)
            backups.mkdir()
            process = subprocess.Popen([TOOL, "write", new, fuse.path, "--in-place", "--backup-dir", backups],
                                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
            time.sleep(chance.uniform(0, 0.6))
            process.send_signal(signal.SIGKILL)
            process.wait()
            now = fuse.content()
            kept = [p for p in backups.iterdir() if not p.name.startswith(".")]
            context = "run %d, seed %d" % (run, seed)
            if now != SAMPLE:
                assert len(kept) == 1 and kept[0].read_bytes() == SAMPLE, context
            assert all(p.read_bytes() == SAMPLE for p in kept), context
            if now in (SAMPLE, after):
                continue
            torn += 1
            code, out, _ = tool("verify", fuse.path, cwd=tmp_path)
            for offset, size in blocks(after):
                part = now[offset:offset + size]
                if part not in (SAMPLE[offset:offset + size], after[offset:offset + size]):
                    assert code != 0 and "0x%04x:" % offset in out, (context, offset, out)
        print("SIGKILL: %d of 25 runs left a torn write, seed %d" % (torn, seed))
        assert torn > 0


def test_loop_block_device(loop, tmp_path):
    device, backing = loop
    code, out, err = tool("verify", device, cwd=tmp_path)
    assert code == 0, err
    expected = edited(tmp_path, "set", "--id", "2", "SN=4242")
    code, out, err = tool("set", device, "--id", "2", "SN=4242", "--backup-dir", tmp_path, cwd="/")
    assert code == 0 and "read-back of %s matched" % device in out, err
    assert re.search(r"wrote [12] pages? of 32 bytes", out)
    backup = re.search(r"kept as (\S+)", out).group(1)
    assert os.path.dirname(backup) == str(tmp_path) and open(backup, "rb").read() == SAMPLE
    subprocess.run(["sync"])
    assert backing.read_bytes() == expected
    code, out, err = tool("write", tmp_path / "plain.eeprom", device, "--page-size", "4096", cwd=tmp_path)
    assert code == 0 and "nothing differs" in out, out + err
    short = tmp_path / "short.eeprom"
    short.write_bytes(SAMPLE[:1024])
    code, _, err = tool("write", short, device, "--force", cwd=tmp_path)
    assert code == 2 and "holds 32768 bytes, the image 1024; nothing written" in err


def test_backups_keep_permissions_and_never_follow_links(tmp_path):
    image = tmp_path / "secret.eeprom"
    image.write_bytes(SAMPLE)
    image.chmod(0o600)
    assert tool("set", image, "--id", "2", "SN=1", cwd=tmp_path)[0] == 0
    assert stat.S_IMODE(os.stat(str(image) + ".bak").st_mode) == 0o600
    assert stat.S_IMODE(image.stat().st_mode) == 0o600
    os.unlink(str(image) + ".bak")
    victim = tmp_path / "victim"
    victim.write_bytes(b"keep me")
    os.symlink(victim, str(image) + ".bak")
    before = image.read_bytes()
    code, _, err = tool("set", image, "--id", "2", "SN=2", cwd=tmp_path)
    assert code == 3 and "it is a symbolic link" in err and "left as it is" in err
    assert victim.read_bytes() == b"keep me" and image.read_bytes() == before
    broken = tmp_path / "broken.eeprom"
    broken.write_bytes(SAMPLE[:100])
    code, _, err = tool("write", broken, image, cwd=tmp_path)
    assert code == 2 and "--force writes it anyway" in err and image.read_bytes() == before
