// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <Halvex/models/SWorkerStatistics.h>

#include <QObject>
#include <QString>
#include <QStringList>

#include <functional>
#include <vector>

namespace Host {

/**
 * What the program needs of a model that takes frames out of the graph and writes files: it finds the models that are
 * such sinks with qobject_cast, and does not link the plugin that they come from.
 *
 * \code
 * if (auto* sink = qobject_cast<IFrameSink*>(node->nodeDataModel()))
 *     sink->setOutput(folder, 30);
 * \endcode
 *
 * Threads: as every model.
 */
class Q_DECL_EXPORT IFrameSink
{
public:
    IFrameSink() = default;
    virtual ~IFrameSink() = default;
    Q_DISABLE_COPY(IFrameSink)

    /// The name by which a run tells it from others; empty for a sink without one.
    virtual QString sinkName() const = 0;

    /// Writes frame 0 and then every \a every-th, at least 1, into \a folder, which must exist and be no other
    /// sink's; a sink that has a number of its own for that takes its own. Without a folder, as after construction,
    /// nothing is written.
    virtual void setOutput(const QString& folder, int every) = 0;

    /// What its files will be called; '*' stands for a number: "frame-*.png", "frames.csv". It writes no other
    /// files, but for parts of these, as WriteFile.h and CVideoFile call them.
    virtual QStringList fileNames() const = 0;

    /// Frames received.
    virtual quint64 delivered() const = 0;

    /// Frames written.
    virtual quint64 written() const = 0;

    /// Full names of the files that they are in, oldest first. The last one may still be open before finish().
    virtual const std::vector<QString>& files() const = 0;

    /// What became of the frames that were to be written, and how long encoding and writing of one took. None is
    /// cancelled, and none is pending once the sink, a model, emits computingFinished(). For any thread.
    virtual Plugin::Halvex::SWorkerStatistics writing() const = 0;

    /// Completes a file that is still open. To be called when no frame will come any more and none is pending. Then
    /// something may be pending again.
    virtual void finish() = 0;

    /// Calls \a handler with the reason when a file cannot be written, once at most, as long as \a context lives.
    virtual void notifyFailure(const QObject* context, std::function<void(const QString&)> handler) = 0;
};

} // namespace Host

Q_DECLARE_INTERFACE(Host::IFrameSink, "Host.IFrameSink/5.0")
