"""Asks GCC itself for the numbers that clang gave for it: it is the compiler that the library is built with."""

from __future__ import annotations

import re

from compiler import CannotCheck, Headers, compile_gcc
from dumps import Record


def numbers_asked(records: dict[str, Record]) -> dict[str, tuple[str, int]]:
    """Of each number: the expression that GCC shall evaluate, and clang's answer."""
    asked: dict[str, tuple[str, int]] = {}
    for name, record in records.items():
        asked[f'size of {name}'] = (f'sizeof(::{name})', record.size)
        asked[f'alignment of {name}'] = (f'alignof(::{name})', record.alignment)
        for member in record.members:
            field = member.text.rpartition(' ')[2]
            if not member.is_base and field.isidentifier() and member.place.isdigit():  # no bit-field
                asked[f'offset of {name}::{field}'] = (f'__builtin_offsetof(::{name}, {field})', int(member.place))
    return asked


def slots_asked(tables: dict[str, list[str]]) -> dict[str, tuple[str, int]]:
    """The same for slots: a pointer to a virtual member is one more than the offset of its slot, in bytes."""
    asked: dict[str, tuple[str, int]] = {}
    for name, entries in tables.items():
        for slot, entry in enumerate(entries):
            match = re.fullmatch(r'(.*?)((?:\w+::)+)([\w~]+)\((.*)\)( const)?( noexcept)?( \[pure\])?', entry)
            if match:
                result, _, function, parameters, const, noexcept, _ = match.groups()
                pointer = f'{result}(::{name}::*)({parameters}){const or ""}{noexcept or ""}'
                asked[f'slot of {name}::{function}({parameters})'] = (
                    f'static_cast<{pointer}>(&::{name}::{function})', slot * 8 + 1)
            elif entry != 'destructor':
                raise CannotCheck(f'the virtual table of {name} holds "{entry}", which this tool cannot ask GCC about.')
    return asked


def answers(assembly: str) -> dict[int, int]:
    """The first word of each `answerN`."""
    words = re.findall(r'^answer(\d+):\s+\.quad\s+(\d+)$', assembly, re.MULTILINE)
    zeroes = re.findall(r'^answer(\d+):\s+\.space', assembly, re.MULTILINE)
    return {int(number): int(value) for number, value in words} | {int(number): 0 for number in zeroes}


def with_gcc(gcc: str, headers: Headers, records: dict[str, Record], tables: dict[str, list[str]]) -> None:
    numbers, slots = numbers_asked(records), slots_asked(tables)
    lines = [f'extern "C" const unsigned long long answer{index} = {expression};'
             for index, (expression, _) in enumerate(numbers.values())]
    lines += [f'extern "C" constexpr auto answer{index} = {expression};'
              for index, (expression, _) in enumerate(slots.values(), len(numbers))]
    # Constants are kept only if something refers to them, or they are declared before.
    source = headers.source() + '\n'.join(line.replace('= ', '__attribute__((used)) = ', 1) for line in lines) + '\n'
    given = answers(compile_gcc(gcc, headers, source))
    for index, (what, (_, expected)) in enumerate({**numbers, **slots}.items()):
        if given.get(index) != expected:
            raise CannotCheck(f'GCC and clang differ on the {what}: {given.get(index)} and {expected}.')
