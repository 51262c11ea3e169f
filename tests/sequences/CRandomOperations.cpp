// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "sequences/CRandomOperations.h"

namespace Sequences {
namespace {

// Enough for everything to happen, and few enough for a difference to be understood.
constexpr std::size_t mostScenes = 6;
constexpr std::size_t mostNodes = 30;
constexpr std::size_t mostConnections = 40;

} // namespace

SOperation CRandomOperations::next(const SPresent& present)
{
    m_present = present;
    const int choice = upTo(99);
    if (present.scenes.empty() || (choice < 5 && present.scenes.size() < mostScenes))
        return make(EOperation::AddSource, {upTo(AGraph::infos - 1)});
    if (present.scenes.size() >= mostScenes && choice < 15)
        return make(choice < 7 ? EOperation::DestroyScene : EOperation::ClearScene, {scene()});
    if (present.nodes.size() >= mostNodes && choice < 40)
        return choice < 4 ? make(EOperation::ClearScene, {scene()}) : onNode(choice % 3);
    if (present.connections.size() >= mostConnections && choice < 45)
        return onConnection(choice % 4);
    if (choice < 15)
        return make(EOperation::AddModel, {oneOf(std::vector<EKind>{View, View, Filter, Named})});
    if (choice < 17)
        return make(EOperation::AddUniqueSink);
    if (choice < 28)
        return onScene(choice);
    if (choice < 40)
        return ofDocument(choice);
    if (present.nodes.empty() || choice < 46)
        return make(EOperation::CreateNode, {scene(), oneOf(std::vector<EKind>{View, Filter, Plain})});
    if (choice < 62)
        return createConnection();
    if (choice < 72 && !present.sources.empty())
        return make(EOperation::SetData, {oneOf(present.sources), once(8)});
    if (choice < 82 && !present.connections.empty())
        return onConnection(choice);
    return onNode(choice);
}

SOperation CRandomOperations::make(EOperation kind, std::array<int, 6> arguments, Document document)
{
    const int number = numbersOf(kind) == 0 ? 0 : m_lastNumber + 1;
    m_lastNumber += numbersOf(kind);
    return {kind, number, arguments, std::move(document)};
}

SOperation CRandomOperations::onScene(int choice)
{
    switch (choice % 8) {
    case 0:
        return make(once(2) ? EOperation::DestroyScene : EOperation::ClearScene, {scene()});
    case 1:
    case 2:
        return make(EOperation::Iterate, {scene()});
    default:
        return make(EOperation::SetActiveScene, {once(6) ? 0 : scene()});
    }
}

SOperation CRandomOperations::onNode(int choice)
{
    const int which = node();
    const bool flag = once(2);
    switch (choice % 6) {
    case 0:
        return make(EOperation::RemoveFromScene, {which});
    case 1:
        return make(EOperation::RemoveNode, {which, flag});
    case 2:
        return make(EOperation::RemoveNodeByModel, {which, flag});
    case 3:
        return once(3) ? make(EOperation::RemoveSceneOfNode, {which, flag}) : createConnection();
    default:
        return make(EOperation::AddAgain, {which});
    }
}

SOperation CRandomOperations::onConnection(int choice)
{
    const int connection = oneOf(m_present.connections);
    return make(choice % 2 == 0 ? EOperation::DeleteConnection : EOperation::DeleteConnectionNow, {connection});
}

SOperation CRandomOperations::createConnection()
{
    const int in = node();
    const int out = m_present.sources.empty() || once(2) ? node() : oneOf(m_present.sources);
    const int inPort = upTo(9) == 0 ? 2 : upTo(1);
    const int outPort = upTo(9) == 0 ? -1 : once(3) ? 1 : 0;
    switch (upTo(5)) {
    case 0:
    case 1:
        return make(EOperation::ConnectModels, {in, inPort, out, outPort});
    case 2:
        return make(EOperation::CreateHalfConnection, {scene(), 1 + upTo(1), in, inPort});
    default:
        return make(EOperation::CreateConnection, {scene(), in, inPort, out, outPort, once(2)});
    }
}

SOperation CRandomOperations::ofDocument(int choice)
{
    switch (choice % 8) {
    case 0:
        return make(EOperation::ImportDocument, {}, document());
    case 1:
        return once(3) ? make(EOperation::ImportStoredDocuments) : make(EOperation::ImportDocument, {}, document());
    case 2:
        return once(20) ? make(EOperation::AddStoredDocument, {}, document())
                        : make(EOperation::RestoreNode, {scene(), upTo(9)});
    case 3:
        return make(EOperation::RestoreConnection, {scene(), upTo(9)});
    case 4:
    case 5:
        return make(EOperation::LoadFromMemory, {scene()});
    default:
        return make(EOperation::SaveToMemory, {scene()});
    }
}

Document CRandomOperations::document()
{
    Document elements;
    for (int count = upTo(3); count >= 0; --count) {
        SElement element{upTo(3), oneOf(std::vector<EKind>{View, Filter, Filter, Plain}), {}, {}};
        if (once(20))
            element.kind = Unknown;
        for (int port = upTo(2); port > 0; --port) {
            element.sources.emplace_back();
            for (int names = upTo(2); names > 0; --names)
                element.sources.back().push_back(name());
        }
        for (int feeds = upTo(2); feeds > 0; --feeds)
            element.feeds.push_back(upTo(4));
        elements.push_back(element);
    }
    return elements;
}

int CRandomOperations::name()
{
    return m_present.sources.empty() || once(3) ? upTo(4) : -oneOf(m_present.sources);
}

} // namespace Sequences
