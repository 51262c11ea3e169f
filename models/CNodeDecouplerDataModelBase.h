// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "graph/CWeakLink.h"
#include "models/ANodeDataModel.h"
#include "models/SDecouplerStatistics.h"

#include <Halvex/HalvexExport.h>

#include <memory>

class QTimer;

namespace Plugin {
namespace Halvex {

class CDecoupler;

/**
 * A node that cuts a fast producer off from slow consumers: one input, one output of the same type.
 *
 * \code
 * registry.registerModel<CGenericNodeDecouplerDataModel<CGrabResultData>>(QStringLiteral("Tools"));
 *
 * auto preview = std::make_unique<CGenericNodeDecouplerDataModel<CGrabResultData>>();
 * preview->setFramesPerSecond(10);
 * \endcode
 *
 * Data comes in during a walk, which goes on at once; it comes out later, from the graph thread's event loop, never
 * from inside setInData(). At most one object comes out per tick of a timer, and of what comes faster only the newest.
 * A tick takes a whole number of milliseconds, as exact as Qt's coarse timers are: 600 frames per second are one every
 * millisecond, and more than 1000 are one in every pass of the event loop. The
 * newest is never lost: when input stops, the last data comes out, unless empty data cancelled it. Empty data is not
 * passed on.
 *
 * Threads: the graph's, statistics() any. The model has one worker thread, started when the first data may go out.
 */
class HALVEX_EXPORT CNodeDecouplerDataModelBase : public ANodeDataModel
{
    Q_OBJECT
    Q_PROPERTY(double framesPerSecond READ framesPerSecond WRITE setFramesPerSecond NOTIFY framesPerSecondChanged)

public:
    /// 25 frames per second; the tick timer runs from here on.
    CNodeDecouplerDataModelBase();

    /// Ends the worker and waits for it, at most 30000 ms.
    ~CNodeDecouplerDataModelBase() override;

    QString caption() override;
    QString portCaption(ENodePortType portType, NodePortIndex index) const override;
    QString name() override;
    unsigned int nPorts(ENodePortType portType) const override;
    void setInData(CNodeDataPtr data, NodePortIndex index) override;
    CNodeDataPtr outData(NodePortIndex index) override;
    bool isUnique() override;

    /// The short name of the data type, from which captions and the registered name are made.
    virtual QString dataTypeName() = 0;

    /// What ANodeDataModel saves and "property": {"frames_per_second"}.
    QJsonObject save() const override;

    /// Takes the rate from "property"."frames_per_second"; what is no number is 0. A missing key changes nothing.
    void restore(const QJsonObject& json) override;

    /// The rate, in frames per second.
    double framesPerSecond() const;

    /// Sets any rate and emits framesPerSecondChanged(), unless it is the present one. The timer ticks every
    /// 1000 / \a fps milliseconds, cut to whole ones; a rate that is not positive and finite leaves it as it is.
    void setFramesPerSecond(double fps);

    /// What became of the data handed in so far. May be called from any thread.
    SDecouplerStatistics statistics() const;

Q_SIGNALS:
    /// Data arrived on the input; once for each, null for empty data.
    void inDataUpdated(CNodeDataPtr ptrNodeData);
    void framesPerSecondChanged(double);

private Q_SLOTS:
    void onNodeDataAvailable(CNodeDataPtr ptrNodeData);

private:
    void reconfigureTickTimer();

    std::unique_ptr<CDecoupler> m_decoupler; // no child, since it goes first
    QTimer* m_tickTimer;
    double m_framesPerSecond = 25.0;
    CNodeDataPtr m_lastData;
    CWeakAnchor<CNodeDecouplerDataModelBase> m_guards;
};

} // namespace Halvex
} // namespace Plugin
