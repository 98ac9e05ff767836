"""Reads clang's dumps of record layouts and virtual tables."""

from __future__ import annotations

import re
from typing import NamedTuple

from compiler import BEFORE_OURS, BEHIND_OURS, Abi, CannotCheck

# Standard types that every library lays out alike: the elements, one pointer, the value. What the others look like with
# Visual C++ is not known here, for there they come from stubs.
TRANSPARENT = re.compile(r'std::(array|atomic|unique_ptr)<')


class Member(NamedTuple):
    text: str  # as the page shows it
    place: str
    record: str = ''  # its type, when that is a class
    is_base: bool = False


class Record:
    def __init__(self) -> None:
        self.name = ''
        self.size = 0
        self.alignment = 0
        self.members: list[Member] = []
        self.has_table = False

    def bases(self) -> list[str]:
        return [member.record for member in self.members if member.is_base]


def plain(text: str) -> str:
    """Without the class keys, which differ where a stub says `struct` and the library `class`."""
    return re.sub(r'\b(struct|class|union|enum) ', '', text).replace('_Bool', 'bool').strip()


def member(place: str, text: str) -> Member:
    base = re.fullmatch(r'(?:struct|class) (.*?) \((?:primary |virtual )*base\)(?: \(empty\))?', text)
    if base:
        return Member(f'{plain(base[1])} (base)', place, plain(base[1]), True)
    text = text.removesuffix(' (empty)')
    kind, _, _ = text.rpartition(' ')
    is_record = re.match(r'(struct|class|union) ', text) and not kind.endswith(('*', '&'))
    return Member(plain(text), place, re.sub(r'\[\d+\]', '', plain(kind)) if is_record else '')


def read_record(lines: list[str]) -> Record:
    record = Record()
    for line in lines:
        found = re.match(r'\s*(?P<place>[\d:-]*) \| (?P<indent> *)(?P<text>.*)', line)
        if not found:
            continue
        depth, text = len(found['indent']) // 2, found['text']
        if match := re.search(r'\[sizeof=(\d+)', text):
            record.size = int(match[1])
        if match := re.search(r'(?<!nv)align=(\d+)', text):
            record.alignment = int(match[1])
        if not found['place']:
            continue
        if depth == 0:
            record.name = plain(text.removesuffix(' (empty)'))
        elif re.fullmatch(r'\(.* vf?table pointer\)', text):
            record.has_table = True
            if depth == 1:
                record.members.append(Member('(virtual table)', found['place']))
        elif depth == 1:
            record.members.append(member(found['place'], text))
    return record


def read_records(dump: str) -> dict[str, Record]:
    """Our own types, and of the standard library's those that ours were the first to use."""
    parts = re.split(rf' *0 \| struct (?:{BEFORE_OURS}|{BEHIND_OURS}) \(empty\)\n', dump)
    if len(parts) != 3:
        raise CannotCheck('the dump of record layouts is not as this tool knows it. Is this clang 19?')
    blocks = parts[1].split('*** Dumping AST Record Layout\n')[1:-1]  # the ends belong to the two marks
    return {record.name: record for record in (read_record(block.split('\n\n')[0].splitlines()) for block in blocks)}


def own_names(records: dict[str, Record]) -> list[str]:
    """Without what templates make: its size and members show in the types that hold it."""
    foreign = re.compile(r'std::|__gnu_cxx::|_|\(|.*<')
    own = [name for name in records if not foreign.match(name)]
    unnamed = next((name for name in own if '(' in name), None)
    if unnamed:
        raise CannotCheck(f'{unnamed} has no name, so that neither the page nor GCC could name its members. Give it one.')
    return own


def is_opaque(name: str, records: dict[str, Record]) -> bool:
    """Whether a record holds, itself or through what it holds, a standard type whose layout only its library knows."""
    if name.startswith('std::'):
        # The element of an array may be such a type in its turn.
        return not TRANSPARENT.match(name) or any(is_opaque(one.record, records) for one in members_of(name, records))
    return any(is_opaque(one.record, records) for one in members_of(name, records) if one.record)


def members_of(name: str, records: dict[str, Record]) -> list[Member]:
    return records[name].members if name in records else []


def entry_text(text: str, probe: str) -> str:
    return 'destructor' if re.match(rf'{probe}::~{probe}\(\)', text) else plain(text)


def read_tables(dump: str, abi: Abi, classes: list[str]) -> dict[str, list[str]]:
    """Of each class, the functions in the order of their slots."""
    tables: dict[str, list[str]] = {}
    for block in re.split(r'\n(?=V[FT][Ta]|Vtable)', '\n' + dump):
        title = re.match(r"(?:VFTable|Vtable) for .*'Probe(\d+)' \(\d+ entries\)\.\n", block)
        if not title:
            continue
        name = classes[int(title[1])]
        entries = re.findall(r'^ +\d+ \| (.*)$', block.split('\n\n')[0], re.MULTILINE)
        odd = [one for one in entries if re.match(r'(vbase_offset|vcall_offset|offset_to_top \((?!0\)))', one)]
        if name in tables or odd:
            raise CannotCheck(f'{name} has more than one virtual table ({abi.name}); the page knows no place for them.')
        start = next(index for index, one in enumerate(entries) if one.endswith(' RTTI')) + 1
        tables[name] = [entry_text(one, f'Probe{title[1]}') for one in entries[start:]]
    missing = [name for name in classes if name not in tables]
    if missing:
        raise CannotCheck(f'clang printed no virtual table of {", ".join(missing)} ({abi.name}).')
    return tables
