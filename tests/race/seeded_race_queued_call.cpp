// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// A race on purpose: a thread changes a data object after it has handed it to an entry, while the source reads it.

#include <Halvex/models/ASourceNodeDataModel.h>

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

class CSource : public ASourceNodeDataModel
{
public:
    QString caption() override { return {}; }
    QString name() override { return {}; }
    unsigned int nPorts(ENodePortType) const override { return 1; }
    SNodeDataType dataType(ENodePortType, NodePortIndex) const override { return {}; }
    void setInData(CNodeDataPtr, NodePortIndex) override {}
    bool isUnique() override { return false; }
};

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    CSource source;
    std::atomic<int> seen{-1};
    QObject::connect(&source, &CSource::dataUpdated, &source, [&source, &seen] {
        seen.store(static_cast<const CData&>(*source.outData(0)).value, std::memory_order_relaxed);
    });

    QThread* const thread = QThread::create([entry = source.dataEntry(), &seen] {
        const auto data = QSharedPointer<CData>::create();
        entry.setData(data);
        // That the source's copies come and go would order the two otherwise, if this thread's were the first to go.
        while (seen.load(std::memory_order_relaxed) < 0) {
        }
        data->value = 1; // handed on, it must not change any more
    });
    thread->start();
    while (seen.load(std::memory_order_relaxed) < 0)
        QCoreApplication::processEvents();
    thread->wait();
    delete thread;
    return 0;
}
