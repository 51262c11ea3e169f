// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <Halvex/models/AWorkerNodeDataModel.h>

#include <functional>

namespace Host {

/**
 * Runs tasks on a worker, one at a time, and what each of them gives back in the window's thread.
 *
 * \code
 * CTaskRunner m_renderer{CTaskRunner::EPolicy::NewestWins}; // a member: nothing comes back once the object is gone
 * m_renderer.run([=] { return [this, picture = render(image)] { show(picture); }; });
 * \endcode
 *
 * A worker model that is in no graph: what it promises of policies, order and removal holds here. A task must not refer
 * to what may be gone when it runs; what it gives back may refer to the owner of this object. What a task throws is
 * reported as for models, and nothing comes back.
 *
 * All of these share a pool of their own, so that filters in the graph do not keep the window waiting.
 *
 * Threads: that of the window. Ownership: the object that uses it.
 */
class CTaskRunner : public Plugin::Halvex::AWorkerNodeDataModel
{
    Q_OBJECT

public:
    using Done = std::function<void()>; ///< Called in the window's thread; must not be empty.
    using Task = std::function<Done()>; ///< Called in a pool's thread, and destroyed in any.

    explicit CTaskRunner(EPolicy policy);

    void run(Task task);

    QString caption() override { return name(); }
    QString name() override { return QStringLiteral("Task Runner"); }
    unsigned int nPorts(Plugin::Halvex::ENodePortType portType) const override;
    Plugin::Halvex::SNodeDataType dataType(Plugin::Halvex::ENodePortType portType,
                                           Plugin::Halvex::NodePortIndex index) const override;
    bool isUnique() override { return false; }

protected:
    Work makeWork() const override;

private:
    void onEnded();
};

} // namespace Host
