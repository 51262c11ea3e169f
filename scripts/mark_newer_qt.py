#!/usr/bin/python3
"""Marks what came after Qt 5.12 in a copy of Qt's headers, so that clang warns of each use.

    scripts/mark_newer_qt.py <documentation> <headers> <copy>

What is newer is what the pages of Qt Core and Qt Test call newer: functions, classes, enum values and macros. Of
overloads only that with the parameters on the page is marked. Fails if a header does not have what a page tells.
"""

import html
import pathlib
import re
import shutil
import sys

from clang import cindex

NEWER = r"5\.1[345](?:\.\d+)?"
# Documented in a class that inherits it, or that it is another name of.
DOCUMENTED_IN = {"QBasicAtomicInteger": "QAtomicInteger", "QBasicAtomicPointer": "QAtomicPointer",
                 "QListSpecialMethods<QByteArray>": "QByteArrayList", "QListSpecialMethods<QString>": "QStringList"}
LEFT_OUT = re.compile(r"""
    # Qt 5.12 has it in another form, which the same calls reach:
      QFlags::QFlags\(\)                              # QFlags(Zero = nullptr)
    | QMultiHash::uniqueKeys\(\)                      # QHash's
    | QString::arg\(Args&&\.\.\.\)                    # up to nine of what becomes a QString; a QStringView does not
    | QThread::wait\(QDeadlineTimer\)                 # wait(unsigned long = ULONG_MAX)
    | QVector::operator=\(initializer_list<T>\)       # a vector is made of the list, then moved
    | (QString|QStringRef)::split(Ref)?\(.*           # with QString::SplitBehavior; the new values are marked
    | Q(JsonObject|StringList)::\w+\(QLatin1String.*  # the text becomes a QString
    # Not on a PC, for who compiles, of Qt Gui, or in no public header:
    | ::Q_PROCESSOR_RISCV\w* | ::QT_NO_DEPRECATED_WARNINGS | QMetaType::QColorSpace
    | ::Q(Gregorian|Jalali|Julian|Milankovic|Roman)Calendar""", re.VERBOSE)


def without_scopes(types):
    return re.sub(r"\b\w+::|\s", "", types)


def read_pages(documentation):
    """{"<class, enum or namespace>::<name>(<types of the parameters>)": release}; an enum value has no parentheses."""
    newer = {}
    for page in [*documentation.glob("qtcore/*.html"), *documentation.glob("qttestlib/*.html")]:
        text = page.read_text()
        title = re.search(r'<h1 class="title">(\w+) Class', text)
        since = re.search(rf"Since:</td><td[^>]*> Qt ({NEWER})", text)
        if title and since:
            newer["::" + title[1]] = since[1]
        for block in re.findall(r'<h3 class="(?:fn|flags)\b.*?<!-- @@@', text, re.DOTALL):
            of_block = re.search(rf"This [\w ]+ was introduced (?:or modified )?in Qt ({NEWER})", block)
            values = re.findall(r"<tr><td[^>]*><code>(?:\w+::)*(\w+::\w+)</code>(.*?)</tr>", block, re.DOTALL)
            of_values = {value: since[1] for value, rest in values
                         if (since := re.search(rf"(?:added in|introduced in|Since) (?:Qt )?({NEWER})", rest))}
            newer.update(of_values or {value: of_block[1] for value, _ in values if of_block})
            for heading in re.findall(r"<h3 .*?</h3>", block if of_block else ""):
                # The names of parameters are in italics, that of the function in a span.
                parts = re.split(r'<span class="name">(.*?)</span>', re.sub(r"<i>\w*</i>", "", heading))
                before, name, after = (html.unescape(re.sub("<.*?>", "", part)) for part in parts[:3])
                if not re.search(r"\benum\b", before):
                    scope = re.search(r"(?:(\w+)::)?$", before)[1] or ""
                    types = re.sub(r"=[^,()]*(\(.*?\))?", "", after[:after.rfind(")") + 1]) # without default values
                    newer[f"{scope}::{name}{without_scopes(types)}"] = of_block[1]
    return {key: since for key, since in newer.items() if not LEFT_OUT.fullmatch(key)}


def declarations(cursor, scope=""):
    """Each declaration below the cursor, and its key as in read_pages()."""
    kinds = cindex.CursorKind
    for child in cursor.get_children():
        name = re.sub(r"^(?!operator)(\w+)<.*", r"\1", child.spelling)
        if child.kind in (kinds.FUNCTION_DECL, kinds.CXX_METHOD, kinds.CONSTRUCTOR, kinds.FUNCTION_TEMPLATE):
            types = [without_scopes(of.type.spelling) for of in child.get_children() if of.kind == kinds.PARM_DECL]
            types = ["T*" if scope == "QAtomicPointer" and of == "Type" else of for of in types if of != "QPrivateSignal"]
            yield child, f"{scope}::{name}({','.join(types)})"
        elif child.kind in (kinds.FRIEND_DECL, kinds.LINKAGE_SPEC, kinds.UNEXPOSED_DECL):
            yield from declarations(child)
        elif child.kind == kinds.ENUM_DECL:
            own = child.spelling if child.is_scoped_enum() else scope
            yield from ((value, f"{own}::{value.spelling}") for value in child.get_children())
        elif child.kind == kinds.NAMESPACE:
            yield from declarations(child, name)
        elif child.is_definition():
            yield child, f"::{name}"
            yield from declarations(child, DOCUMENTED_IN.get(child.displayname) or DOCUMENTED_IN.get(name) or name)


def main():
    documentation, headers, copy = map(pathlib.Path, sys.argv[1:])
    newer, found, marks = read_pages(documentation), set(), {}
    for module in ("QtCore", "QtTest"):
        shutil.copytree(headers / module, copy / module, dirs_exist_ok=True)
    arguments = ["-xc++", "-std=c++17", "-fPIC", f"-I{copy}", f"-I{copy}/QtCore", f"-I{copy}/QtTest"]
    every_header = ("all.cpp", "#include <QtCore/QtCore>\n#include <QtTest/QtTest>\n")
    unit = cindex.Index.create().parse("all.cpp", arguments, [every_header])
    for declared, key in declarations(unit.cursor):
        if key in newer:
            # An enum value takes its attribute behind its name, everything else takes it before.
            behind = len(declared.spelling) if declared.kind == cindex.CursorKind.ENUM_CONSTANT_DECL else 0
            mark = f' __attribute__((deprecated("since Qt {newer[key]}"))) '
            header = pathlib.Path(declared.location.file.name)
            marks.setdefault(header, set()).add((declared.location.offset + behind, mark))
            found.add(key)
    for header in copy.glob("Qt*/*.h"):
        text = header.read_text("latin-1")
        for macro in re.findall(r"^ *# *define (\w+)", text, re.MULTILINE):
            if since := newer.get(f"::{macro}()"):
                mark = f'\n#pragma clang deprecated({macro}, "since Qt {since}")\n'
                marks.setdefault(header, set()).add((len(text), mark))
                found.add(f"::{macro}()")
    for header, of_header in marks.items():
        text = header.read_text("latin-1") # a letter is a byte
        for offset, mark in sorted(of_header, reverse=True):
            text = text[:offset] + mark + text[offset:]
        header.write_text(text, "latin-1")

    faults = [str(fault) for fault in unit.diagnostics if fault.severity >= cindex.Diagnostic.Error]
    faults += [f"documented, but in no header: {key}" for key in sorted(newer.keys() - found)]
    print(*faults, f"{len(found)} declarations and macros are newer than Qt 5.12", sep="\n")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
