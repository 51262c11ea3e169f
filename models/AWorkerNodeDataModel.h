// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <Halvex/HalvexExport.h>
#include <Halvex/graph/CNodeData.h>
#include <Halvex/graph/CNodeDataModel.h>
#include <Halvex/graph/NodePortIndex.h>
#include <Halvex/models/ANodeDataModel.h>
#include <Halvex/models/SWorkerStatistics.h>

#include <QJsonObject>
#include <QString>

#include <functional>
#include <memory>
#include <vector>

class QThreadPool;

namespace Plugin::Halvex {

class CInputGatherer;
class CWorkQueue;

/**
 * A model whose work runs on other cores. Its inputs are collected in the graph's thread, the work runs in a thread
 * pool, and the result goes out in the graph's thread again, from its event loop.
 *
 * \code
 * class CWideBlurModel : public AWorkerNodeDataModel
 * {
 * public:
 *     QString caption() override { return name(); }
 *     QString name() override { return QStringLiteral("Wide Blur"); }
 *     unsigned int nPorts(ENodePortType side) const override { return side == ENodePortType::None ? 0 : 1; }
 *     SNodeDataType dataType(ENodePortType, NodePortIndex) const override { return CImageData().type(); }
 *     bool isUnique() override { return false; }
 *     void setRadius(int radius)
 *     {
 *         m_radius = radius;
 *         renewWork();
 *     }
 *
 * protected:
 *     Work makeWork() const override
 *     {
 *         return [radius = m_radius](const Inputs& inputs) { return blurred(inputs[0], radius); };
 *     }
 *
 * private:
 *     int m_radius = 3;
 * };
 * \endcode
 *
 * Frames: a frame is one set of inputs, one data object for each input port. m_gathering says when it is complete. When
 * it is, it is handed to the pool, or waits until one of the frames before it has left: parallelism() frames are worked
 * on at a time, and as many results may wait for the graph's thread. policy() says what happens when too many wait.
 * Results leave in the order in which their frames came: what is ready too early waits.
 *
 * Results: each becomes the output, and dataUpdated(0) is emitted, unless the end of the output before it has already
 * let a newer one out. A null result, a frame that failed and empty data make the output empty, and dataInvalidated(0)
 * is emitted. What the work throws is the validation message until a frame succeeds, and is reported to "halvex.graph"
 * with the model's name, once as long as it is the same. computingStarted() is emitted after a frame was taken in, if
 * none was pending before it, and computingFinished() when none is pending any more.
 *
 * Empty data on any input forgets what was collected, cancels what waits, and lets what is worked on end without a
 * result. It goes out itself, after the results that are complete.
 *
 * Removal: the destructor waits for nothing. What is worked on ends by itself, and its result is released there.
 * Whoever unloads code that work may be running in calls waitForRemovedWork() before.
 *
 * Threads: the graph's, but for statistics(), which may be called in any while the model exists, and for the work,
 * which runs in the pool's threads. Ownership: as CNodeDataModel. No mutex is held while foreign code runs.
 *
 * Allocations per frame: two for Qt's queued call, one in the pool where the runnable waits for its thread, and the
 * result's own.
 */
class HALVEX_EXPORT AWorkerNodeDataModel : public ANodeDataModel
{
    Q_OBJECT
    /// What becomes of a frame for which there is no room.
    Q_PROPERTY(EPolicy policy READ policy WRITE setPolicy NOTIFY policyChanged)
    /// How many frames may wait, unless the policy is NewestWins.
    Q_PROPERTY(int mostWaiting READ mostWaiting WRITE setMostWaiting NOTIFY mostWaitingChanged)
    /// How many frames are worked on at a time.
    Q_PROPERTY(int parallelism READ parallelism WRITE setParallelism NOTIFY parallelismChanged)

public:
    /// What becomes of a frame for which there is no room.
    enum class EPolicy
    {
        NewestWins, ///< One frame waits, the newest.
        DropOldest, ///< mostWaiting() frames wait. The one that has waited longest is dropped for a new one.
        DropNewest  ///< mostWaiting() frames wait. What comes then is dropped.
    };
    Q_ENUM(EPolicy)

    /// When a model with several inputs has a frame. With one input, each data object is one.
    enum class EGathering
    {
        NewestOfEach, ///< Whenever data comes and every port has had some: the newest of each.
        SameNumber    ///< When every port has data of one number(). Data whose number is passed over is let go.
    };
    Q_ENUM(EGathering)

