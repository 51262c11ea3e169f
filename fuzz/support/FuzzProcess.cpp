// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "support/FuzzProcess.h"

#include "support/FuzzProperties.h"

#include <QCoreApplication>
#include <QHash>
#include <QUuid>

namespace {

quint32 s_lastId = 0;

// Spreads consecutive numbers, and never maps two to one.
quint32 spread(quint32 number)
{
    return number * 2654435761u;
}

} // namespace

// Takes the place of Qt's own, in the library too. A program's functions come before those of its libraries.
QUuid QUuid::createUuid()
{
    const quint32 number = ++s_lastId;
    return QUuid(spread(number), 0, 0x4000, 0x80, 0, 0, 0, uchar(number >> 24), uchar(number >> 16), uchar(number >> 8),
                 uchar(number));
}

void restartIds()
{
    s_lastId = 0;
}

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
