// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/edit/CFaultModel.h"

#include "host/viewer/base/ModelText.h"

#include <QApplication>
#include <QIcon>
#include <QStyle>

#include <utility>

namespace Host {

void CFaultModel::setRows(std::vector<SFaultRow> rows)
{
    beginResetModel();
    m_rows = std::move(rows);
    endResetModel();
}

int CFaultModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_rows.size());
}

int CFaultModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(Columns);
}

QVariant CFaultModel::data(const QModelIndex& index, int role) const
{
    const SFaultRow& shown = row(index.row());
    if (role == Qt::ToolTipRole)
        return asToolTip(
            QStringLiteral("%1\n%2").arg(asSentence(shown.fault.message), faultRuleText(shown.fault.rule)));
    if (role == Qt::DecorationRole && index.column() == Severity)
        return QApplication::style()->standardIcon(shown.fault.isError ? QStyle::SP_MessageBoxCritical
                                                                       : QStyle::SP_MessageBoxWarning);
    if (role != Qt::DisplayRole)
        return {};
    switch (index.column()) {
    case Severity:
        return shown.fault.isError ? tr("Error") : tr("Warning");
    case Place:
        return shown.place;
    default:
        return asSentence(shown.fault.message);
    }
}

QVariant CFaultModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    switch (section) {
    case Severity:
        return tr("Kind");
    case Place:
        return tr("Place");
    default:
        return tr("What is wrong");
    }
}

} // namespace Host
