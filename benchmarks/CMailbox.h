// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <Halvex/graph/CNodeData.h>

#include <QMutex>
#include <QObject>
#include <QWaitCondition>

#include <thread>

/// The floor H, written by hand: one mutex, one condition variable, one slot, one worker. Closed, it keeps the newest;
/// open() lets one out.
class CMailbox : public QObject
{
    Q_OBJECT

public:
    using CNodeDataPtr = Plugin::Halvex::CNodeDataPtr;

    CMailbox();
    ~CMailbox() override;

    void push(CNodeDataPtr data);
    void open();

Q_SIGNALS:
    /// From the worker's thread.
    void taken(CNodeDataPtr ptrNodeData);

private:
    void run();

    QMutex m_mutex;
    QWaitCondition m_wakeUp;
    CNodeDataPtr m_slot;
    bool m_isOpen = false;
    bool m_isEnding = false;
    std::thread m_worker;
};
