// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// The rules of models, tried from GoogleTest.

#include "CDimmerModel.h"

#include <Halvex/testing/CheckModel.h>

#include <QCoreApplication>

#include <gtest/gtest.h>

using namespace Plugin::Halvex::Testing;

TEST(DimmerModel, KeepsTheRules)
{
    SCheckOptions options;
    options.makeData = &makeBrightness;
    options.checksum = &checksumOfBrightness;
    const SReport report = checkModel([] { return std::make_unique<CDimmerModel>(); }, options);
    EXPECT_TRUE(report.findings.empty()) << toText(report).toStdString();
}

TEST(DimmerModel, ReportsWhatIsBroken)
{
    const SReport report = checkModel([] { return std::unique_ptr<CDimmerModel>(); });
    ASSERT_EQ(report.findings.size(), 1U);
    EXPECT_EQ(report.findings.front().rule, QString("makes-a-model"));
}

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv); // models need an event loop
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
