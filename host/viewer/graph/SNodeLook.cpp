// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/graph/SNodeLook.h"

#include "host/viewer/base/ModelText.h"

#include <Halvex/models/AWorkerNodeDataModel.h>
#include <Halvex/models/CNodeDecouplerDataModelBase.h>
#include <Halvex/scene/CNodeDataModelRegistry.h>

#include <QCoreApplication>
#include <QLocale>

namespace Host {

using namespace Plugin::Halvex;

namespace {

class CNodeTexts
{
    Q_DECLARE_TR_FUNCTIONS(Host::CNodeTexts)

public:
    template <typename Statistics>
    static std::vector<std::pair<QString, QString>> figuresOf(const Statistics& counts)
    {
        const QLocale locale;
        return {{tr("received"), locale.toString(counts.received)},
                {tr("emitted"), locale.toString(counts.emitted)},
                {tr("dropped"), locale.toString(counts.dropped)},
                {tr("pending"), locale.toString(counts.pending)}};
    }

    static std::pair<QString, QString> rate(double framesPerSecond)
    {
        return {tr("rate"), tr("%1 fps").arg(QLocale().toString(framesPerSecond, 'g', 4))};
    }

    static std::pair<QString, QString> workTime(qint64 nanoseconds)
    {
        return {tr("work"), tr("%1 ms").arg(QLocale().toString(double(nanoseconds) / 1e6, 'f', 1))};
    }
};

std::vector<SPortLook> portsOf(const CNodeDataModel& model, ENodePortType side)
{
    std::vector<SPortLook> ports;
    const int count = int(model.nPorts(side));
    for (int i = 0; i < count; ++i) {
        const SNodeDataType type = model.dataType(side, i);
        const QString caption = model.portCaptionVisible(side, i) ? model.portCaption(side, i) : QString();
        ports.push_back({caption == type.name ? QString() : caption, type.id, type.name});
    }
    return ports;
}

QString categoryOf(const CNodeDataModelRegistry* registry, const QString& name)
{
    if (!registry)
        return {};
    const auto& categories = registry->registeredModelsCategoryAssociation();
    const auto found = categories.find(name);
    return found == categories.end() ? QString() : found->second;
}

} // namespace

SNodeLook lookOf(CNodeDataModel& model, const CNodeDataModelRegistry* registry)
{
    SNodeLook look;
    look.caption = captionText(model);
    look.category = modelText(categoryOf(registry, model.name()));
    look.kind = kindOf(model);
    look.inputs = portsOf(model, ENodePortType::In);
    look.outputs = portsOf(model, ENodePortType::Out);
    look.state = model.validationState();
    look.message = look.state == ENodeValidationState::Valid ? QString() : model.validationMessage().simplified();
    if (const auto* const decoupler = qobject_cast<CNodeDecouplerDataModelBase*>(&model)) {
        look.figures = CNodeTexts::figuresOf(decoupler->statistics());
        look.figures.push_back(CNodeTexts::rate(decoupler->framesPerSecond()));
    } else if (const auto* const worker = qobject_cast<AWorkerNodeDataModel*>(&model)) {
        const SWorkerStatistics statistics = worker->statistics();
        look.figures = CNodeTexts::figuresOf(statistics);
        look.workTime = statistics.workP50;
        look.figures.push_back(CNodeTexts::workTime(look.workTime));
    }
    return look;
}

} // namespace Host
