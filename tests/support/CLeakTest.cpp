// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "support/CLeakTest.h"

#include "support/CTestModel.h"

#include <QTest>

void CLeakTest::cleanup()
{
    QCOMPARE(CTestModels::alive(), 0);
    QCOMPARE(CTestData::alive(), 0);
}