    /// The data of a frame, by input port; none is null.
    using Inputs = std::vector<CNodeDataPtr>;

    /// Makes the result from the inputs, which are shared with other nodes and must not be changed. Called in several
    /// threads at once if parallelism() is above 1.
    using Work = std::function<CNodeDataPtr(const Inputs& inputs)>;

    /// NewestWins, one frame at a time.
    explicit AWorkerNodeDataModel(QString uniqueName = noUniqueName());
    ~AWorkerNodeDataModel() override;

    void setInData(CNodeDataPtr data, NodePortIndex index) override;
    CNodeDataPtr outData(NodePortIndex index) override;
    /// Error while the message below is there, else Valid.
    ENodeValidationState validationState() const override;
    /// What the work has thrown, until a frame succeeds.
    QString validationMessage() const override;

    /// What ANodeDataModel saves, and "property": {"policy": name of policy(), "most_waiting": mostWaiting(),
    /// "parallelism": parallelism()}. A subclass adds its settings to "property".
    QJsonObject save() const override;

    /// Reads the settings that save() writes. One that is missing or makes no sense stays as it is.
    void restore(const QJsonObject& json) override;

    /// What becomes of a frame for which there is no room; NewestWins at first.
    EPolicy policy() const;
    /// Applies at once: frames for which there is no room any more are dropped. Emits policyChanged() if this is a
    /// change.
    void setPolicy(EPolicy policy);

    /// How many frames may wait unless the policy is NewestWins; 8 at first, at least 1.
    int mostWaiting() const;
    /// As setPolicy(), with mostWaitingChanged(). Less than 1 is ignored.
    void setMostWaiting(int frames);

    /// How many frames are worked on at a time; at least 1. That the pool has so many threads is up to the host.
    int parallelism() const;
    /// As setPolicy(), with parallelismChanged(). Less than 1 is ignored.
    void setParallelism(int frames);

    /// Where frames are worked on from now on: Qt's global pool if \a pool is null. The host owns the pool, and keeps
    /// it until the model is gone. It does not destroy the pool while the plugin is being unloaded, which waits for the
    /// pool's threads.
    void setThreadPool(QThreadPool* pool);

    /// What became of the frames so far; all numbers are of one moment.
    SWorkerStatistics statistics() const;

    /// Waits until no work of models that are gone is running, at most \a milliseconds. Returns false, and a warning
    /// says so, if that is not enough. A plugin whose models are workers calls it before it is unloaded. For any
    /// thread.
    // Survives number off by one: a while.
    static bool waitForRemovedWork(unsigned long milliseconds = 30000);

Q_SIGNALS:
    /// setPolicy() has changed the policy. Once for each change.
    void policyChanged();
    /// setMostWaiting() has changed the number. Once for each change.
    void mostWaitingChanged();
    /// setParallelism() has changed the number. Once for each change.
    void parallelismChanged();

protected:
    /// The work with a copy of the model's settings. Asked for before the first frame, and before the next one after
    /// renewWork(). It must not refer to the model: it may run when that is gone. What makeWork() itself throws passes
    /// through to whoever sent the data, and the frame is not counted.
    virtual Work makeWork() const = 0;

    /// To be called when a setting has changed. It applies from the next frame on.
    void renewWork();

    /// The number by which SameNumber finds what belongs together. 0 unless a subclass says otherwise.
    virtual qint64 number(const CNodeDataPtr& data) const;

    /// Set by the constructor of a subclass.
    EGathering m_gathering = EGathering::NewestOfEach;

private:
    friend class CWorkQueue;

    void onResultsReady();
    bool makeGatherer();
    bool prepareWork();
    void addFrame();
    void giveOut(CNodeDataPtr data);
    void report(const QString& error);
    bool applyLimits();

    std::shared_ptr<CWorkQueue> m_queue; // shared with work that may outlive the model
    std::unique_ptr<CInputGatherer> m_gatherer;
    std::shared_ptr<const Work> m_work; // null: to be made
    Inputs m_frame;                     // empty but while it is handed on
    CNodeDataPtr m_output;
    // Survives number off by one: it is only asked whether it has changed.
    quint64 m_turn = 0; // of the output
    QString m_message;
    bool m_isComputing = false;
    bool m_isEnding = false;
    EPolicy m_policy = EPolicy::NewestWins;
    int m_mostWaiting = 8;
    int m_parallelism = 1;
};

} // namespace Plugin::Halvex
