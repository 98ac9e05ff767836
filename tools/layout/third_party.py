"""Finds the header of tinyxml2, whose classes the module exports with its own."""

from __future__ import annotations

import contextlib
import tarfile
import tempfile
from pathlib import Path
from typing import Iterator

from compiler import CannotCheck

FOLDER = 'tinyxml2-9.0.0'
ARCHIVE = 'tinyxml2_9.0.0+dfsg.orig.tar.xz'


@contextlib.contextmanager
def tinyxml2_header(root: Path) -> Iterator[Path]:
    """Where a build has unpacked it; before the first build, from the archive that every build takes it from."""
    unpacked = sorted(root.glob(f'build/*/third-party/{FOLDER}/tinyxml2.h'))
    if unpacked:
        yield unpacked[0]
        return
    with tempfile.TemporaryDirectory() as folder:
        header = Path(folder) / 'tinyxml2.h'
        header.write_bytes(from_archive(root / 'build' / 'downloads' / ARCHIVE))
        yield header


def from_archive(path: Path) -> bytes:
    try:
        with tarfile.open(path) as archive:
            member = archive.extractfile(f'{FOLDER}/tinyxml2.h')
            if member is not None:
                return member.read()
    except FileNotFoundError:
        raise CannotCheck(f'{path} is not there. ./dev setup fetches it.') from None
    except (tarfile.TarError, EOFError, KeyError) as problem:
        raise CannotCheck(f'{path} cannot be read: {problem}. Remove it and run ./dev setup.') from None
    raise CannotCheck(f'{path} holds no header. Remove it and run ./dev setup.')
