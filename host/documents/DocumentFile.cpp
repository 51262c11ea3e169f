// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/documents/DocumentFile.h"

#include "host/base/InputFile.h"
#include "host/check/CDocumentCheck.h"
#include "host/check/FaultReport.h"

#include <QCoreApplication>

#include <algorithm>
#include <iterator>

namespace Host {

namespace {

// Whether such a fault leaves open what the document says.
bool leavesOpen(EFaultRule rule)
{
    switch (rule) {
    case EFaultRule::Unreadable:
    case EFaultRule::Encoding:
    case EFaultRule::Syntax:
    case EFaultRule::WrongType:
    case EFaultRule::WrongValue:
    case EFaultRule::UnknownKey:
    case EFaultRule::DoubleKey:
    case EFaultRule::MissingKey:
    case EFaultRule::UnknownName:
    case EFaultRule::DoubleName:
    case EFaultRule::Source:
        return true;
    default:
        return false;
    }
}

} // namespace

SDocumentFile readDocumentFile(const QString& file, CDocumentCheck& check, QString* error)
{
    SDocumentFile document;
    document.name = inputName(file);
    document.text = readDocument(file, error);
    if (error->isEmpty())
        document.faults = check.read(document.text, &document.graph);
    return document;
}

QString faultsText(const QString& what, const QString& name, const std::vector<SFault>& faults)
{
    const QStringList lines = errorLines({name, faults});
    if (lines.isEmpty())
        return {};
    const QString text = lines.join(QLatin1Char('\n'));
    if (lines.size() == 1)
        return QCoreApplication::translate("Host::DocumentFile", "%1: it has 1 error:\n%2", "what cannot be done")
            .arg(what.arg(name), text);
    return QCoreApplication::translate("Host::DocumentFile", "%1: it has %2 errors:\n%3", "what cannot be done")
        .arg(what.arg(name), QString::number(lines.size()), text);
}

QString unreadableText(const SDocumentFile& document)
{
    std::vector<SFault> faults;
    std::copy_if(document.faults.begin(), document.faults.end(), std::back_inserter(faults),
                 [](const SFault& fault) { return leavesOpen(fault.rule); });
    return faultsText(QStringLiteral("cannot read '%1'"), document.name, faults);
}

} // namespace Host
