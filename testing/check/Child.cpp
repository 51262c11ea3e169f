// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "testing/check/Child.h"

#include "testing/CPluginBench_p.h"
#include "testing/Samples_p.h"
#include "testing/check/Messages.h"

#include <Halvex/models/AWorkerNodeDataModel.h>
#include <Halvex/testing/CheckModel.h>
#include <Halvex/testing/CheckPlugin.h>

#include <QJsonArray>

#include <sys/resource.h>

#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace Plugin::Halvex::Testing {

namespace {

// Freed memory is filled with something that no pointer can be, so that its use ends the process in the rule that
// tries it.
void makeMistakesCount()
{
#ifdef __GLIBC__
    mallopt(M_PERTURB, 0xa5);
#endif
    const rlimit none{};
    setrlimit(RLIMIT_CORE, &none);
}

SCheckOptions optionsFrom(const SArguments& arguments)
{
    SCheckOptions options;
    options.skip = arguments.skip;
    options.instances = arguments.instances;
    options.longestCall = arguments.longestCall;
    options.beforeRule = [](const QString& rule) { sendMessage({{QStringLiteral("rule"), rule}}); };
    return options;
}

void sendReport(const SReport& report)
{
    sendMessage({{QStringLiteral("report"), toJson(report)}});
}

EExitCode sendError(const QString& error)
{
    sendMessage({{QStringLiteral("error"), error}});
    return EExitCode::NotChecked;
}

} // namespace

EExitCode runChild(const SArguments& arguments)
{
    makeMistakesCount();
    SCheckOptions options = optionsFrom(arguments);
    if (arguments.role == SArguments::ERole::CheckPlugin) {
        sendReport(checkPlugin(arguments.file, arguments.companions, options));
        return EExitCode::Kept;
    }
    const CPluginBench bench(arguments.file, arguments.companions);
    if (!bench.error().isEmpty())
        return sendError(bench.error());
    if (const ITestData* const data = bench.testData()) {
        options.makeData = [data](const SNodeDataType& type, int number) { return data->makeData(type, number); };
        options.checksum = [data](const CNodeData& checked) { return data->checksum(checked); };
    }
    if (const auto registry = bench.registry()) {
        // Not shared: what it holds is code that the bench unloads before the options go.
        options.makeData = [given = options, &known = *registry](const SNodeDataType& type, int number) {
            return makeSample(type, number, given, known);
        };
    }
    QJsonArray names;
    for (const auto& [name, creator] : bench.models()) {
        names.append(name);
        if (arguments.role == SArguments::ERole::CheckModel && arguments.models.contains(name))
            sendReport(checkModel(creator, options));
    }
    if (arguments.role == SArguments::ERole::ListModels)
        sendMessage({{QStringLiteral("models"), names}});
    AWorkerNodeDataModel::waitForRemovedWork();
    return EExitCode::Kept;
}

} // namespace Plugin::Halvex::Testing
