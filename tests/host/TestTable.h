// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QTest>

#include <array>

/// The columns of a test function's table: addColumns<QString, int>({"name", "count"}).
template <typename... Types>
void addColumns(const std::array<const char*, sizeof...(Types)>& names)
{
    auto name = names.begin();
    (QTest::addColumn<Types>(*name++), ...);
}

/// A row, told as \a name: one value for each column. Texts may be given as literals.
template <typename... Values>
void addRow(const char* name, const Values&... values)
{
    (QTest::newRow(name) << ... << values);
}
