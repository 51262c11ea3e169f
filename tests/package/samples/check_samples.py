#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The Halvex authors
# SPDX-License-Identifier: LicenseRef-Halvex
"""Compiles every sample: \\code blocks of the headers, and fenced blocks of C++ in the documents.

  check_samples.py --headers FOLDER --documents FILE|FOLDER... --compiler COMMAND...

A sample is named by its file and its place among the samples of that file, "CNodeScene.h 1". Each is compiled on its
own, behind prelude.h and what GIVEN says for its file. What it defines goes to namespace scope, its statements go into
a function of a QObject, so that it may call connect(). In a tutorial, each sample has what those before it define.
"""

import argparse
import concurrent.futures
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

HERE = pathlib.Path(__file__).resolve().parent

# What a sample speaks of and does not make itself, by its file.
GIVEN = {
    "ASinkNodeDataModel.h": "extern CDisplayModel& display; extern CWindow* window;",
    "ASourceNodeDataModel.h": "extern ASourceNodeDataModel& camera; extern CNodeDataPtr frame;",
    "AWorkerNodeDataModel.h": "CNodeDataPtr blurred(const CNodeDataPtr& image, int radius);",
    "CDecoupler.h": "extern CDisplay* display; extern CNodeDataPtr frame;",
    "CGrabResultPtr.h": "extern Veltra::SGrabResult result; template <typename... Pixels> void show(Pixels...);",
    "CHalvexPlugin.h": """
        extern QSharedPointer<Core::Service::IServiceManager> manager;
        void work(const QSharedPointer<Core::Service::IService>& service);""",
    "CNodeBase.h": """
        extern CNodeScene& scene;
        using CNegateModel = CBlurModel;""",
    "CNodeConnection.h": """
        extern CNodeScene& scene;
        extern CNodeBase& blurNode;
        extern CNodeBase& cameraNode;
        CNodeDataPtr grabResultToImage(CNodeDataPtr data);""",
    "CNodeDataEntry.h": """
        extern ASourceNodeDataModel& source;
        struct CCamera { CNodeDataPtr nextFrame(); };
        extern CCamera& camera;""",
    "CNodeDataModelRegistry.h": "extern CNodeDataModelRegistry& registry; extern CNodeScene& scene;",
    "CNodeDecouplerDataModelBase.h": "extern CNodeDataModelRegistry& registry;",
    "CNodeScene.h": """
        extern std::shared_ptr<CNodeDataModelRegistry> registry;
        extern Core::AppCoreComponents::BaseInfoPtr info;""",
    "CNodeState.h": "extern CNodeBase& node;",
    "CVeltraGrabResultData.h": """
        extern ASourceNodeDataModel& camera;
        extern Veltra::CGrabResultPtr grabResult;
        extern CNodeDataPtr data;
        void show(const Veltra::CGrabResultPtr& frame);""",
    **dict.fromkeys(("CheckConverter.h", "CheckData.h", "CheckModel.h", "CheckPlugin.h", "ITestData.h", "SCheckOptions.h", "SReport.h"), """
        #include <Halvex/testing/CheckConverter.h>
        #include <Halvex/testing/CheckData.h>
        #include <Halvex/testing/CheckModel.h>
        #include <Halvex/testing/CheckPlugin.h>
        #include <Halvex/testing/ITestData.h>
        using namespace Testing;
        extern SCheckOptions options;"""),
    "DocumentKeys.h": "extern CNodeScene& scene;",
    "INodeService.h": """
        class CCameraModel : public CSampleModel<ASourceNodeDataModel>
        { public: using CSampleModel::CSampleModel; bool isUnique() override; };
        extern INodeService* service;
        extern Core::AppCoreComponents::BaseInfoPtr info;
        extern QString chain;
        extern CNodeDataPtr frame;""",
    "README.md": """
        class CCameraModel : public CSampleModel<ASourceNodeDataModel>
        { public: using CSampleModel::CSampleModel; bool isUnique() override; };
        extern QSharedPointer<Core::Service::IServiceManager> manager;
        extern Core::AppCoreComponents::BaseInfoPtr info;
        extern QString chain;
        extern Veltra::CGrabResultPtr frame;""",
    "first-host.md": """
        extern QSharedPointer<INodeService> service;""",
    "first-plugin.md": "using CBrightnessModel = CBlurModel;",
    "plugin.md": "extern QString file;",
}

