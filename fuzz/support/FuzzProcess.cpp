// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "support/FuzzProperties.h"

#include <QCoreApplication>
#include <QHash>

// Called once, before the first input: an application whose event loop does not run, so that no decoupler's timer ticks
// and starts a thread; no messages; hashes that are the same in every run; and whatever is made at its first use.
// NOLINTNEXTLINE(readability-non-const-parameter): the application keeps a reference to the count
extern "C" int LLVMFuzzerInitialize(int* argumentCount, char*** arguments)
{
    static const QCoreApplication application(*argumentCount, *arguments);
    qSetGlobalQHashSeed(0);
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    fuzzRegistry();
    Plugin::Halvex::CNodeScene::noNode();
    return 0;
}
