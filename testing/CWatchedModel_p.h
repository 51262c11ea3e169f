// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "testing/SModelSubject_p.h"

#include <Halvex/graph/CNodeDataModel.h>

#include <QJsonObject>
#include <QObject>

#include <atomic>
#include <exception>
#include <memory>
#include <vector>

namespace Plugin::Halvex {
class ASourceNodeDataModel;
}

namespace Plugin::Halvex::Testing {

/**
 * A new model, used as a node would use it, with a record of what it announces.
 *
 * \code
 * CWatchedModel model(subject);
 * if (!model.lacks().isEmpty())
 *     return leftOut(model.lacks());
 * model.feed(1);
 * model.settle();
 * look(model.updates());
 * \endcode
 *
 * Threads: the one that made it. What the model throws comes out: of feed() and settle() also what outData() throws
 * when an announcement arrives.
 */
class CWatchedModel
{
public:
    struct SUpdate
    {
        NodePortIndex port;
        CNodeDataPtr data; ///< What the port had when the announcement arrived in the graph's thread.
    };

    explicit CWatchedModel(const SModelSubject& subject);
    ~CWatchedModel();
    Q_DISABLE_COPY(CWatchedModel)

    CNodeDataModel& operator*() const { return *m_model; }
    CNodeDataModel* operator->() const { return m_model.get(); }

    /// As a source, or null.
    ASourceNodeDataModel* source() const;

    /// As a new model has them.
    NodePortIndex inPorts() const { return m_inPorts; }
    NodePortIndex outPorts() const { return m_outPorts; }

    /// Where data can be put in: its inputs, or else the proxy of a source.
    NodePortIndex entries() const;
    QString shownEntry(NodePortIndex entry) const;

    /// Why it cannot be fed with data that fits; empty if it can.
    QString lacks() const;

    /// Data for an \a entry; null if there is none of its type.
    CNodeDataPtr makeData(NodePortIndex entry, int number) const;

    /// Data for each entry.
    std::vector<CNodeDataPtr> makeData(int number) const;

    void put(const CNodeDataPtr& data, NodePortIndex entry);

    /// Data of no type that it knows, on every input.
    void feedForeign();

    /// Gives it data that fits, at every entry.
    void feed(int number) { feed(makeData(number)); }
    void feed(const std::vector<CNodeDataPtr>& data);

    /// Empty data on every input.
    void empty();

    /// Data, empty data, a document of its own: what happens to any model.
    void use();

    /// Delivers events until every output has spoken since the last feed() and nothing computes, or until patience
    /// ends.
    void settle();

    /// Delivers events for the whole of the patience.
    void waitLong() const;

    const std::vector<SUpdate>& updates() const { return m_updates; }

    /// Ports of dataInvalidated().
    const std::vector<NodePortIndex>& invalidated() const { return m_invalidated; }

    /// How often computingStarted() came, and how often computingFinished().
    int started() const { return m_started; }
    int finished() const { return m_finished; }

    /// Whether it finished more often than it had started, at any time.
    bool finishedUnasked() const { return m_finishedUnasked; }

    /// Whether dataUpdated() was emitted in another thread.
    bool spokeElsewhere() const { return m_spokeElsewhere; }

    /// Lets the model go, and all data that it gave.
    void destroy();

private:
    SNodeDataType typeOf(NodePortIndex entry) const;
    void onUpdated(NodePortIndex port);
    bool hasSpoken() const;
    void rethrow();

    const SModelSubject& m_subject;
    std::unique_ptr<CNodeDataModel> m_model;
    QObject m_listener; // in the graph's thread
    NodePortIndex m_inPorts = 0;
    NodePortIndex m_outPorts = 0;
    std::vector<SUpdate> m_updates;
    std::vector<NodePortIndex> m_invalidated;
    std::size_t m_updatesBeforeFeed = 0;
    std::size_t m_invalidatedBeforeFeed = 0;
    int m_started = 0;
    int m_finished = 0;
    bool m_finishedUnasked = false;
    bool m_isAsking = false;
    std::exception_ptr m_thrown; // by outData() when it was announced; no exception may pass the event loop
    std::atomic<bool> m_spokeElsewhere{false}; // atomic: the thread that announces sets it
};

/// A document as it comes back from a file: what JSON text cannot hold is lost.
QJsonObject throughText(const QJsonObject& document);

/// What a model saves that was given other settings.
QJsonObject changedDocument(const SModelSubject& subject);

/// Gives \a model other settings, as the options say.
void changeSettings(CNodeDataModel& model, const SCheckOptions& options);

/// One line of JSON, cut where it gets long.
QString shown(const QJsonObject& document);

/// "input 0"
QString shownPort(ENodePortType side, NodePortIndex port);

} // namespace Plugin::Halvex::Testing
