// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "CMistakenPlugin.h"

#include "CNumberModel.h"
#include "FrameModels.h"

#include <Halvex/platform/IServiceManager.h>
#include <Halvex/service/INodeService.h>

#include <QCoreApplication>
#include <QPointer>
#include <QThread>
#include <QVariant>

#include <cstdio>
#include <cstdlib>
#include <stdexcept>

#include <dlfcn.h>
#include <unistd.h>

using namespace Plugin::Halvex;

namespace {

using Model = CNumberModel;

bool makes(const char* mistake)
{
    return qgetenv("HALVEX_TEST_MISTAKE") == mistake;
}

void add(CNodeDataModelRegistry& registry, const char* name, SMisbehaviour misbehaviour)
{
    misbehaviour.name = [name](const Model&) { return QString::fromLatin1(name); };
    registry.registerModel([misbehaviour] { return std::make_unique<CNumberModel>(misbehaviour); },
                           QString::fromLatin1("Test"));
}

void abortOnEmptyData(Model& model, const CNodeDataPtr& data, int index)
{
    if (!data)
        std::abort();
    model.multiply(data, index);
}

template <int exitCode>
void exitOnForeignData(Model& model, const CNodeDataPtr& data, int index)
{
    if (data && !data.dynamicCast<CNumber>())
        ::_exit(exitCode);
    model.multiply(data, index);
}

/// Goes on in itself when a handler has removed it. What a use of freed memory does is not always the same.
void useSelfAfterSignal(Model& model, const QString& label)
{
    if (label == model.label())
        return;
    const QPointer<Model> self(&model);
    model.storeLabel(label);
    Q_EMIT model.labelChanged();
    if (!self)
        std::abort();
}

void changeInput(Model& model, const CNodeDataPtr& data, int index)
{
    model.multiply(data, index);
    if (const auto number = data.dynamicCast<CNumber>())
        number->setValue(number->value() + 1);
}

void addModels(CNodeDataModelRegistry& registry)
{
    add(registry, "Sound", {});
    add(registry, "", {});
    SMisbehaviour misbehaviour;
    misbehaviour.setInData = &abortOnEmptyData;
    add(registry, "Aborts", misbehaviour);
    misbehaviour.setInData = &exitOnForeignData<3>;
    add(registry, "Exits", misbehaviour);
    misbehaviour.setInData = &exitOnForeignData<0>;
    add(registry, "Exits as if all were well", misbehaviour);
    misbehaviour.setInData = &changeInput;
    add(registry, "Spoils", misbehaviour);
    misbehaviour = {};
    misbehaviour.setLabel = &useSelfAfterSignal;
    add(registry, "Uses itself", misbehaviour);
    misbehaviour = {};
    misbehaviour.caption = [](const Model&) {
        std::puts("What a plugin prints is no message.");
        return QString();
    };
    add(registry, "Prints", misbehaviour);
}

void addHangingModels(CNodeDataModelRegistry& registry)
{
    SMisbehaviour misbehaviour;
    misbehaviour.save = [](const Model&, const QJsonObject& saved) {
        QThread::sleep(1000);
        return saved;
    };
    add(registry, "Hangs", misbehaviour);
    misbehaviour.save = [](const Model&, const QJsonObject& saved) {
        for (int second = 0; second < 1000; ++second) {
            std::puts("Still at it.");
            std::fputs("The last word", stdout);
            std::fflush(stdout);
            QThread::sleep(1);
        }
        return saved;
    };
    add(registry, "Hangs and prints", misbehaviour);
    misbehaviour.save = [](const Model&, const QJsonObject& saved) {
        QThread::msleep(1);
        return saved;
    };
    add(registry, "Slow", misbehaviour);
}

void abortOnColour(Model& model, const CNodeDataPtr& data, int index)
{
    const Veltra::CGrabResultPtr frame = frameIn(data);
    if (frame && frame->pixelFormat != QLatin1String("Mono8"))
        std::abort();
    negate(model, data, index);
}

void throwOnPixels(Model& model, const CNodeDataPtr& data, int index)
{
    if (frameIn(data))
        throw std::runtime_error("no room for an image");
    negate(model, data, index);
}

void addFrameModels(CNodeDataModelRegistry& registry)
{
    add(registry, "Negates", frameModel(&negate));
    add(registry, "Negates in place", frameModel(&negateInPlace));
    add(registry, "Changes its last output", frameModel(&changeLastOutput));
    add(registry, "Aborts on colour", frameModel(&abortOnColour));
    add(registry, "Throws on pixels", frameModel(&throwOnPixels));
}

/// Data that only a converter makes.
class CConverted : public CNodeData
{
public:
    explicit CConverted(QString typeId)
        : m_typeId(std::move(typeId))
    {
    }