# The first line, comments aside, of what can only stand at namespace scope: a class, or a function with its type before
# its name.
DEFINITION = re.compile(
    r"#include\b|using namespace\b|(template|class|struct|enum|namespace)\b"
    r"|(?!(if|else|for|while|switch|return|do)\b)[\w:<>,&* ]+[ &*][\w:~]+\([^;]*(,|\)( const)?( *\{.*\})?)$")


def samples_of(file, begin, end, margin):
    """The samples between lines that match begin and end, without their margin: (name, number of first line, lines)."""
    samples = []
    lines = None
    for number, line in enumerate(file.read_text(encoding="utf-8").splitlines(), 1):
        if lines is None:
            if re.search(begin, line):
                lines, first = [], number + 1
        elif re.search(end, line):
            samples.append((f"{file.name} {len(samples) + 1}", first, lines))
            lines = None
        else:
            lines.append(re.sub(margin, "", line, count=1))
    if lines is not None:
        sys.exit(f"{file}: a sample has no end")
    return samples


def find_samples(headers, documents):
    """All samples, as (file, name, number of the first line, lines)."""
    found = []
    for file in sorted(headers.rglob("*.h")):
        found += [(file, *sample) for sample in samples_of(file, r"[\\@]code\b", r"[\\@]endcode\b", r"^\s*(\*|///) ?")]
    files = []
    for document in documents:
        files += sorted(document.rglob("*.md")) if document.is_dir() else [document]
    for file in files:
        found += [(file, *sample) for sample in samples_of(file, r"^```cpp$", r"^```$", r"^")]
    return found


def parts_of(first, lines):
    """The sample, cut where an empty line is in no braces, as (number of the first line, lines)."""
    part, depth = [], 0
    for number, line in enumerate(lines, first):
        if line.strip() or depth > 0:
            part.append((number, line))
            depth += line.count("{") - line.count("}")
        elif part:
            yield part
            part = []
    if part:
        yield part


def split(sample):
    """What a sample defines, and its statements."""
    file, _, first, lines = sample
    definitions, statements = [], []
    for part in parts_of(first, lines):
        text = f'#line {part[0][0]} "{file}"\n' + "".join(line + "\n" for _, line in part)
        head = next((line for _, line in part if not line.startswith("//")), "")
        (definitions if DEFINITION.match(head) else statements).append(text)
    return definitions, statements


def source_of(sample, before):
    definitions, statements = split(sample)
    known = [text for earlier in before for text in split(earlier)[0]]
    return "\n".join([
        '#line 1 "given"', GIVEN.get(sample[0].name, ""), *known, *definitions,
        "class CSample : public QObject { void run(); };", "void CSample::run() {", *statements, "}", ""])


def steps_before(sample, samples):
    """Those of the same tutorial that come before."""
    if sample[0].parent.name != "tutorials":
        return []
    same_file = [other for other in samples if other[0] == sample[0]]
    return same_file[:same_file.index(sample)]


def compile_prelude(compiler, folder):
    """Once for all samples: it takes longer than they do."""
    header = shutil.copy(HERE / "prelude.h", folder)
    subprocess.run([*compiler, "-x", "c++-header", header, "-o", f"{header}.gch"], check=True)


def errors_of(sample, before, compiler, folder):
    source = folder / (re.sub(r"\W", "_", sample[1]) + ".cpp")
    source.write_text(source_of(sample, before), encoding="utf-8")
    command = [*compiler, "-include", str(folder / "prelude.h"), "-fsyntax-only", str(source)]
    run = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
    return run.stdout or "no message" if run.returncode != 0 else ""


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--headers", type=pathlib.Path, required=True)
    parser.add_argument("--documents", type=pathlib.Path, nargs="+", required=True)
    parser.add_argument("--compiler", nargs=argparse.REMAINDER, required=True)
    arguments = parser.parse_args()

    samples = find_samples(arguments.headers, arguments.documents)
    with tempfile.TemporaryDirectory() as path, concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        folder = pathlib.Path(path)
        compile_prelude(arguments.compiler, folder)
        errors = list(pool.map(
            lambda sample: errors_of(sample, steps_before(sample, samples), arguments.compiler, folder), samples))

    failed = False
    for (_, name, _, _), error in zip(samples, errors):
        if error:
            failed = True
            print(f"DOES NOT COMPILE: {name}\n{error}")
    if not samples:
        sys.exit("no sample was found")
    print(f"{len(samples)} samples")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
