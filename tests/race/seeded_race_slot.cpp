// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// A race on purpose: a directly connected slot runs in the decoupler's worker and counts in a plain variable, which
// the main thread reads meanwhile.

#include <Halvex/models/CDecoupler.h>

#include <QCoreApplication>

#include <atomic>

using namespace Plugin::Halvex;

namespace {

class CData : public CNodeData
{
public:
    SNodeDataType type() const override { return {}; }
};

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    int counted = 0;
    std::atomic<bool> isDone{false};
    CDecoupler decoupler;
    QObject::connect(&decoupler, &CDecoupler::nodeDataAvailable, [&counted, &isDone] {
        ++counted;
        isDone.store(true, std::memory_order_relaxed);
    });
    decoupler.setNodeData(QSharedPointer<CData>::create());
    while (!isDone.load(std::memory_order_relaxed)) {
    }
    return counted == 1 ? 0 : 1; // nothing orders this read after the write
}
