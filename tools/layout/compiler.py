"""Runs the compilers over the headers: clang for the Visual C++ and the GCC layout, GCC itself to confirm the latter."""

from __future__ import annotations

import contextlib
import re
import subprocess
import tempfile
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path
from typing import Iterator, NamedTuple

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


class State(NamedTuple):
    """How the headers are compiled: see include/Export.h."""

    name: str
    options: list[str]


COMMON = ['-std=c++20', '-fno-access-control', '-DWIN32_LEAN_AND_MEAN', '-DNOMINMAX']

STATIC = State('linked directly', ['-DAPPCOMM_STATIC'])
EXPORTING = State('exporting', ['-DAPPCOMM_EXPORTS', '-DTINYXML2_EXPORT'])
IMPORTING = State('importing', ['-DTINYXML2_IMPORT'])
STATES = [STATIC, EXPORTING, IMPORTING]

VISUAL_CPP = Abi('Visual C++', [
    '--target=x86_64-pc-windows-msvc', '-fms-extensions', '-D_UCRT', '-nostdinc++',
    '-isystem', str(STUBS), '-isystem', str(PLATFORM_HEADERS),
])
GCC = Abi('GCC', ['--target=x86_64-w64-mingw32'])


class Headers(NamedTuple):
    folder: Path
    own: list[str]
    system: list[str]
    tinyxml2: Path
    tinyxml2_system: list[str]

    def source(self) -> str:
        lines = [f'#include <{name}>' for name in self.system]
        # Some of these are for platforms that are not ours.
        lines += [f'#if __has_include(<{name}>)\n#include <{name}>\n#endif' for name in self.tinyxml2_system]
        lines.append(f'struct {BEFORE_OURS} {{}};')
        lines += [f'#include "{name}"' for name in [*self.own, self.tinyxml2]]
        lines.append(f'struct {BEHIND_OURS} {{}};')
        return '\n'.join(lines) + '\n'


def system_headers(header: Path) -> set[str]:
    return set(re.findall(r'^\s*#\s*include\s*<([^>]+)>', header.read_text(encoding='utf-8'), re.MULTILINE))


def find_headers(folder: Path, tinyxml2: Path) -> Headers:
    own = sorted(path.name for path in folder.glob('*.h'))
    if not own:
        raise CannotCheck(f'{folder} holds no header.')
    system = sorted(set().union(*(system_headers(folder / name) for name in own)))
    return Headers(folder, own, system, tinyxml2, sorted(system_headers(tinyxml2)))


def run(command: list[str], source: str) -> str:
    """Compiles `source` from the standard input; what the compiler prints on the standard output."""
    try:
        done = subprocess.run(command, input=source, capture_output=True, text=True, timeout=TIME_LIMIT, check=False)
    except FileNotFoundError:
        raise CannotCheck(f'{command[0]} is not there. ./dev setup installs what this needs.') from None
    except subprocess.TimeoutExpired:
        raise CannotCheck(f'{command[0]} was not done within {TIME_LIMIT} s.') from None
    if done.returncode != 0:
        errors = '\n'.join([line for line in done.stderr.splitlines() if 'error:' in line][:10]) or done.stderr
        if re.search(r"'[a-z_]+' file not found", errors):
            errors += f'\nA header of the standard library that is used for the first time needs a stub in {STUBS}.'
        raise CannotCheck(f'the headers do not compile: {" ".join(command)}\n{errors}')
    return done.stdout


class Clang(NamedTuple):
    command: str
    windows: str  # windows.h for Visual C++, precompiled: it takes most of a compilation

    def compile(self, abi: Abi, headers: Headers, source: str, options: list[str], state: State = STATIC,
                alone: bool = False) -> str:
        """`alone`: without a windows.h that the source has not included."""
        before = ['-include-pch', self.windows] if abi is VISUAL_CPP and not alone else []
        return run([self.command, *COMMON, *abi.options, *state.options, '-I', str(headers.folder), '-w', '-x', 'c++', *before,
                    *options, '-'], source)


@contextlib.contextmanager
def ready_clang(command: str) -> Iterator[Clang]:
    with tempfile.TemporaryDirectory() as folder:
        windows = str(Path(folder) / 'windows.pch')
        run([command, *COMMON, *VISUAL_CPP.options, '-w', '-x', 'c++-header', '-o', windows, '-'], '#include <windows.h>\n')
        yield Clang(command, windows)


def dump_layout(clang: Clang, abi: Abi, headers: Headers, classes: list[str]) -> str:
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
    return clang.compile(abi, headers, headers.source() + '\n'.join(probes) + '\n', [*dump, '-o', '/dev/null'])


def check_each_parses(clang: Clang, headers: Headers) -> None:
    """With the stubs, which bring in nothing but themselves: a header that forgot an include shows."""
    def check(name: str, state: State) -> None:
        try:
            clang.compile(VISUAL_CPP, headers, f'#include "{name}"\n', ['-fsyntax-only'], state, alone=state is STATIC)
        except CannotCheck as problem:
            raise CannotCheck(f'{name} alone, {state.name}: {problem}') from None

    with ThreadPoolExecutor(max_workers=4) as pool:
        for done in [pool.submit(check, name, state) for state in STATES for name in headers.own]:
            done.result()


def dump_declarations(clang: Clang, headers: Headers, probes: str) -> tuple[str, str]:
    """What the headers declare for Visual C++ when the library exports it: clang's tree of it, as JSON, and the code of `probes`.

    The tree leaves out what comes from a precompiled header: without one the platform's would make it 300 MB.
    """
    tree = clang.compile(VISUAL_CPP, headers, headers.source(), ['-fsyntax-only', '-Xclang', '-ast-dump=json'], EXPORTING)
    code = clang.compile(VISUAL_CPP, headers, headers.source() + probes, ['-S', '-emit-llvm', '-o', '-'], EXPORTING)
    return tree, code


def compile_gcc(gcc: str, headers: Headers, source: str) -> str:
    """The assembly that GCC makes of `source`."""
    return run([gcc, *COMMON, *STATIC.options, '-I', str(headers.folder), '-w', '-x', 'c++', '-S', '-o', '-', '-'], source)
