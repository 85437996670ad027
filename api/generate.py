#!/usr/bin/env python3
"""Make all that lists the exported members from api/members.txt: see `main` for the files.

    generate.py           write the files that have changed
    generate.py --check   write nothing; fail with a diff if a file is not what would be written
"""

import difflib
import itertools
import re
import sys
from collections import namedtuple
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
TABLE = ROOT / "api" / "members.txt"
TEMPLATE = ROOT / "api" / "zelm.h.in"
HEADER = ROOT / "include" / "zelm.h"
EXPORTS = ROOT / "src" / "exports.map"
MEMBERS = ROOT / "api" / "members.inc"
ENTRIES = ROOT / "src" / "frame" / "entries.inc"
FUNCTIONS = ROOT / "include" / "zelm" / "members.hpp"

COLUMNS = 100
LINES_SAVED = 3  # by indenting instead of aligning parameters, as clang-format decides
TYPES = {"32f": "float", "64f": "double"}
# Exported without being a member: declared in the template.
OTHER_EXPORTS = ["zelmGetLibVersion"]

# The strides of an operand in standard description, and the rank of its objects.
STRIDES = {"v": "2", "va": "02", "m": "12", "ma": "012", "t": "12", "ta": "012", "ca": "0"}
RANKS = {"v": 1, "m": 2, "t": 2, "c": 0}

# Arguments that are the same in every description. {T} is the element type.
PLAIN = {
    "c": "{T} {name}",
    "value": "{T} {name}",
    "in": "const {T} *{name}",
    "out": "{T} *{name}",
    "buffer": "{T} *{name}",
    "index": "int *{name}",
    "cindex": "const int *{name}",
}

# parameters are those of the C function, operands the names and values of what is made of them.
Member = namedtuple("Member", "name family kind ctype description arguments parameters operands")
Family = namedtuple("Family", "name title expected blocks")
Block = namedtuple("Block", "text members")


class TableError(Exception):
    pass


def operand(name, kind, description, ctype):
    """What operand name:kind becomes: its parameters, and the C++ object that is made of them."""
    written = name.startswith("dst")
    letter = description[-1 if written else 0]
    array = kind.endswith("a")
    if letter == "P" and kind != "ca":
        form, stars, kept = "Tabled", "*const *", "0"
    elif letter == "L" and array:
        form, stars, kept = "Layout", "*const *", "12"
    else:
        form, stars, kept = "Standard", "*", "012"

    const = "" if written else "const "
    values = ["p" + name[0].upper() + name[1:]]
    if form != "Standard":
        values = ["p" + values[0], f"{name}RoiShift"]
    values += [f"{name}Stride{s}" if s in STRIDES[kind] else "0" for s in kept]
    integers = [f"int {value}" for value in values[1:] if value != "0"]

    shape = f"{const}T, {RANKS[kind[0]]}" + ("" if form == "Layout" else f", {array}".lower())
    transposed = ".transposed()" if kind[0] == "t" else ""
    made = f"{form}<{shape}>{{{', '.join(values)}}}{transposed}"
    return [f"{const}{ctype} {stars}{values[0]}", *integers], made


def parameters(arguments, description, ctype):
    """The parameters of a member and the operands they make, from its argument string."""
    result, operands = [], []
    for argument in arguments.split():
        name, _, kind = argument.partition(":")
        if not kind:
            result.append(f"int {name}")
        elif kind in PLAIN:
            result.append(PLAIN[kind].format(T=ctype, name=name))
        elif kind in STRIDES:
            of_this, made = operand(name, kind, description, ctype)
            result += of_this
            operands.append((name, made))
        else:
            raise TableError(f"unknown kind in '{argument}'")
    return result, operands


def expand(family, line):
    """The members that one line of the table stands for."""
    fields = line.split(None, 3)
    if len(fields) != 4:
        raise TableError("expected: kinds types descriptions arguments")
    kinds, types, descriptions, arguments = fields
    arguments = " ".join(arguments.split())
    operations, colon, fixed_kinds = kinds.partition(":")
    if colon:
        kinds = fixed_kinds
    else:
        operations = family
    members = []
    for operation, kind, description, of_type in itertools.product(
        operations.split(","), kinds.split(","), descriptions.split(","), types.split(",")
    ):
        known = "-" if colon else "[SPL]{1,2}"
        if not re.fullmatch(known, description) or of_type not in TYPES:
            raise TableError(f"unknown description or type: {description} {of_type}")
        parts = [f"zelm{operation}", kind, of_type, description]
        name = "_".join(part for part in parts if part not in ("-", "S"))
        ctype = TYPES[of_type]
        made = parameters(arguments, description, ctype)
        members.append(Member(name, operation, kind, ctype, description, arguments, *made))
    return members


