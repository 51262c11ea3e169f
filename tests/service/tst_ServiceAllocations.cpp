// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// A service runs for weeks: what it is asked for in vain must not fill the memory.

#include "HostModels.h"
#include "support/Allocations.h"

#include <Halvex/service/CNodeService.h>

#include <QTest>

#include <stdexcept>

using namespace Plugin::Halvex;

class tst_ServiceAllocations : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void modelsThatGetNoNodeLeaveNothing();
};

void tst_ServiceAllocations::modelsThatGetNoNodeLeaveNothing()
{
    CNodeService service(nullptr);
    service.addNode(makeSource(), {});
    const auto handler = qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    const bool isSo = keepsNothing([&service] {
        auto model = makeModel(ENodeDataModelType::Sink);
        model->onPorts = [] { throw std::runtime_error("ports"); };
        QVERIFY(service.addNode(std::move(model), {}) == Core::CId());
    });
    qInstallMessageHandler(handler);
    QVERIFY(isSo);
}

QTEST_GUILESS_MAIN(tst_ServiceAllocations)
#include "tst_ServiceAllocations.moc"
