# Type stub of the epromdatablock module: EEPROM images, their blocks and calibration tables.
"""EEPROM images of the datablock library: blocks and their checks, calibration tables,
calibration text export and import, and the block catalogue."""

import datetime
import os
from typing import Any, Dict, List, Optional, Sequence, Tuple, Union

import numpy

_Path = Union[str, "os.PathLike[str]"]

__version__: str

# Every error the library reports is an `Error`, and also the builtin exception the call
# raised before the classes existed, so that `except ValueError` keeps working. `code` names the
# library's result code in words.
class Error(Exception):
    """Base class of every error the library reports."""
    code: str

class UnknownFieldError(Error, ValueError):
    """"unknown field": set_field with a name the block does not have."""

class ReadOnlyError(Error, ValueError):
    """"read only": set_field on a field without a setter."""

class DoesNotFitError(Error, ValueError):
    """"value does not fit": a value outside its field's or cell's rule."""

class UnknownBlockError(Error, ValueError):
    """"no such block"."""

class ChainBrokenError(Error, ValueError):
    """"chain broken": the chain of blocks does not reach an end block."""

class BadTextError(Error, ValueError):
    """"malformed calibration text": plan_import of a malformed section."""

class CorruptBlockError(Error, ValueError):
    """"corrupt block": a block that would fail its checks."""

class UnreadableError(Error, OSError):
    """"input unreadable": Image.open of a file that cannot be read."""

class WriteFailedError(Error, OSError):
    """"write failed": Image.save that could not write."""

class RefusedError(Error, ValueError):
    """"refused"."""

class ChecksumError(Error, ValueError):
    """"checksum failed"."""

class CrcError(Error, ValueError):
    """"CRC-32 failed"."""

class OverCapacityError(Error, ValueError):
    """"counts exceed the capacity"."""

class NoFieldsError(Error, ValueError):
    """"no named fields": set_field on a block without named fields."""

class BadAssignmentError(Error, ValueError):
    """"malformed assignment"."""

class OutOfRangeError(Error, IndexError):
    """"index out of range": a table cell outside the table."""

class NoRoomError(Error, ValueError):
    """"no room in the image": apply_import whose new chain does not fit."""

class Problem:
    """One thing found wrong in an image, at its offset."""
    @property
    def offset(self) -> int: ...
    @property
    def message(self) -> str: ...
    @property
    def code(self) -> str:
        """'checksum failed', 'CRC-32 failed', 'counts exceed the capacity' or 'chain broken'."""

class Table:
    """The calibration table of one block, read live from its image."""
    @property
    def rows(self) -> int: ...
    @property
    def cols(self) -> int: ...
    @property
    def shape(self) -> Tuple[int, int]: ...
    @property
    def capacity(self) -> Tuple[int, int]: ...
    @property
    def factor(self) -> float: ...
    @property
    def raw_type(self) -> str: ...
    @property
    def cells(self) -> List[List[float]]: ...
    @property
    def raw(self) -> List[List[Union[int, float]]]: ...
    @property
    def indexes(self) -> Optional[List[int]]: ...
    @property
    def descriptors(self) -> Optional[List[str]]: ...
    def set_cell(self, row: int, col: int, value: float) -> None:
        """Sets a cell from a scaled value: divided by the factor, cut toward zero.
        OutOfRangeError (an IndexError) outside the table, DoesNotFitError (a ValueError)."""
    def set_raw(self, row: int, col: int, raw: Union[int, float]) -> None:
        """Sets a cell to a stored value as it is; errors as set_cell."""
    @property
    def values(self) -> "numpy.ndarray":
        """The cells as a new float array of `shape` (a copy), factor applied."""
    @values.setter
    def values(self, values: "numpy.ndarray") -> None:
        """Sets every changed cell through the checks of set_cell, all or nothing."""
    @property
    def axis(self) -> Optional["numpy.ndarray"]:
        """The columns' frequencies in Hz from the paired frequency vector, or None."""
    @property
    def axis_problem(self) -> Optional[str]:
        """Why a table with a frequency vector has no axis here, or None."""
    def to_dataframe(self) -> Any:
        """A pandas DataFrame of the cells; ImportError without pandas."""
    def plot(self, ax: Any = None) -> Any:
        """One line per row against the frequency in MHz on a matplotlib Axes; returns it."""
    def _repr_html_(self) -> str: ...

