"""Runs the compilers over the headers: clang for the Visual C++ and the GCC layout, GCC itself to confirm the latter."""

from __future__ import annotations

import re
import subprocess
from pathlib import Path
from typing import NamedTuple

STUBS = Path(__file__).parent / 'visual-cpp'
PLATFORM_HEADERS = Path('/usr/x86_64-w64-mingw32/include')
TIME_LIMIT = 60  # seconds for one compilation; most take one

# Types that are complete between these are ours: the system's headers come before.
BEFORE_OURS, BEHIND_OURS = 'BeforeOurs', 'BehindOurs'


class CannotCheck(Exception):
    """The check could not be made; nothing is known about the layout."""


class Abi(NamedTuple):
    name: str
    options: list[str]


COMMON = ['-x', 'c++', '-std=c++20', '-fno-access-control', '-DAPPCOMM_STATIC', '-DWIN32_LEAN_AND_MEAN', '-DNOMINMAX']

VISUAL_CPP = Abi('Visual C++', [
    '--target=x86_64-pc-windows-msvc', '-fms-extensions', '-D_UCRT', '-nostdinc++',
    '-isystem', str(STUBS), '-isystem', str(PLATFORM_HEADERS),
])
GCC = Abi('GCC', ['--target=x86_64-w64-mingw32'])
ABIS = [VISUAL_CPP, GCC]


class Headers(NamedTuple):
    folder: Path
    own: list[str]
    system: list[str]

    def source(self) -> str:
        lines = [f'#include <{name}>' for name in self.system]
        lines.append(f'struct {BEFORE_OURS} {{}};')
        lines += [f'#include "{name}"' for name in self.own]
        lines.append(f'struct {BEHIND_OURS} {{}};')
        return '\n'.join(lines) + '\n'


def find_headers(folder: Path) -> Headers:
    own = sorted(path.name for path in folder.glob('*.h'))
    if not own:
        raise CannotCheck(f'{folder} holds no header.')
    system: set[str] = set()
    for name in own:
        system.update(re.findall(r'^\s*#\s*include\s*<([^>]+)>', (folder / name).read_text(encoding='utf-8'), re.MULTILINE))
    return Headers(folder, own, sorted(system))


def run(command: list[str], source: str) -> str:
    """Compiles `source` from the standard input; what the compiler prints on the standard output."""
    try:
        done = subprocess.run(command, input=source, capture_output=True, text=True, timeout=TIME_LIMIT, check=False)
    except FileNotFoundError:
        raise CannotCheck(f'{command[0]} is not there. ./dev setup installs what this needs.') from None
    except subprocess.TimeoutExpired:
        raise CannotCheck(f'{command[0]} was not done within {TIME_LIMIT} s.') from None
    if done.returncode != 0:
        errors = '\n'.join(line for line in done.stderr.splitlines() if 'error:' in line) or done.stderr
        if re.search(r"'[a-z_]+' file not found", errors):
            errors += f'\nA header of the standard library that is used for the first time needs a stub in {STUBS}.'
        raise CannotCheck(f'the headers do not compile: {" ".join(command)}\n{errors}')
    return done.stdout


def compile_clang(clang: str, abi: Abi, headers: Headers, source: str, dump: list[str]) -> str:
    return run([clang, *COMMON, *abi.options, '-I', str(headers.folder), *dump, '-w', '-o', '/dev/null', '-'], source)


def dump_layout(clang: str, abi: Abi, headers: Headers, classes: list[str]) -> str:
    """The layout of all types, and the virtual tables of `Probe0`, `Probe1`, ..., each derived from one of `classes`.

    A compiler prints a table only where it needs it: a destructor that does something does. It can be defined although the
    class is abstract, and without knowing any constructor.
    """
    probes = ['void touch();']
    for number, name in enumerate(classes):
        probes.append(f'struct Probe{number} : ::{name} {{ ~Probe{number}(); }};')
        probes.append(f'Probe{number}::~Probe{number}() {{ touch(); }}')
    dump = ['-Xclang', '-fdump-record-layouts-complete']
    dump += ['-Xclang', '-emit-llvm-only', '-c', '-Xclang', '-fdump-vtable-layouts'] if classes else ['-fsyntax-only']
    return compile_clang(clang, abi, headers, headers.source() + '\n'.join(probes) + '\n', dump)


def check_each_parses(clang: str, headers: Headers) -> None:
    """With the stubs, which bring in nothing but themselves: a header that forgot an include shows."""
    for name in headers.own:
        try:
            compile_clang(clang, VISUAL_CPP, headers, f'#include "{name}"\n', ['-fsyntax-only'])
        except CannotCheck as problem:
            raise CannotCheck(f'{name} alone: {problem}') from None


def compile_gcc(gcc: str, headers: Headers, source: str) -> str:
    """The assembly that GCC makes of `source`."""
    return run([gcc, *COMMON, '-I', str(headers.folder), '-w', '-S', '-o', '-', '-'], source)
