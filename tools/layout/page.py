"""Writes the layout as a page that a person can read, and compares two such pages row by row."""

from __future__ import annotations

import re
from typing import Iterator

from declarations import Enumerator
from dumps import Record, is_opaque

UNKNOWN = '?'
TYPES = 'Types'  # the section that lists them all
ENUMERATORS = 'Enumerators'

HEAD = """\
# The binary interface

Where the members of every type in `include/` lie, which slot of its virtual table each operation has, and the values of the
enumerators: what an application is compiled against. The types of tinyxml2, which the DLL exports too, stand behind ours. A change
here breaks every application that is not compiled anew. `tools/check-layout --write` makes this page from the headers, and
`tools/check-layout` compares the two. The results of functions are in [exports-visual-cpp.txt](exports-visual-cpp.txt).

- Offsets, sizes and alignments are in bytes. Slots count from 0, where the virtual table begins.
- A type's table lists its own members and those operations only that it adds or overrides; the others are those of its base.
  `= 0` is left to derived classes.
- Visual C++ has one slot for a destructor, GCC two.
- Both columns are clang's, which lays out as either compiler does; GCC itself confirms its own column.
- `?`: not known. It depends on a type of the standard library, and Visual C++'s library was not at hand. Taken for granted is
  that its `std::array` holds its elements and nothing else, its `std::unique_ptr` a pointer, its `std::atomic<bool>` one byte.
- A member's type is the one that the header names; the platform's (`HWND`, `WNDPROC`) are those of mingw-w64's headers.
- Not shown: how arguments are passed; what else an application compiles in, which are default arguments and the values of
  constants (the tests know those of `include/`), what members begin with, and inline functions; templates; types that the
  headers only name.
"""


def row(*cells: object) -> str:
    return '| ' + ' | '.join(str(cell) for cell in cells) + ' |'


def table(columns: list[str], rows: list[str]) -> list[str]:
    return ['', row(*columns), '|' + '---|' * len(columns), *rows] if rows else []


def code(text: str) -> str:
    return f'`{text}`'


class Layout:
    """What the two compilers make of the headers. Both know the types named in `own`, and the tables of the same classes."""

    def __init__(self, visual: dict[str, Record], gcc: dict[str, Record], own: list[str], visual_tables: dict[str, list[str]],
                 gcc_tables: dict[str, list[str]], enumerators: list[Enumerator]) -> None:
        self.visual, self.gcc, self.own = visual, gcc, own
        self.visual_tables, self.gcc_tables = visual_tables, gcc_tables
        self.enumerators = enumerators

    def overview(self) -> list[str]:
        rows = []
        for name in self.own:
            visual, gcc = self.visual[name], self.gcc[name]
            known = not is_opaque(name, self.visual)
            rows.append(row(code(name), ', '.join(code(base) for base in visual.bases()) or '-',
                            visual.size if known else UNKNOWN, visual.alignment if known else UNKNOWN, gcc.size, gcc.alignment))
        return ['', f'## {TYPES}', *table(['type', 'derived from', 'size, Visual C++', 'alignment, Visual C++',
                                         'size, GCC', 'alignment, GCC'], rows)]

    def values(self) -> list[str]:
        rows = [row(code(one.name), one.value, code(one.underlying) if one.underlying else '-') for one in self.enumerators]
        return ['', f'## {ENUMERATORS}', *table(['enumerator', 'value', 'underlying type'], rows)] if rows else []

    def places(self, name: str, records: dict[str, Record], hide: bool) -> dict[str, str]:
        """Where the members lie. Behind the first that is not known, nothing is."""
        result: dict[str, str] = {}
        known = True
        for one in records[name].members:
            result[one.text] = one.place if known else UNKNOWN
            known = known and not (hide and one.record and is_opaque(one.record, self.visual))
        return result

    def members(self, name: str) -> list[str]:
        visual, gcc = self.places(name, self.visual, True), self.places(name, self.gcc, False)
        if all(text.endswith(' (base)') and place == '0' for text, place in [*visual.items(), *gcc.items()]):
            return []  # nothing but its base, at the start
        rows = [row(code(text), visual.get(text, '-'), gcc.get(text, '-')) for text in {**visual, **gcc}]
        return table(['member', 'Visual C++', 'GCC'], rows)

    def base_with_table(self, name: str) -> str | None:
        return next((base for base in self.gcc[name].bases() if base in self.gcc_tables), None)

    def slots(self, name: str, tables: dict[str, list[str]]) -> dict[str, str]:
        """The operations that the class adds or overrides, each with its slots."""
        base = self.base_with_table(name)
        inherited = tables[base] if base else []
        result: dict[str, str] = {}
        for slot, entry in enumerate(tables[name]):
            if slot < len(inherited) and inherited[slot] == entry:
                continue
            text = re.sub(rf'(?<=[ *&]){re.escape(name)}::', '', re.sub(r' \[pure\]$', ' = 0', entry), count=1)
            result[text] = f'{result[text]}, {slot}' if text in result else str(slot)
        return result

    def operations(self, name: str) -> list[str]:
        if name not in self.gcc_tables:
            return []
        visual, gcc = self.slots(name, self.visual_tables), self.slots(name, self.gcc_tables)
        rows = [row(code(text), visual.get(text, '-'), gcc.get(text, '-')) for text in {**gcc, **visual}]
        return table(['virtual operation', 'Visual C++', 'GCC'], rows)

    def page(self) -> str:
        lines = [HEAD.rstrip('\n'), *self.overview(), *self.values()]
        for name in self.own:
            details = self.members(name) + self.operations(name)
            if details:
                lines += ['', f'## {code(name)}', *details]
        return '\n'.join(lines) + '\n'


Key = tuple[str, str, str]  # section, kind of row, its first cell


def rows_of(page: str) -> Iterator[tuple[Key, dict[str, str]]]:
    section, columns = '', []
    for line in page.splitlines():
        if line.startswith('## '):
            section, columns = line[3:], []
        elif not line.startswith('|'):
            columns = []
        elif not columns:
            columns = [cell.strip() for cell in line.strip('|').split(' | ')]
        elif not line.startswith('|---'):
            cells = [cell.strip() for cell in line.strip('|').split(' | ')]
            yield (section, columns[0], cells[0]), dict(zip(columns[1:], cells[1:]))


def differences(expected_page: str, found_page: str) -> list[str]:
    expected, found = dict(rows_of(expected_page)), dict(rows_of(found_page))
    # Of a type that is only in one of them, this says enough.
    one_sided = {key[2] for key in expected.keys() ^ found.keys() if key[0] == TYPES}
    result = []
    for key in {**expected, **found}:
        section, kind, name = key
        place = f'{section}, {kind} {name}'
        if section in one_sided:
            continue
        if key not in found:
            result.append(f'{place}: expected, but the headers have none')
        elif key not in expected:
            result.append(f'{place}: in the headers, but not expected')
        else:
            columns = {**expected[key], **found[key]}
            result += [f'{place}: {column} expected {expected[key].get(column)}, found {found[key].get(column)}'
                       for column in columns if expected[key].get(column) != found[key].get(column)]
    if not result and expected_page != found_page:
        result.append('the page is not, letter for letter, what --write makes')
    return result
