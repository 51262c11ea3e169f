// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// Input: eight bytes of a number, then the text of a JSON object. A node with a model of each kind restores the object;
// a decoupler also restores the number as its rate, which no text could say if it is not finite.
//
// True whatever they are: a node takes the id that the object names and touches nothing else; what it saves then,
// restored into another node, gives the same; a decoupler has the very rate that it was given, and a timer that ticks
// at it if that is possible.

#include "support/CFuzzModel.h"
#include "support/FuzzProperties.h"
#include "support/StableIds.h"

#include <Halvex/models/CGenericNodeDecouplerDataModel.h>

#include <QJsonDocument>
#include <QTimer>

#include <cmath>
#include <cstring>

using namespace Plugin::Halvex;

namespace {

using CTestDecoupler = CGenericNodeDecouplerDataModel<CTestData>;

void restoreNode(const QString& modelName, const QJsonObject& json)
{
    CNodeBase node(fuzzRegistry()->create(modelName));
    const CNodeDataModel* const model = node.nodeDataModel();
    const auto portCount = node.nodeState().getEntries(ENodePortType::In).size();
    node.restore(json);

    const Core::CId named(json[QLatin1String("id")].toString().toLocal8Bit().constData());
    require(node.id() == named, QStringLiteral("a node has the id that its object names"));
    require(node.nodeDataModel() == model && model->save()[QLatin1String("name")].toString() == modelName,
            QStringLiteral("a node keeps its model"));
    require(std::as_const(node).nodeState().getEntries(ENodePortType::In).size() == portCount,
            QStringLiteral("a node keeps its ports"));

    const QJsonObject saved = node.save();
    CNodeBase copy(fuzzRegistry()->create(modelName));
    copy.restore(saved);
    require(copy.save() == saved, QStringLiteral("a node restores what it saved"));
}

void restoreRate(double rate)
{
    const QJsonObject json{{QStringLiteral("property"), QJsonObject{{QStringLiteral("frames_per_second"), rate}}}};
    CTestDecoupler model;
    model.restore(json);
    const auto* const timer = model.findChild<QTimer*>();
    require(timer->isActive() && timer->interval() >= 0, QStringLiteral("the timer ticks"));
    if (!std::isfinite(rate)) {
        require(timer->interval() == 40, QStringLiteral("a rate that is not finite leaves the timer as it is"));
        return;
    }
    require(model.framesPerSecond() == rate, QStringLiteral("a decoupler has the rate that it was given"));

    CTestDecoupler copy;
    copy.restore(model.save());
    require(copy.framesPerSecond() == rate, QStringLiteral("a decoupler restores the rate that it saved"));
    require(copy.findChild<QTimer*>()->interval() == timer->interval(),
            QStringLiteral("two decouplers of one rate tick alike"));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    StableIds::restart();
    double rate = 0;
    if (size >= sizeof rate) {
        std::memcpy(&rate, data, sizeof rate);
        data += sizeof rate;
        size -= sizeof rate;
    }
    restoreRate(rate);

    const QByteArray text(reinterpret_cast<const char*>(data), int(size));
    const QJsonObject json = QJsonDocument::fromJson(text).object();
    for (const char* name : {"Filter", "Mixer", "Unique", "Plain", "DecouplerT"})
        restoreNode(QString::fromLatin1(name), json);
    requireNothingLeft();
    return 0;
}