    SNodeDataType type() const override { return {m_typeId, m_typeId}; }

private:
    const QString m_typeId;
};

void throwOnConverted(Model& model, const CNodeDataPtr& data, int index)
{
    if (data.dynamicCast<CConverted>())
        throw std::runtime_error("no room for what was converted");
    model.multiply(data, index);
}

/// A model that takes and gives data of the type \a typeId, and a converter from colour frames, which are not the first
/// of the kit, to the type \a madeId.
void addConvertedModel(INodeService& service, const char* name, const QString& typeId, const QString& madeId)
{
    SMisbehaviour misbehaviour;
    misbehaviour.dataType = [typeId](const Model&, ENodePortType, int) { return CConverted(typeId).type(); };
    misbehaviour.setInData = &throwOnConverted;
    add(*service.registry(), name, misbehaviour);
    service.registerTypeConverter({CVeltraGrabResultData().type(), CConverted(typeId).type()},
                                  [madeId](const CNodeDataPtr& data) {
                                      const Veltra::CGrabResultPtr frame = frameIn(data);
                                      const bool isColour = frame && frame->pixelFormat == QLatin1String("BGR8");
                                      return isColour ? CNodeDataPtr(new CConverted(madeId)) : CNodeDataPtr();
                                  });
}

/// Whether this process checks one model.
bool isForOneModel()
{
    return !QCoreApplication::arguments().filter(QStringLiteral("--model=")).isEmpty();
}

} // namespace

CNodeDataPtr CNumberService::makeData(const SNodeDataType& type, int number) const
{
    return numberOptions().makeData(type, number);
}

QByteArray CNumberService::checksum(const CNodeData& data) const
{
    return numberOptions().checksum(data);
}

CMistakenPlugin::CMistakenPlugin()
    : m_service(new CNumberService)
{
    Dl_info info{};
    if (makes("stays") && dladdr(&staticMetaObject, &info) != 0)
        dlopen(info.dli_fname, RTLD_NOW | RTLD_NODELETE);
    if (makes("ends-in-constructor"))
        std::abort();
}

bool CMistakenPlugin::initialize(const QWeakPointer<Core::Service::IServiceManager>& manager)
{
    const bool wasHere = qApp->property("wasHere").toBool();
    if (makes("once") && wasHere)
        return false;
    qApp->setProperty("wasHere", true);
    m_manager = manager;
    if (const auto present = manager.toStrongRef())
        present->registerService(m_service);
    else if (makes("needs-manager"))
        throw std::logic_error("no manager");
    return !makes("refuses") && !(makes("refuses-later") && isForOneModel());
}

bool CMistakenPlugin::extensionsInitialized()
{
    const auto manager = m_manager.toStrongRef();
    const auto service = manager->findService("Plugin::Halvex::INodeService");
    INodeService& nodes = *qobject_cast<INodeService*>(service.data());
    CNodeDataModelRegistry& registry = *nodes.registry();
    if (makes("models"))
        addModels(registry);
    if (makes("frames"))
        addFrameModels(registry);
    if (makes("converted")) {
        addConvertedModel(nodes, "Takes colours", QStringLiteral("Test colours"), QStringLiteral("Test colours"));
        addConvertedModel(nodes, "Takes what is never made", QStringLiteral("Test wish"), QStringLiteral("Test other"));
    }
    if (makes("hangs"))
        addHangingModels(registry);
    if (makes("refuses-later"))
        add(registry, "Sound", {});
    if (makes("literal"))
        registry.registerModel([] { return std::make_unique<CNumberModel>(); }, QString::fromLatin1("Test"));
    return true;
}

bool CMistakenPlugin::uninitialize(const QWeakPointer<Core::Service::IServiceManager>& manager)
{
    const auto present = manager.toStrongRef();
    if (present && !makes("keeps-service"))
        present->unregisterService(m_service);
    return true;
}

#include "CMistakenPlugin.moc"
#include "CNumberModel.moc"
