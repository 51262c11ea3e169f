// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/check/SFault.h"

#include <Halvex/platform/CId.h>

#include <QAbstractTableModel>

#include <vector>

namespace Host {

/// What a check found, as a person reads it. A plain value.
struct SFaultRow
{
    SFault fault;
    QString place;  ///< The caption of a node, or "line 3, column 7".
    Core::CId node; ///< No id if the fault is at no node of a scene.
};

/// The findings of a check as a table: what it is, where, and what to do about it.
class CFaultModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum EColumn
    {
        Severity,
        Place,
        Message,
        Columns
    };

    using QAbstractTableModel::QAbstractTableModel;

    void setRows(std::vector<SFaultRow> rows);
    const SFaultRow& row(int index) const { return m_rows[std::size_t(index)]; }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    std::vector<SFaultRow> m_rows;
};

} // namespace Host
