"""Reads clang's tree of the headers: the enumerators, and what the module exports under the names that Visual C++ gives it."""

from __future__ import annotations

import json
import re
from typing import Any, Iterator, NamedTuple

from compiler import CannotCheck

Node = dict[str, Any]

SCOPES = ('NamespaceDecl', 'LinkageSpecDecl', 'CXXRecordDecl')
EXPORTED = ('FunctionDecl', 'CXXMethodDecl', 'CXXConstructorDecl', 'CXXDestructorDecl', 'CXXConversionDecl', 'VarDecl')

# What stands in a decorated name behind the name itself: access and kind of a member.
MEMBERS = {
    'A': 'private:', 'C': 'private: static', 'E': 'private: virtual', '0': 'private: static',
    'I': 'protected:', 'K': 'protected: static', 'M': 'protected: virtual', '1': 'protected: static',
    'Q': 'public:', 'S': 'public: static', 'U': 'public: virtual', '2': 'public: static',
}


class Enumerator(NamedTuple):
    name: str
    value: int
    underlying: str  # nothing where the header leaves it to the compiler


class Export(NamedTuple):
    name: str
    meaning: str
    decorated: str


def children(node: Node, scope: str = '') -> Iterator[tuple[Node, str]]:
    """All declarations but those in templates, each with the scope that it is in."""
    for child in node.get('inner', []):
        kind = child.get('kind', '')
        if kind in SCOPES:
            yield from children(child, f'{scope}{child["name"]}::' if 'name' in child else scope)
        elif kind == 'EnumDecl' or kind in EXPORTED:
            yield child, scope


def constants(declaration: Node, scope: str) -> Iterator[Enumerator]:
    underlying = declaration.get('fixedUnderlyingType', {}).get('qualType', '')
    if declaration.get('scopedEnumTag'):
        scope += f'{declaration["name"]}::'
    value = -1
    for child in declaration.get('inner', []):
        if child['kind'] == 'EnumConstantDecl':
            given = next((one['value'] for one in child.get('inner', []) if one['kind'] == 'ConstantExpr'), None)
            value = value + 1 if given is None else int(given)
            yield Enumerator(scope + child['name'], value, underlying)


def is_exported(node: Node) -> bool:
    """What is left to derived classes has no code that could be exported. A definition behind its declaration is the same again."""
    return not node.get('pure') and 'previousDecl' not in node and any(child.get('kind') == 'DLLExportAttr' for child in node.get('inner', []))


def destructor_name(scope: str, code: str) -> str:
    """The tree has a name of the compiler's own there; code that destroys such an object asks for the right one."""
    found = re.search(rf'@"(\?\?1{re.escape(scope)}[A-Z]EAA@XZ)"', code)
    if not found:
        raise CannotCheck(f'clang does not tell the name of the destructor of {scope}. Is this clang 19?')
    return found[1]


def spelled(node: Node, scope: str, decorated: str) -> str:
    name = scope + node['name']
    text = re.sub(r' __attribute__\(.*', '', node['type']['qualType'])
    if node['kind'] != 'VarDecl':
        result, parameters, behind = re.fullmatch(r'(.*?) ?\((.*)\)(.*)', text).groups()
        text = '' if node['kind'] in ('CXXConstructorDecl', 'CXXDestructorDecl') else result
        name += f'({parameters}){behind}'
    declared = text + ('' if not text or text.endswith(('*', '&')) else ' ') + name
    member = re.match(r'\?[^@].*?@@(\w)', decorated)
    return f'{MEMBERS[member[1]]} {declared}' if member and member[1] in MEMBERS else declared


def export(node: Node, scope: str, code: str) -> Export:
    decorated = node['mangledName']
    if completing := re.fullmatch(r'\?\?_D(.*@@)QEAAXXZ', decorated):
        decorated = destructor_name(completing[1], code)
    return Export(scope + node['name'], spelled(node, scope, decorated), decorated)


def read_declarations(tree: str, code: str) -> tuple[list[Enumerator], list[Export]]:
    enumerators: list[Enumerator] = []
    exports: list[Export] = []
    for node, scope in children(json.loads(tree)):
        if scope.startswith(('std::', '__')):
            continue
        if node['kind'] == 'EnumDecl':
            enumerators += constants(node, scope)
        elif is_exported(node):
            exports.append(export(node, scope, code))
    return enumerators, exports


def destroying(names: list[str]) -> str:
    """Code that names the destructor of each class."""
    lines = []
    for number, name in enumerate(names):
        lines.append(f'using Class{number} = ::{name};')
        lines.append(f'void destroy{number}(Class{number}* one) {{ one->Class{number}::~Class{number}(); }}')
    return '\n'.join(lines) + '\n'


NAMES_HEAD = """\
# The names that Visual C++ gives the functions and the data that AppCommunication.dll exports, each with its meaning: an
# application that it built asks for these. Such a name holds more than those of exports.txt do: the type of the result, who may
# call a member, and whether it is virtual. tools/check-layout compares this file with the headers; with --write it makes it.
# The names are clang's, which imitates that compiler. Tables, type information, and copies and destructors without a line in
# a header may be exported too.
"""


def names_page(exports: list[Export]) -> str:
    lines = [f'{one.decorated}  {one.meaning}' for one in sorted(exports)]
    return NAMES_HEAD + '\n' + '\n'.join(lines) + '\n'


def name_differences(expected_page: str, found_page: str) -> list[str]:
    expected, found = ([line for line in page.splitlines() if line and not line.startswith('#')]
                       for page in (expected_page, found_page))
    result = [f'exported name {line}: expected, but the headers have none' for line in expected if line not in found]
    result += [f'exported name {line}: in the headers, but not expected' for line in found if line not in expected]
    if not result and expected_page != found_page:
        result.append('the list of exported names is not, letter for letter, what --write makes')
    return result
