// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "sequences/AWorld.h"
#include "sequences/SState.h"
#include "sequences/SequenceModels.h"

#include <Halvex/platform/IBaseInfo.h>
#include <Halvex/scene/CNodeScene.h>
#include <Halvex/service/CNodeService.h>

#include <QObject>
#include <QPointer>

#include <array>
#include <map>
#include <utility>
#include <vector>

namespace Sequences {

/// What operations may be chosen from.
struct SPresent
{
    std::vector<int> scenes;
    std::vector<int> nodes;
    std::vector<int> sources; // that can be fed
    std::vector<int> connections;
};

/// What is there: the library's service, and handlers of all its signals and of all its scenes' signals.
class CActual : public AWorld, public IModelListener
{
public:
    explicit CActual(CEventLog& log);

    SPresent present() const;
    SState state();
    /// What is wrong with the scenes; empty if nothing is.
    QString inconsistency();

    void onMade() override { ++m_models; }
    void onAsked(int model, int port) override;
    void onReceived(int model, int value, int port) override;
    void onGone(int model) override;

protected:
    int perform(const SOperation& operation) override;
    void onNumbersChanged(int first) override;

private:
    using CNodeBase = Plugin::Halvex::CNodeBase;
    using CNodeConnection = Plugin::Halvex::CNodeConnection;
    using CNodeDataModel = Plugin::Halvex::CNodeDataModel;
    using CNodeScene = Plugin::Halvex::CNodeScene;
    using ANodeDataModel = Plugin::Halvex::ANodeDataModel;

    int performOnService(const SOperation& operation);
    int performOnScene(const SOperation& operation);
    bool isPossible(const SOperation& operation) const;

    int addSource(int info);
    int addModel(EKind kind);
    int addAgain(int node);
    int connectModels(const SOperation& operation);
    int createConnection(const SOperation& operation);
    int createHalfConnection(const SOperation& operation);
    int restoreNode(CNodeScene& scene, int index);
    int restoreConnection(CNodeScene& scene, int index);
    void save(const CNodeScene& scene);

    std::unique_ptr<CNodeDataModel> makeModel(EKind kind);

    template <typename Signal>
    void hearService(EEvent event, Signal signal);
    void onServiceSignal(EEvent event, CNodeScene* scene);
    void onLateServiceSignal(EEvent event, const CNodeScene* scene);
    void hear(CNodeScene& scene, int number);
    void hearView(CNodeBase& node);
    void onNode(EEvent event, bool isLate, const CNodeScene& scene, int number, CNodeBase& node);
    void onConnection(EEvent event, bool isLate, CNodeScene& scene, int number, const CNodeConnection& connection);
    static std::vector<int> nodesIfClosing(const CNodeScene& scene);

    int numberOf(const CNodeScene* scene) const;
    int numberOf(const CNodeConnection& connection) const { return m_connectionNumbers.at(connection.id()); }
    static int numberOf(const CNodeBase* node);
    static const CIdentity& identityOf(const CNodeBase& node);
    CNodeBase* nodeOf(int number) const; // null if it is in no scene
    ANodeDataModel* modelOf(int node) const;
    CNodeScene* sceneOf(const CNodeBase& node) const;
    std::pair<CNodeScene*, CNodeConnection*> connectionOf(int number) const;
    int firstOfId(const QJsonValue& id) const;

    std::array<Core::AppCoreComponents::BaseInfoPtr, infos> m_infos;
    std::map<int, QPointer<CNodeScene>> m_scenes;
    std::map<const CNodeScene*, int> m_sceneNumbers;
    std::map<int, QPointer<CNodeBase>> m_nodes;
    std::map<Core::CId, int> m_firstOfId; // the first node that had it
    std::map<int, std::pair<QPointer<CNodeScene>, Core::CId>> m_connections;
    std::map<Core::CId, int> m_connectionNumbers;
    std::vector<std::pair<const CNodeScene*, int>> m_emissions; // of the service, that are under way
    QByteArray m_saved;
    int m_models = 0; // that are alive
    QObject m_context;
    Plugin::Halvex::CNodeService m_service{nullptr};
};

} // namespace Sequences
