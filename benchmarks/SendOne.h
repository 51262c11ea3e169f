// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <Halvex/graph/CNodeData.h>

#include <QCoreApplication>
#include <QEventLoop>

/// Sends a frame that may go out and waits until it is there.
template <typename Channel>
void sendOne(Channel& channel, const Plugin::Halvex::CNodeDataPtr& frame)
{
    const int before = channel.received;
    channel.push(frame);
    while (channel.received == before)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}
