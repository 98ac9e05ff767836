"""Asks GCC itself for the numbers that clang gave for it: it is the compiler that the library is built with."""

from __future__ import annotations

import re
from typing import NamedTuple

from compiler import CannotCheck, Headers, compile_gcc
from declarations import Enumerator
from dumps import Record


class Question(NamedTuple):
    expression: str
    answer: int  # clang's
    namespace: str = ''  # where the expression's names are known


def numbers_asked(records: dict[str, Record], enumerators: list[Enumerator]) -> dict[str, Question]:
    """What GCC shall tell of each type and enumerator."""
    asked: dict[str, Question] = {}
    for name, record in records.items():
        asked[f'size of {name}'] = Question(f'sizeof(::{name})', record.size)
        asked[f'alignment of {name}'] = Question(f'alignof(::{name})', record.alignment)
        for member in record.members:
            field = member.text.rpartition(' ')[2]
            if not member.is_base and field.isidentifier() and member.place.isdigit():  # no bit-field
                asked[f'offset of {name}::{field}'] = Question(f'__builtin_offsetof(::{name}, {field})', int(member.place))
    for one in enumerators:
        asked[f'value of {one.name}'] = Question(f'static_cast<long long>(::{one.name})', one.value)
    return asked


def slots_asked(tables: dict[str, list[str]]) -> dict[str, Question]:
    """The same for slots: a pointer to a virtual member is one more than the offset of its slot, in bytes."""
    asked: dict[str, Question] = {}
    for name, entries in tables.items():
        namespace = name.split('::')[0] if '::' in name else ''
        for slot, entry in enumerate(entries):
            match = re.fullmatch(r'(.*?)((?:\w+::)+)([\w~]+)\((.*)\)( const)?( noexcept)?( \[pure\])?', entry)
            if match:
                result, _, function, parameters, const, noexcept, _ = match.groups()
                pointer = f'{result}(::{name}::*)({parameters}){const or ""}{noexcept or ""}'
                asked[f'slot of {name}::{function}({parameters})'] = Question(
                    f'static_cast<{pointer}>(&::{name}::{function})', slot * 8 + 1, namespace)
            elif entry != 'destructor':
                raise CannotCheck(f'the virtual table of {name} holds "{entry}", which this tool cannot ask GCC about.')
    return asked


def constant(index: int, kind: str, question: Question) -> str:
    """A constant is kept only if something refers to it, or its attribute says so."""
    line = f'extern "C" {kind} answer{index} __attribute__((used)) = {question.expression};'
    return f'namespace {question.namespace} {{ {line} }}' if question.namespace else line


def answers(assembly: str) -> dict[int, int]:
    """The first word of each `answerN`."""
    words = re.findall(r'^answer(\d+):\s+\.quad\s+(-?\d+)$', assembly, re.MULTILINE)
    zeroes = re.findall(r'^answer(\d+):\s+\.space', assembly, re.MULTILINE)
    return {int(number): int(value) for number, value in words} | {int(number): 0 for number in zeroes}


def with_gcc(gcc: str, headers: Headers, records: dict[str, Record], tables: dict[str, list[str]],
             enumerators: list[Enumerator]) -> None:
    numbers, slots = numbers_asked(records, enumerators), slots_asked(tables)
    lines = [constant(index, 'const long long', one) for index, one in enumerate(numbers.values())]
    lines += [constant(index, 'constexpr auto', one) for index, one in enumerate(slots.values(), len(numbers))]
    given = answers(compile_gcc(gcc, headers, headers.source() + '\n'.join(lines) + '\n'))
    for index, (what, question) in enumerate({**numbers, **slots}.items()):
        if given.get(index) != question.answer:
            raise CannotCheck(f'GCC and clang differ on the {what}: {given.get(index)} and {question.answer}.')
