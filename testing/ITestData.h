// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <Halvex/graph/CNodeData.h>
#include <Halvex/graph/SNodeDataType.h>

#include <QByteArray>
#include <QtPlugin>

namespace Plugin::Halvex::Testing {

/**
 * Data for halvex-check, which has frames, and of a plugin's own types what a registered converter makes of frames. It
 * looks for a service that is one of these among those that the plugin has published, and its companions: a plugin for
 * tests alone can bring it, too.
 *
 * \code
 * class CTestDataService : public Core::Service::IService, public ITestData
 * {
 *     Q_OBJECT
 *     Q_INTERFACES(Plugin::Halvex::Testing::ITestData)
 *
 * public:
 *     CNodeDataPtr makeData(const SNodeDataType& type, int number) const override;
 *     QByteArray checksum(const CNodeData& data) const override;
 * };
 * \endcode
 *
 * Threads: the main thread.
 */
class ITestData
{
public:
    virtual ~ITestData() = default;

    /// As SCheckOptions::makeData.
    virtual CNodeDataPtr makeData(const SNodeDataType& type, int number) const = 0;

    /// As SCheckOptions::checksum.
    virtual QByteArray checksum(const CNodeData& data) const = 0;
};

} // namespace Plugin::Halvex::Testing

Q_DECLARE_INTERFACE(Plugin::Halvex::Testing::ITestData, "Plugin.Halvex.Testing.ITestData/1.0")
