// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QObject>

/// A test program that looks after each of its functions whether test models or test data are left.
class CLeakTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();
};