def read_table(text):
    """The families of the table, in order."""
    families = []
    text_open = False  # whether a line of text continues the last block
    for number, line in enumerate(text.splitlines(), 1):
        line = line.rstrip()
        try:
            if line.startswith("#"):
                continue
            heading = re.fullmatch(r"\[(\w+)\] (\d+) (.+)", line)
            if heading:
                families.append(Family(heading[1], heading[3], int(heading[2]), []))
            elif line and not families:
                raise TableError("no family yet")
            elif line.startswith("|"):
                if not text_open:
                    families[-1].blocks.append(Block([], []))
                families[-1].blocks[-1].text.append(line[2:])
            elif line:
                if not families[-1].blocks:
                    raise TableError("members without documentation")
                families[-1].blocks[-1].members.extend(expand(families[-1].name, line))
            text_open = line.startswith("|")
        except TableError as error:
            raise TableError(f"{TABLE.name}:{number}: {error}") from None

    for family in families:
        found = sum(len(block.members) for block in family.blocks)
        if found != family.expected:
            raise TableError(f"[{family.name}] has {found} members, not {family.expected}")
    names = [member.name for member in all_members(families)]
    if len(set(names)) != len(names):
        raise TableError(f"twice: {sorted({n for n in names if names.count(n) > 1})}")
    return families


def all_members(families):
    return [m for family in families for block in family.blocks for m in block.members]


def comment(lines):
    if len(lines) == 1:
        return [f"/* {lines[0]} */"]
    body = [f" * {line}".rstrip() for line in lines[1:]]
    body[-1] += " */"
    return [f"/* {lines[0]}"] + body


def prototype(member):
    """The lines of a prototype; further lines begin below the first parameter, or indented."""
    head, rest = f"ZELM_API ZelStatus {member.name}(", member.parameters
    pieces = [parameter + "," for parameter in rest[:-1]] + [rest[-1] + ");"]

    def filled(lines, indent, further):
        for piece in further:
            if len(lines[-1]) + 1 + len(piece) > COLUMNS:
                lines.append(" " * indent + piece)
            else:
                lines[-1] += " " + piece
        return lines

    lines = filled([head + pieces[0]], len(head), pieces[1:])
    indented = [head] + filled(["    " + pieces[0]], 4, pieces[1:])
    return lines if len(lines) < len(indented) + LINES_SAVED else indented


def header(families, template):
    lines = []
    for family in families:
        rule = "=" * (COLUMNS - 6)
        lines += ["", f"/* {rule} */", f"/* {family.name}: {family.title} */", f"/* {rule} */"]
        for block in family.blocks:
            lines += ["", *comment(block.text)]
            for member in block.members:
                lines += prototype(member)
    return template.replace("@FAMILIES@", "\n".join(lines[1:]))


def exports(families):
    names = OTHER_EXPORTS + [member.name for member in all_members(families)]
    lines = [f"    {name};" for name in names]
    return "\n".join(["{", "  global:", *lines, "  local:", "    *;", "};", ""])


def member_list(families):
    lines = [
        "// Made by api/generate.py from api/members.txt: one line per exported operation.",
        "// ZELM_MEMBER(name, family, kind, element type, description, arguments)",
    ]
    fixed = [m for m in all_members(families) if m.description == "-"]
    if fixed:
        lines.append("// ZELM_FIXED_MEMBER(name, operation, kind, arguments): of fixed size, float")
    for m in all_members(families):
        if m in fixed:
            lines.append(f'ZELM_FIXED_MEMBER({m.name}, {m.family}, {m.kind}, "{m.arguments}")')
            continue
        lines.append(
            f"ZELM_MEMBER({m.name}, {m.family}, {m.kind}, {m.ctype}, {m.description}, "
            f'"{m.arguments}")'
        )
    return "\n".join(lines) + "\n"


