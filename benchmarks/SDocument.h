// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QByteArray>
#include <QString>

#include <vector>

/// The floor J, written by hand: what a scene document says, in plain structures.
struct SDocument
{
    struct SNode
    {
        QString id;
        QString model;
    };
    struct SConnection
    {
        QString inId;
        int inIndex;
        QString outId;
        int outIndex;
    };

    std::vector<SNode> nodes;
    std::vector<SConnection> connections;

    static SDocument read(const QByteArray& text);
    QByteArray write() const;
};
