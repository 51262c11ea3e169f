// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// With Qt 6, whoever asks a meta-object of ours for the type of an argument or a property has it registered, with
// functions of the library. Qt would call them after the library was unloaded.

#include <QtGlobal>

#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)

#include "graph/CNodeBase.h"
#include "models/AWorkerNodeDataModel.h"
#include "models/CDecoupler.h"
#include "models/CNodeDataFlowProxy.h"
#include "models/CNodeDecouplerDataModelBase.h"
#include "scene/CNodeScene.h"
#include "service/CHalvexPlugin.h"
#include "service/CNodeService.h"

#include <QMetaMethod>
#include <QMetaProperty>
#include <QMetaType>

#include <initializer_list>

namespace Plugin::Halvex {

namespace {

/// Qt's own types stay, and one that somebody else has registered before under the same name.
void takeBack(QMetaType type)
{
    if (!type.isRegistered() || type.id() < QMetaType::User)
        return;
    if (QMetaType::fromName(type.name()).iface() == type.iface())
        QMetaType::unregisterMetaType(type);
}

void takeBackTypesOf(const QMetaObject& metaObject)
{
    for (int i = metaObject.methodOffset(); i < metaObject.methodCount(); ++i) {
        const QMetaMethod method = metaObject.method(i);
        takeBack(method.returnMetaType());
        for (int p = 0; p < method.parameterCount(); ++p)
            takeBack(method.parameterMetaType(p));
    }
    for (int i = metaObject.propertyOffset(); i < metaObject.propertyCount(); ++i)
        takeBack(metaObject.property(i).metaType());
}

/// Goes with the library.
class CTypesOfSignals
{
public:
    constexpr CTypesOfSignals() = default;
    ~CTypesOfSignals()
    {
        for (const QMetaObject* metaObject : std::initializer_list<const QMetaObject*>{
                 &CNodeBase::staticMetaObject, &CNodeConnection::staticMetaObject, &CNodeDataModel::staticMetaObject,
                 &AWorkerNodeDataModel::staticMetaObject, &CDecoupler::staticMetaObject,
                 &CNodeDataFlowProxy::staticMetaObject, &CNodeDecouplerDataModelBase::staticMetaObject,
                 &CNodeScene::staticMetaObject, &INodeService::staticMetaObject, &CNodeService::staticMetaObject,
                 &CHalvexPlugin::staticMetaObject})
            takeBackTypesOf(*metaObject);
    }
    Q_DISABLE_COPY(CTypesOfSignals)
};

const CTypesOfSignals typesOfSignals;

} // namespace

} // namespace Plugin::Halvex

#endif