def entry_list(families):
    """A macro for every member, and one for all members of an operation and kind."""
    lines = ["// Made by api/generate.py from api/members.txt, for ZELM_MEMBERS in member.hpp."]
    of_kind = {}
    for m in all_members(families):
        macro = m.name.replace("zelm", "ZELM_MEMBERS_", 1)
        names = ", ".join(f"const auto &{name}" for name, _ in m.operands)
        values = ", \\\n     ".join(value for _, value in m.operands)
        lines += [
            f"#define {macro}(...) ZELM_MEMBER({m.name}, {m.ctype}, \\",
            f"    ({', '.join(m.parameters)}), \\",
            f"    ({names}), \\",
            f"    ({values}), __VA_ARGS__)",
        ]
        if m.kind != "-":
            of_kind.setdefault(f"{m.family}_{m.kind}", []).append(f"{macro}(__VA_ARGS__)")
    for name, macros in of_kind.items():
        lines += [f"#define ZELM_MEMBERS_{name}(...) \\", "    " + " ".join(macros)]
    return "\n".join(lines) + "\n"


def function_table(families):
    """The C functions for C++, found by operation, element type, descriptions and kinds."""
    members = all_members(families)
    fixed = [m for m in members if m.description == "-"]
    operations = sorted({m.family for m in members})
    shapes = sorted({m.kind for m in fixed})
    lines = [
        "/* Made by api/generate.py from api/members.txt: which C function does what. */",
        "#ifndef ZELM_MEMBERS_HPP",
        "#define ZELM_MEMBERS_HPP",
        "",
        '#include "../zelm.h"',
        '#include "kinds.hpp"',
        "",
        "namespace zelm::detail {",
        "",
        "/* clang-format off */",
        "enum class operation {",
        *(f"    {operation}," for operation in operations),
        "};",
        "",
        "/* Operands of fixed size, and arrays of them. */",
        "enum class fixed { " + ", ".join(shapes) + " };",
        "",
        "/* function<operation, element type, descriptions of sources and destinations, kinds of",
        " * sources...> */",
    ]
    for m in members:
        if m in fixed:
            continue
        kinds = re.findall("[vmtc]a?", m.kind)
        described = ["description::" + m.description[0], "description::" + m.description[-1]]
        key = [f"operation::{m.family}", m.ctype, *described, *("kind::" + kind for kind in kinds)]
        lines.append(f"template <> inline constexpr auto function<{', '.join(key)}> = {m.name};")
    lines += ["", "/* fixed_function<operation, operands> */"]
    for m in fixed:
        key = f"operation::{m.family}, fixed::{m.kind}"
        lines.append(f"template <> inline constexpr auto fixed_function<{key}> = {m.name};")
    lines += ["/* clang-format on */", "", "} // namespace zelm::detail", "", "#endif"]
    for name, parameters_of_it in (
        ("function", "operation, class, description, description, kind..."),
        ("fixed_function", "operation, fixed"),
    ):
        first = next(i for i, line in enumerate(lines) if f"auto {name}<" in line)
        lines[first:first] = [
            f"template <{parameters_of_it}>",
            f"inline constexpr no_function {name}{{}};",
        ]
    return "\n".join(lines) + "\n"


def main(arguments):
    if arguments not in ([], ["--check"]):
        print(__doc__, file=sys.stderr)
        return 2
    try:
        families = read_table(TABLE.read_text(encoding="ascii"))
    except TableError as error:
        print(error, file=sys.stderr)
        return 2

    outputs = {
        HEADER: header(families, TEMPLATE.read_text(encoding="ascii")),
        EXPORTS: exports(families),
        MEMBERS: member_list(families),
        ENTRIES: entry_list(families),
        FUNCTIONS: function_table(families),
    }
    stale = False
    for path, text in outputs.items():
        old = path.read_text(encoding="ascii") if path.exists() else ""
        if old == text:
            continue
        stale = True
        name = str(path.relative_to(ROOT))
        if arguments:
            before, after = old.splitlines(True), text.splitlines(True)
            sys.stdout.writelines(difflib.unified_diff(before, after, name, f"{name} (made)"))
        else:
            path.write_text(text, encoding="ascii")
            print(f"{name} written")
    if not arguments:
        print(f"{len(all_members(families))} members")
    return 1 if stale and arguments else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
