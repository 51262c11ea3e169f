// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/report/SRunReport.h"
#include "host/run/CFlowMeter.h"
#include "host/run/CLoopBrake.h"
#include "host/run/SRunOptions.h"

#include <Halvex/models/CNodeDataEntry.h>
#include <Halvex/scene/CNodeScene.h>

#include <QObject>

#include <chrono>
#include <map>
#include <vector>

namespace Plugin::Halvex {
class AWorkerNodeDataModel;
class CNodeDecouplerDataModelBase;
} // namespace Plugin::Halvex

namespace Host {

class IFrameSink;

/**
 * The graph that the frames of a camera are streamed through: where they enter, where they leave, and what must have
 * come out for what went in.
 *
 * Ownership: owns nothing of the scene. Who else has the service may change or remove it at any time; changed() tells
 * of that, and from then on only isIntact() and the destructor may be called, and nothing be used that was handed out
 * but the entry.
 *
 * Threads: one; the entry, and what was copied of it, from any.
 */
class CStreamGraph : public QObject
{
    Q_OBJECT

public:
    /// \a camera is the node of a source in \a scene, whose loops all lead through decouplers.
    CStreamGraph(const Plugin::Halvex::CNodeScene& scene, const Plugin::Halvex::CNodeBase& camera);
    ~CStreamGraph() override = default;

    /// Where frames enter. Copies may be fed as long as one likes; once the camera's node is gone, nothing happens.
    const Plugin::Halvex::CNodeDataEntry& entry() const { return m_entry; }

    /// In the order in which the graph's text has them.
    const std::vector<IFrameSink*>& sinks() const { return m_sinks; }

    const Plugin::Halvex::CNodeScene& scene() const { return m_scene; }

    /// What to say of the graph of \a camera when it is not intact.
    static QString changedText(const QString& camera);

    /// False once the scene is not what it was when this object was made.
    bool isIntact() const { return m_isIntact; }

    /// Whether no decoupler and no worker holds anything back or has anything on its way, and no sink has an image that
    /// it is still to write: all that went in has come through.
    bool isDrained() const;

    /// Brings loops to rest, once nothing goes in any more: what a decoupler in one has is no longer waited for.
    void holdLoops() { m_brake.hold(); }

    /// To be called when it is drained: lets out what the next decoupler in a loop has, once. False when there is none
    /// left.
    bool releaseLoop() { return m_brake.releaseNext(); }

    /// Counts the frames that decouplers let out and that workers and sinks are done with. As long as that grows,
    /// draining goes on.
    quint64 workDone() const;

    /// How long it may take until workDone() grows, once nothing goes in any more: two ticks of each decoupler, and
    /// time for a frame in a filter or a sink.
    std::chrono::milliseconds patience() const;

    /// Has the sinks complete the files that they still have open, once: to be called when it is drained, which it may
    /// then not be for a while.
    void finishSinks();

    /// Gives nodes the names by which set() finds them, beside their numbers and captions.
    void setLabels(const std::map<Core::CId, QString>& labels) { m_labels = labels; }

    /// Sets what \a setting says, at once, at all nodes that are called so. Returns what is wrong, in one line; empty
    /// on success. Who hears of a setting may change the graph; that is wrong, too, and the graph no longer intact.
    QString set(const SNodeSetting& setting);

    /// Has startCounting() tell \a file of everything, too; \a process is a number of its own in that.
    void traceInto(const std::shared_ptr<CTraceFile>& file, int process, const QString& camera)
    {
        m_meter.traceInto(file, process, camera, m_cameraNumber);
    }

    /// Counts what goes over each connection from now on. The scene's document has been saved by then: the connections
    /// get converters that count.
    void startCounting() { m_meter.start(); }

    /// Fills in the graph, its nodes, decouplers, workers and sinks. What they should have got is what their
    /// connections carried since startCounting(), and the camera's must have carried \a report's complete frames.
    void account(SRunReport* report) const;

Q_SIGNALS:
    /// What a decoupler or a worker let through has gone through everything behind it, or a sink has written what it
    /// had to.
    void cameThrough();

    /// The scene is being changed, or destroyed; once.
    void changed();

private:
    struct SDecoupler
    {
        Plugin::Halvex::CNodeDecouplerDataModelBase* model = nullptr;
        quint64 delivered = 0;
    };

    void addNode(const Plugin::Halvex::CNodeBase& node);
    void findLoops();
    void onChanged();
    QStringList namesOf(std::size_t node) const;
    void accountNode(std::size_t node, SRunReport* report) const;

    const Plugin::Halvex::CNodeScene& m_scene;
    const Plugin::Halvex::CNodeDataEntry m_entry;
    std::vector<const Plugin::Halvex::CNodeBase*> m_nodes; // by their numbers in the text
    CFlowMeter m_meter;
    std::vector<IFrameSink*> m_sinks;
    std::map<Core::CId, QString> m_labels;
    std::vector<SDecoupler> m_decouplers;
    CLoopBrake m_brake;
    std::vector<Plugin::Halvex::AWorkerNodeDataModel*> m_workers;
    std::size_t m_cameraNumber = 0;
    bool m_areSinksFinished = false;
    bool m_isIntact = true;
};

} // namespace Host
