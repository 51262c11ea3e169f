// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "sequences/SOperation.h"

#include <QStringList>

#include <tuple>

namespace Sequences {
namespace {

/// How an operation is written: whether the number of what it makes comes first, then a letter for each argument.
struct SSpelling
{
    const char* name;
    int numbers;
    const char* arguments; // i: a number, b: a truth value, k: a kind of model, p: a port type, d: the document
};

const SSpelling& spellingOf(EOperation kind)
{
    // A document brings as many nodes as it likes.
    static const SSpelling spellings[] = {{"addSource", 1, "i"},
                                          {"addModel", 1, "k"},
                                          {"addUniqueSink", 1, ""},
                                          {"addAgain", 0, "i"},
                                          {"removeNode", 0, "ib"},
                                          {"removeNodeByModel", 0, "ib"},
                                          {"removeSceneOfNode", 0, "ib"},
                                          {"connectModels", 1, "iiii"},
                                          {"importDocument", 100, "d"},
                                          {"importStoredDocuments", 100, ""},
                                          {"addStoredDocument", 0, "d"},
                                          {"setActiveScene", 0, "i"},
                                          {"createNode", 1, "ik"},
                                          {"createConnection", 1, "iiiiib"},
                                          {"createHalfConnection", 1, "ipii"},
                                          {"deleteConnection", 0, "i"},
                                          {"deleteConnectionNow", 0, "i"},
                                          {"removeFromScene", 0, "i"},
                                          {"clearScene", 0, "i"},
                                          {"saveToMemory", 0, "i"},
                                          {"loadFromMemory", 100, "i"},
                                          {"restoreNode", 1, "ii"},
                                          {"restoreConnection", 1, "ii"},
                                          {"iterate", 0, "i"},
                                          {"setData", 1, "ib"},
                                          {"destroyScene", 0, "i"}};
    return spellings[std::size_t(kind)];
}

const char* nameOf(EEvent signal)
{
    static const char* const names[] = {"SceneAdded",        "ActiveSceneChanged", "SceneRemoving",
                                        "SceneRemoved",      "NodeCreated",        "NodeDeleted",
                                        "ConnectionCreated", "ConnectionDeleted",  "NewData"};
    return names[std::size_t(signal)];
}

QString listOf(const std::vector<int>& numbers)
{
    QStringList texts;
    for (const int number : numbers)
        texts << QString::number(number);
    return '{' + texts.join(", ") + '}';
}

QString textOf(const Document& document)
{
    QStringList elements;
    for (const SElement& element : document) {
        QStringList sources;
        for (const std::vector<int>& port : element.sources)
            sources << listOf(port);
        elements << QString("{%1, %2, {%3}, %4}")
                        .arg(element.label)
                        .arg(nameOf(element.kind), sources.join(", "), listOf(element.feeds));
    }
    return '{' + elements.join(", ") + '}';
}

QString textOf(char letter, int argument, const Document& document)
{
    switch (letter) {
    case 'b':
        return argument != 0 ? "true" : "false";
    case 'k':
        return nameOf(EKind(argument));
    case 'p':
        return argument == 1 ? "ENodePortType::In" : "ENodePortType::Out";
    case 'd':
        return textOf(document);
    default:
        return QString::number(argument);
    }
}

} // namespace

const char* nameOf(EKind kind)
{
    static const char* const names[] = {"View", "Filter", "Named", "Plain", "Source", "Unknown"};
    return names[kind];
}

int numbersOf(EOperation kind)
{
    return spellingOf(kind).numbers;
}

bool operator<(const SCall& left, const SCall& right)
{
    return std::tie(left.signal, left.isLate, left.count) < std::tie(right.signal, right.isLate, right.count);
}

QString codeOf(const SOperation& operation)
{
    const SSpelling& spelling = spellingOf(operation.kind);
    QStringList arguments;
    if (spelling.numbers != 0)
        arguments << QString::number(operation.number);
    for (std::size_t i = 0; spelling.arguments[i] != '\0'; ++i)
        arguments << textOf(spelling.arguments[i], operation.arguments[i], operation.document);
    return QString("graph.%1(%2);").arg(spelling.name, arguments.join(", "));
}

QString codeOf(const Sequence& sequence)
{
    QString code;
    for (const SStep& step : sequence) {
        for (const SNested& nested : step.nested) {
            code += QString("graph.%1(EEvent::%2, %3, [&] { %4 });\n")
                        .arg(nested.call.isLate ? "onLate" : "on", nameOf(nested.call.signal))
                        .arg(nested.call.count)
                        .arg(codeOf(nested.operation));
        }
        code += codeOf(step.operation) + '\n';
    }
    return code;
}

int sizeOf(const Sequence& sequence)
{
    int size = int(sequence.size());
    for (const SStep& step : sequence)
        size += int(step.nested.size());
    return size;
}

} // namespace Sequences