class Block:
    """One block of an image's chain with the outcome of its checks."""
    @property
    def index(self) -> int: ...
    @property
    def offset(self) -> int: ...
    @property
    def id(self) -> int: ...
    @property
    def size(self) -> int: ...
    @property
    def alignment(self) -> int: ...
    @property
    def name(self) -> str: ...
    @property
    def class_name(self) -> str: ...
    @property
    def kind(self) -> str: ...
    @property
    def is_end(self) -> bool: ...
    @property
    def checksum(self) -> Optional[Dict[str, Union[int, bool]]]: ...
    @property
    def crc32(self) -> Optional[Dict[str, Union[int, bool]]]: ...
    @property
    def over_capacity(self) -> Optional[str]: ...
    @property
    def ok(self) -> bool: ...
    @property
    def table(self) -> Optional[Table]: ...
    @property
    def fields(self) -> Optional[Dict[str, str]]: ...
    @property
    def field_values(
        self,
    ) -> Optional[Dict[str, Union[int, str, Optional[datetime.date], Tuple[int, int]]]]:
        """The fields typed: int, str, datetime.date (None where month and day make no date),
        (part number, variant)."""
    def set_field(self, name: str, value: Union[str, int, float, datetime.date]) -> None:
        """Sets a named field through the block's own setter; ValueError when it does not fit."""
    def to_bytes(self) -> bytes:
        """The block's own bytes."""
    def export(self) -> str:
        """The block's section of a calibration file."""
    def to_dict(self) -> Dict[str, Any]:
        """The block as `epromtool list --json` shows it, names in snake_case."""

class ImportedBlock:
    """What a calibration text does to one block."""
    @property
    def index(self) -> int: ...
    @property
    def id(self) -> int: ...
    @property
    def offset(self) -> int: ...
    @property
    def name(self) -> str: ...
    @property
    def outcome(self) -> str: ...
    @property
    def note(self) -> str: ...
    @property
    def complaints(self) -> List[str]: ...
    @property
    def before(self) -> bytes: ...
    @property
    def after(self) -> bytes: ...

class SkippedSection:
    """A section of a calibration text that the import does not read."""
    @property
    def name(self) -> str: ...
    @property
    def line(self) -> int: ...
    @property
    def reason(self) -> str: ...

class ImportPlan:
    """What a calibration text would do to an image, block by block."""
    @property
    def blocks(self) -> List[ImportedBlock]: ...
    @property
    def skipped_sections(self) -> List[SkippedSection]: ...
    @property
    def changed_count(self) -> int: ...
    def to_dict(self) -> Dict[str, Any]:
        """The plan as `epromtool import --json` reports it, names in snake_case."""

class Image:
    """A whole EEPROM image: its chain of blocks walked once, each block checked."""
    def _repr_html_(self) -> str: ...
    @staticmethod
    def open(path: _Path, offset: int = 0) -> "Image":
        """Reads an image file whose chain starts at `offset`; UnreadableError (an OSError)
        when it cannot be read."""
    @staticmethod
    def from_bytes(data: bytes, offset: int = 0) -> "Image":
        """An image of the given bytes whose chain starts at `offset`."""
    @property
    def chain_start(self) -> int: ...
    @property
    def blocks(self) -> List[Block]: ...
    def __len__(self) -> int:
        """Number of blocks, the end block included (14 for the sample image)."""
    def __getitem__(self, index: int) -> Block: ...
    @property
    def problems(self) -> List[Problem]: ...
    def verify(self) -> bool:
        """True when the chain is whole and every block passes its checks."""
    @property
    def chain_broken(self) -> bool: ...
    @property
    def size(self) -> int: ...
    @property
    def bytes_used(self) -> int: ...
    @property
    def bytes_free(self) -> int: ...
    @property
    def end_offset(self) -> Optional[int]: ...
    def find(self, id: int, start: int = 0) -> Optional[Block]:
        """The first block with `id` at or after position `start`."""
    def to_bytes(self) -> bytes:
        """The image's bytes."""
    def save(self, path: _Path, backup: bool = True) -> None:
        """Writes the image safely; with `backup` the previous file is kept as PATH.bak (a device:
        only its changed pages, after a timestamped backup, then read back)."""
    def export(self, ids: Optional[Sequence[int]] = None) -> str:
        """The image (or the blocks with the given ids) as a calibration text."""
    def plan_import(self, text: Union[str, bytes]) -> ImportPlan:
        """What a calibration text would do; BadTextError for a malformed section."""
    def apply_import(self, plan: ImportPlan) -> None:
        """Replaces the blocks a plan changes; NoRoomError when they do not fit."""
    def to_dict(self) -> Dict[str, Any]:
        """The image as `epromtool list --json` shows it, names in snake_case."""
    def diff(self, other: "Image") -> Dict[str, Any]:
        """How the blocks of `other` differ from this image's, as `epromtool diff --json`
        reports it, names in snake_case: differences, free_space_differs."""

def catalogue() -> List[Dict[str, Union[int, str, bool]]]:
    """Every block id the library has a class for: id, name, class, kind, template, reads_back."""

def inventory(
    paths: Union[_Path, Sequence[_Path]], recursive: bool = False, offset: int = 0
) -> List[Dict[str, Optional[Union[int, str]]]]:
    """One dict per image: path, verdict, blocks, part_number, serial_number, hardware_code,
    product_date, name, last_service_date, operating_hours, problems, reason (None where
    absent)."""
