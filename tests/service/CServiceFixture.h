// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "service/CServiceLog.h"
#include "service/HostModels.h"
#include "support/CMessageCatcher.h"
#include "support/COverwritten.h"
#include "support/ServiceConsistency.h"

#include <Halvex/platform/IBaseInfo.h>
#include <Halvex/service/CNodeService.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QtTest>

#include <memory>

/// An element of an import document: a model under a label, and whatever \a more says of it.
inline QJsonObject element(const QString& label, const QString& model = QStringLiteral("View"),
                           const QJsonObject& more = {})
{
    QJsonObject json = more;
    json["name"] = label;
    json["model"] = QJsonObject{{"name", model}};
    return json;
}

/// What an element may say besides: which sources feed its first port.
inline QJsonObject fedBy(const QStringList& sources)
{
    return {{"unique_sources", QJsonArray{QJsonValue(QJsonArray::fromStringList(sources))}}};
}

/// The same: which labels it feeds.
inline QJsonObject feeding(const QStringList& labels)
{
    return {{"connection", QJsonArray{QJsonValue(QJsonArray::fromStringList(labels))}}};
}

/// The text of an import document.
inline QString document(const QJsonArray& elements)
{
    return QString::fromUtf8(QJsonDocument(elements).toJson(QJsonDocument::Compact));
}

/// A model with its node.
struct SPlaced
{
    CNamedTestModel* model = nullptr;
    Core::CId id;
};

/**
 * A service whose registry knows "Filter" (a decoupler), "View" (a sink) and "Plain" (without an identity), what it and
 * its scenes said, and what it reported. It fails the test if it leaves its scenes unsound or anything behind.
 */
class CServiceFixture
{
public:
    using BaseInfoPtr = Core::AppCoreComponents::BaseInfoPtr;
    using CNodeScene = Plugin::Halvex::CNodeScene;
    using ENodeDataModelType = Plugin::Halvex::ENodeDataModelType;

    CServiceFixture()
    {
        registerModel(*service->registry(), ENodeDataModelType::Decoupler, QStringLiteral("Filter"));
        registerModel(*service->registry(), ENodeDataModelType::Sink, QStringLiteral("View"));
        service->registry()->registerModel([] { return std::make_unique<CTestModel>(1, 1, QStringLiteral("Plain")); },
                                           QStringLiteral("Test"));
    }
    ~CServiceFixture() { endService(); }

    void endService()
    {
        if (service)
            QCOMPARE(inconsistencyOfScenes(*service), QString());
        service.reset();
        QCOMPARE(CTestModels::alive(), 0);
        QCOMPARE(CTestData::alive(), 0);
    }

    static BaseInfoPtr makeInfo() { return QSharedPointer<Core::AppCoreComponents::IBaseInfo>::create(); }

    SPlaced add(std::unique_ptr<CNamedTestModel> model, const BaseInfoPtr& info = {}) const
    {
        CNamedTestModel* const placed = model.get();
        return {placed, service->addNode(std::move(model), info)};
    }
    SPlaced addSource(const QString& name = QStringLiteral("cam"), const BaseInfoPtr& info = {}) const
    {
        return add(makeSource(name), info);
    }
    SPlaced addView(const QString& name = QStringLiteral("view")) const
    {
        return add(makeModel(ENodeDataModelType::Sink, name));
    }

    /// Hands in a model that a node owns already.
    Core::CId addAgain(CNamedTestModel* model, const BaseInfoPtr& info = {}) const
    {
        return service->addNode(std::unique_ptr<Plugin::Halvex::ANodeDataModel>(model), info);
    }

    /// Feeds the first port of \a in by the first of \a out.
    Core::CId connect(const SPlaced& in, const SPlaced& out) const
    {
        return service->connectModels(in.model, 0, out.model, 0);
    }
    bool import(const QJsonArray& elements) const { return service->importDocument(document(elements)); }

    CNodeScene* active() const { return service->getActiveScene(); }
    CNodeScene* scene(int index) const { return service->scenes().value(index); }
    int sceneCount() const { return int(service->scenes().size()); }
    static int nodeCount(const CNodeScene* scene) { return int(scene->nodes().size()); }

    /// Overwritten with zeros: it has no turns then, and is not on its way out.
    class CService : public Plugin::Halvex::CNodeService, public COverwritten<0>
    {
    public:
        using CNodeService::CNodeService;
    };

    std::unique_ptr<Plugin::Halvex::CNodeService> service = std::make_unique<CService>(nullptr);
    CServiceLog log{*service};
    CMessageCatcher messages;
};

/// "Filter" fed by the unique source "cam" and feeding "View".
inline QJsonArray chain()
{
    QJsonObject filter = element("a", "Filter", fedBy({"cam"}));
    filter["connection"] = feeding({"b"})["connection"];
    return {filter, element("b")};
}

/// A scene document with one node under \a id.
inline QByteArray sceneDocument(const Core::CId& id, const QString& model = QStringLiteral("View"))
{
    const QJsonObject node{{"id", id.toString()}, {"model", QJsonObject{{"name", model}}}};
    return QJsonDocument(QJsonObject{{"nodes", QJsonArray{node}}}).toJson();
}
