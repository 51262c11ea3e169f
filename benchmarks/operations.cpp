// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// Does one thing many times, for a profiler that counts instructions.
//
//   halvex-operations engine|floor|nothing construct|load|import|find|push|work TIMES

#include "CDocumentScene.h"
#include "CImportService.h"
#include "CMailbox.h"
#include "CSceneChain.h"
#include "CSignalChain.h"
#include "CWorkerChannel.h"
#include "SDocument.h"
#include "SendOne.h"

#include <Halvex/models/CDecoupler.h>

#include <QCoreApplication>

#include <cstdlib>
#include <cstring>
#include <unordered_map>

using namespace Plugin::Halvex;

namespace {

/// Does the one or the other; nothing, so that what comes before can be subtracted.
template <typename Engine, typename Floor>
void choose(const char* who, const Engine& engine, const Floor& floor)
{
    if (std::strcmp(who, "engine") == 0)
        engine();
    else if (std::strcmp(who, "floor") == 0)
        floor();
}

/// A chain, made and destroyed: the floor are the objects of F2.
void construct(const char* who, int nodes)
{
    choose(
        who, [=] { const CSceneChain chain(nodes); }, [=] { const CSignalChain chain(nodes); });
}

/// A scene document read: the floor is J, and makes as many objects.
void load(const char* who, int nodes)
{
    const QByteArray text = CDocumentScene(nodes).scene.saveToMemory();
    choose(
        who, [&] { CDocumentScene().scene.loadFromMemory(text); },
        [&] {
            const SDocument document = SDocument::read(text);
            const CSignalChain chain(nodes);
        });
}

/// A chain document imported: the floor reads it as JSON and makes as many objects.
void import(const char* who, int elements)
{
    const QString text = importDocument(elements);
    CImportService host;
    choose(
        who, [&] { host.service.importDocument(text); },
        [&] { const CSignalChain chain(QJsonDocument::fromJson(text.toUtf8()).array().size()); });
}

/// A node looked up by its id: the floor is the table alone.
void find(const char* who, int times)
{
    CNodeService service(nullptr);
    const Core::CId id = service.addNode(std::make_unique<CUniqueSource>(QStringLiteral("source")), {});
    const std::unordered_map<Core::CId, CNodeBase*> table = {{id, service.findNode(id)}};
    const CNodeBase* volatile found = nullptr;
    const auto lookUp = [&](const auto& work) {
        for (int i = 0; i < times; ++i)
            found = work();
    };
    choose(
        who, [&] { lookUp([&] { return service.findNode(id); }); }, [&] { lookUp([&] { return table.at(id); }); });
}

/// Data pushed into a slot that is full: the floor is H.
void push(const char* who, int times)
{
    const CNodeDataPtr frame = makeFrame();
    const auto pushInto = [&](const auto& work) {
        for (int i = 0; i < times; ++i)
            work(frame);
    };
    choose(
        who,
        [&] {
            CDecoupler decoupler;
            decoupler.enableThrottle(true); // else it depends on the time what the worker takes out
            pushInto([&decoupler](const CNodeDataPtr& data) { decoupler.setNodeData(data); });
        },
        [&] {
            CMailbox mailbox;
            pushInto([&mailbox](const CNodeDataPtr& data) { mailbox.push(data); });
        });
}

/// A frame through an empty worker and back: the floor is a runnable on the same pool, and one queued call.
void work(const char* who, int times)
{
    const CNodeDataPtr frame = makeFrame();
    const auto send = [&](auto& channel) {
        for (int i = 0; i < times; ++i)
            sendOne(channel, frame);
    };
    choose(
        who,
        [&] {
            CWorkerChannel channel;
            send(channel);
        },
        [&] {
            CPoolChannel channel;
            send(channel);
        });
}

} // namespace

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    const struct
    {
        const char* name;
        void (*work)(const char* who, int times);
    } operations[] = {{"construct", construct}, {"load", load}, {"import", import},
                      {"find", find},           {"push", push}, {"work", work}};
    if (argc != 4)
        return 2;
    for (const auto& operation : operations) {
        if (std::strcmp(argv[2], operation.name) == 0) {
            operation.work(argv[1], std::atoi(argv[3]));
            return 0;
        }
    }
    return 2;
}
