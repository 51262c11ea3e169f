// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// A race on purpose: a thread changes a data object after it has handed it to a proxy, while the slot that the queued
// signal reaches reads it.

#include <Halvex/models/CNodeDataFlowProxy.h>

#include <QCoreApplication>
#include <QThread>

#include <atomic>

using namespace Plugin::Halvex;

namespace {

class CData : public CNodeData
{
public:
    SNodeDataType type() const override { return {}; }
    int value = 0;
};

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    qRegisterMetaType<CNodeDataPtr>("CNodeDataPtr");
    CNodeDataFlowProxy proxy;
    std::atomic<int> seen{-1};
    QObject::connect(&proxy, &CNodeDataFlowProxy::newDataAvailable, &proxy, [&seen](const CNodeDataPtr& data) {
        seen.store(static_cast<const CData&>(*data).value, std::memory_order_relaxed);
    });

    QThread* const thread = QThread::create([&proxy] {
        const auto data = QSharedPointer<CData>::create();
        proxy.setData(data);
        data->value = 1; // handed on, it must not change any more
    });
    thread->start();
    while (seen.load(std::memory_order_relaxed) < 0)
        QCoreApplication::processEvents();
    thread->wait();
    delete thread;
    return 0;
}
