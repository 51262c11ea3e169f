// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QString>

#include <array>
#include <vector>

namespace Sequences {

/// What a node's model is.
enum EKind
{
    View,   // a sink
    Filter, // a decoupler, which passes on what is new to it
    Named,  // a source with a unique name, which is not unique
    Plain,  // a filter without an identity
    Source, // a unique source
    Unknown // that nobody registered
};

const char* nameOf(EKind kind);

/// What a sequence is made of: AGraph says what each of them does.
enum class EOperation
{
    AddSource,
    AddModel,
    AddUniqueSink,
    AddAgain,
    RemoveNode,
    RemoveNodeByModel,
    RemoveSceneOfNode,
    ConnectModels,
    ImportDocument,
    ImportStoredDocuments,
    AddStoredDocument,
    SetActiveScene,
    CreateNode,
    CreateConnection,
    CreateHalfConnection,
    DeleteConnection,
    DeleteConnectionNow,
    RemoveFromScene,
    ClearScene,
    SaveToMemory,
    LoadFromMemory,
    RestoreNode,
    RestoreConnection,
    Iterate,
    SetData,
    DestroyScene
};

/// An element of an import document. Labels are small numbers; minus a node's number is its unique name.
struct SElement
{
    int label = 0;
    EKind kind = View;
    std::vector<std::vector<int>> sources; // labels or unique names, by input port
    std::vector<int> feeds;                // labels or unique names
};

using Document = std::vector<SElement>;

struct SOperation
{
    EOperation kind = EOperation::AddUniqueSink;
    int number = 0; ///< Of what the operation makes; 0 if it makes nothing.
    std::array<int, 6> arguments{};
    Document document;
};

/// How many numbers an operation needs for what it makes.
int numbersOf(EOperation kind);

/// What can be seen while an operation runs.
enum class EEvent
{
    // Signals, to which two handlers are connected each.
    SceneAdded,
    ActiveSceneChanged,
    SceneRemoving,
    SceneRemoved,
    NodeCreated,
    NodeDeleted,
    ConnectionCreated,
    ConnectionDeleted,
    NewData,  // of a sink's proxy
              // What comes without a signal.
    Asked,    // a model was asked for its output
    Received, // it got data
    Gone,     // it was destroyed
    ConnectionGone,
    Visited,
    Saved,
    SavedConnection,
    Returned // from an operation
};

/// One call of a handler: the how manyeth of that signal in a step, from 1; the second handler is the late one.
struct SCall
{
    EEvent signal = EEvent::SceneAdded;
    bool isLate = false;
    int count = 1;
};

bool operator<(const SCall& left, const SCall& right);

/// An operation that a handler runs.
struct SNested
{
    SCall call;
    SOperation operation;
};

/// An operation, and what handlers do during it.
struct SStep
{
    SOperation operation;
    std::vector<SNested> nested;
};

using Sequence = std::vector<SStep>;

/// As C++: a call of AGraph.
QString codeOf(const SOperation& operation);

/// As the body of a test: statements for a CSideBySide named "graph".
QString codeOf(const Sequence& sequence);

/// A value is the number of the operation that sent it, times this, plus how often it was converted.
constexpr int perOperation = 1000;

inline int operationOf(int value)
{
    return value / perOperation;
}

/// How many operations there are, those of handlers included.
int sizeOf(const Sequence& sequence);

} // namespace Sequences
