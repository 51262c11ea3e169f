// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <Halvex/HalvexExport.h>
#include <Halvex/graph/CNodeData.h>
#include <Halvex/graph/ENodePortType.h>
#include <Halvex/graph/NodePortIndex.h>
#include <Halvex/models/ANodeDataModel.h>
#include <Halvex/models/SDecouplerStatistics.h>

#include <QJsonObject>
#include <QString>

#include <memory>

class QTimer;

namespace Plugin::Halvex {

class CDecoupler;

/**
 * A node that cuts a fast producer off from slow consumers: one input, one output of the same type.
 *
 * \code
 * registry.registerModel<CGenericNodeDecouplerDataModel<CVeltraGrabResultData>>(QStringLiteral("Tools"));
 *
 * auto preview = std::make_unique<CGenericNodeDecouplerDataModel<CVeltraGrabResultData>>();
 * preview->setFramesPerSecond(10);
 * \endcode
 *
 * setInData() hands the data to a worker thread and returns at once. The data comes out later, from the event loop of
 * the graph's thread. A timer ticks at the given rate, and each tick lets one data object out: the newest. If input
 * stops, the last data still comes out, unless empty data has cancelled it. Empty data is not passed on.
 *
 * Ticks are whole milliseconds apart, and as exact as Qt's coarse timers: 600 frames per second give a tick every
 * millisecond, more than 1000 give one in every pass of the event loop.
 *
 * Each model has one worker thread. It is started when the first data may go out. If the system has no thread to give,
 * Qt says so, and the next tick tries again.
 *
 * Threads: the graph's. statistics() may be called in any thread while the model exists.
 */
class HALVEX_EXPORT CNodeDecouplerDataModelBase : public ANodeDataModel
{
    Q_OBJECT
    /// The rate, in frames per second.
    Q_PROPERTY(double framesPerSecond READ framesPerSecond WRITE setFramesPerSecond NOTIFY framesPerSecondChanged)

public:
    /// 25 frames per second. The timer ticks from here on.
    CNodeDecouplerDataModelBase();

    /// Stops the ticks, ends the worker and waits for it, at most 30000 ms. If that is not enough, one warning says so;
    /// the worker runs on, and the application's event loop deletes it when it has ended.
    ~CNodeDecouplerDataModelBase() override;

    QString caption() override;
    /// The short name of the data type.
    QString portCaption(ENodePortType portType, NodePortIndex index) const override;
    QString name() override;
    unsigned int nPorts(ENodePortType portType) const override;
    void setInData(CNodeDataPtr data, NodePortIndex index) override;
    CNodeDataPtr outData(NodePortIndex index) override;
    bool isUnique() override;

    /// The short name of the data type. The captions and the registered name are made from it.
    virtual QString dataTypeName() = 0;

    /// What ANodeDataModel saves, and "property": {"frames_per_second": framesPerSecond()}.
    QJsonObject save() const override;

    /// Sets the rate to "frames_per_second" in "property": 0 if that is no number, unchanged if a key is missing.
    void restore(const QJsonObject& json) override;

    /// The rate, in frames per second.
    double framesPerSecond() const;

    /// Stores the rate, sets the timer to 1000 / \a fps milliseconds, cut to whole ones, and emits
    /// framesPerSecondChanged(). Does nothing if this is the rate already. A rate that is not positive and finite is
    /// stored, but the timer keeps its interval.
    void setFramesPerSecond(double fps);

    /// What became of the data handed in so far.
    SDecouplerStatistics statistics() const;

Q_SIGNALS:
    /// Data has arrived on the input; null is empty data. Once for each setInData() of input 0.
    void inDataUpdated(CNodeDataPtr ptrNodeData);

    /// setFramesPerSecond() has changed the rate. Once for each change, after the timer was set.
    void framesPerSecondChanged(double);

private Q_SLOTS:
    void onNodeDataAvailable(CNodeDataPtr ptrNodeData);

private:
    void startWorkerForWaitingData();
    void reconfigureTickTimer();

    std::unique_ptr<CDecoupler> m_decoupler; // null while the model is destroyed
    QTimer* m_tickTimer;
    double m_framesPerSecond = 25.0;
    CNodeDataPtr m_lastData;
};

} // namespace Plugin::Halvex
