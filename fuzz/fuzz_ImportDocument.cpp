// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// Input: import documents, separated by zero bytes; one is imported, several are stored and imported together. The
// service has two scenes; the active one has two cameras, and a filter with a unique name, that are connected.
//
// True whatever the documents say: no exception leaves the service; the other scene stays as it was, and so do the
// nodes and connections of the active one, but for the filter, which is not unique and which a document may replace;
// there are at most as many new nodes as elements; both scenes are sound, and the active one's document comes back;
// nothing outlives the service.

#include "support/CFuzzModel.h"
#include "support/FuzzProperties.h"
#include "support/StableIds.h"

#include <Halvex/scene/CNodeScene.h>
#include <Halvex/service/CNodeService.h>

#include <QJsonArray>
#include <QJsonDocument>

using namespace Plugin::Halvex;

namespace {

std::unique_ptr<CFuzzModel> makeCamera(const QString& uniqueName)
{
    SFuzzModelKind kind;
    kind.name = QStringLiteral("Camera");
    kind.inPorts = 0;
    kind.outPorts = 2;
    kind.hasOutput = true;
    kind.isUnique = true;
    kind.uniqueName = uniqueName;
    kind.type = ENodeDataModelType::Source;
    return std::make_unique<CFuzzModel>(kind);
}

std::unique_ptr<CFuzzModel> makeFilter(const QString& uniqueName)
{
    SFuzzModelKind kind;
    kind.name = QStringLiteral("Filter");
    kind.uniqueName = uniqueName;
    return std::make_unique<CFuzzModel>(kind);
}

/// Two scenes, as a host has them before it imports a chain.
class CHost
{
public:
    CHost()
        : m_service(nullptr)
    {
        registerFuzzModels(*m_service.registry());
        m_service.addNode(makeCamera(QStringLiteral("b")), nullptr);
        m_other = m_service.getActiveScene();
        m_service.addNode(makeFilter(QStringLiteral("named")), nullptr);

        m_camera = m_service.findNode(m_service.addNode(makeCamera(QStringLiteral("a")), nullptr));
        m_scene = m_service.getActiveScene();
        m_second = &m_scene->createNode(makeCamera(QStringLiteral("c")));
        m_filter = m_service.findNode(m_service.addNode(makeFilter(QStringLiteral("named")), nullptr));
        m_fromCamera = m_scene->createConnection(*m_filter, 0, *m_camera, 1, NodeDataConverter());
    }

    void import(const QList<QByteArray>& documents)
    {
        const QByteArray other = m_other->saveToMemory();
        const std::size_t count = m_scene->nodes().size();

        int elements = 0;
        for (const QByteArray& document : documents) {
            const QString text = QString::fromUtf8(document);
            elements += int(QJsonDocument::fromJson(text.toUtf8()).array().size());
            m_service.addStoredDocument(text);
        }
        if (documents.size() == 1)
            m_service.importDocument(QString::fromUtf8(documents.first()));
        else
            m_service.importStoredDocuments();

        require(m_service.scenes() == QList<CNodeScene*>{m_other, m_scene} && m_service.getActiveScene() == m_scene,
                QStringLiteral("an import makes and activates no scene"));
        require(m_other->saveToMemory() == other, QStringLiteral("an import leaves other scenes alone"));
        require(m_scene->nodes().size() <= count + std::size_t(elements),
                QStringLiteral("an import makes a node for an element at most"));
        requireUntouched();
        requireSoundness(*m_other);
        requireSoundness(*m_scene);
        requireRoundTrip(*m_scene);
    }

private:
    void requireUntouched() const
    {
        require(m_camera && m_second && m_service.documentNodes().contains(m_second),
                QStringLiteral("an import replaces no unique node"));
        require(m_scene->connections().count(m_fromCamera->id()) == 1 &&
                    m_fromCamera->getNode(ENodePortType::Out) == m_camera,
                QStringLiteral("an import deletes no connection"));
        require(!m_filter || m_fromCamera->getNode(ENodePortType::In) == m_filter,
                QStringLiteral("an import takes no connection away from a node that stays"));
    }

    CNodeService m_service;
    QPointer<CNodeScene> m_other;
    QPointer<CNodeScene> m_scene;
    QPointer<CNodeBase> m_camera;
    QPointer<CNodeBase> m_second;
    QPointer<CNodeBase> m_filter;
    std::shared_ptr<CNodeConnection> m_fromCamera;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    StableIds::restart();
    CFuzzModel::deliveriesLeft = 1000;
    CHost().import(QByteArray(reinterpret_cast<const char*>(data), int(size)).split('\0'));
    requireNothingLeft();
    return 0;
}
