// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/check/CNodeReader.h"

#include "host/base/Attempt.h"
#include "host/base/ClosestWords.h"
#include "host/base/FolderName.h"
#include "host/base/Shown.h"
#include "host/check/CFaultList.h"
#include "host/check/CJsonTree.h"
#include "host/check/CSettingsCheck.h"
#include "host/check/CWordFinder.h"
#include "host/check/SCheckOptions.h"
#include "host/sinks/IFrameSink.h"

#include <Halvex/graph/DocumentKeys.h>
#include <Halvex/models/ASourceNodeDataModel.h>
#include <Halvex/models/CNodeDecouplerDataModelBase.h>

#include <algorithm>

namespace Host {

using namespace Plugin::Halvex;

namespace {

constexpr QLatin1String sinkNameKey = DocumentKeys::makeKey("sink_name");

} // namespace

CNodeReader::CNodeReader(CModelCatalogue& models, CFaultList& faults, CWordFinder& words, const SCheckOptions& options)
    : m_models(models)
    , m_faults(faults)
    , m_words(words)
    , m_options(options)
{
}

bool CNodeReader::read(const SJsonNode& json, SGraphNode& node)
{
    const SJsonNode* const nameJson = json.member(DocumentKeys::name);
    if (!nameJson || !nameJson->isString() || nameJson->text().isEmpty())
        return true; // told with the shape of the document
    const QString name = nameJson->text();
    if (!m_models.names().contains(name)) {
        m_faults.addError(EFaultRule::UnknownModel, *nameJson, unknownModelText(name));
        return true;
    }
    QString error;
    const auto model = m_models.create(name, &error);
    if (!model) {
        m_faults.addError(EFaultRule::UnusableModel, *nameJson,
                          error.isEmpty() ? tr("a %1 cannot be made").arg(shown(name)) : error);
        return true;
    }
    if (qobject_cast<ASourceNodeDataModel*>(model.get()))
        return false;
    readModel(*model, json, node);
    return true;
}

QString CNodeReader::unknownModelText(const QString& name)
{
    QString hint = m_words.hint(name, m_models.names());
    if (hint.isEmpty() && m_options.canNameCommands)
        hint = QStringLiteral("'halvex-host models' lists them");
    return withHint(tr("no model %1 is registered").arg(shown(name)), hint);
}

void CNodeReader::readModel(CNodeDataModel& model, const SJsonNode& json, SGraphNode& node)
{
    CSettingsCheck(model, json, m_faults, m_words).check();
    checkSink(model, json);
    const QString error = attempt(tr("asking for ports"), [&] {
        node.inputs = portTypes(model, ENodePortType::In);
        node.outputs = portTypes(model, ENodePortType::Out);
        node.caption = model.caption();
        node.inputNames = portNames(model, ENodePortType::In);
        node.outputNames = portNames(model, ENodePortType::Out);
        return true;
    });
    node.hasModel = error.isEmpty();
    node.isDecoupler = qobject_cast<CNodeDecouplerDataModelBase*>(&model) != nullptr;
    if (!error.isEmpty())
        m_faults.addError(EFaultRule::UnusableModel, json, error);
}

bool CNodeReader::isAnyLike(const SJsonNode& settings, const QString& name)
{
    return std::any_of(settings.children.begin(), settings.children.end(),
                       [&](const SJsonNode* each) { return !m_words.closest(each->key, {name}).isNull(); });
}

void CNodeReader::checkSink(CNodeDataModel& model, const SJsonNode& json)
{
    const auto* const sink = qobject_cast<IFrameSink*>(&model);
    if (!sink)
        return;
    const SJsonNode* const settings = json.member(DocumentKeys::property);
    const SJsonNode* at = settings ? settings->member(sinkNameKey) : nullptr;
    if (!at && settings && isAnyLike(*settings, sinkNameKey))
        return; // told as a setting that a sink does not have
    const QString name = sink->sinkName();
    at = at ? at : json.member(DocumentKeys::name);
    const auto known = m_sinks.constFind(name);
    if (!makesASinkFolder(name))
        m_faults.addError(EFaultRule::Sink, *at,
                          name.isEmpty() ? tr("a sink needs a name for its folder: \"property\": {\"sink_name\": …}")
                                         : tr("the sink's name %1 makes no folder").arg(shown(name)));
    else if (known != m_sinks.constEnd())
        m_faults.addError(EFaultRule::Sink, *at,
                          tr("a second sink %1, after that at %2").arg(shown(name), m_faults.place(*known)));
    else
        m_sinks.insert(name, at->begin);
}

} // namespace Host
