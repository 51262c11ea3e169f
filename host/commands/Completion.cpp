// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/commands/Completion.h"

#include "host/base/Attempt.h"
#include "host/camera/CFeatures.h"
#include "host/camera/Device.h"
#include "host/camera/SCameraOptions.h"
#include "host/commands/CommandWords.h"
#include "host/commands/ModelNames.h"
#include "host/models/ModelSettings.h"
#include "host/plugins/CHostServices.h"
#include "host/run/Chain.h"

#include <Halvex/graph/CNodeDataModel.h>
#include <Halvex/scene/CNodeDataModelRegistry.h>
#include <Halvex/service/INodeService.h>

#include <CLI/CLI.hpp>

#include <QJsonObject>

#include <memory>

namespace Host {

using namespace Plugin::Halvex;

namespace {

const CLI::App* commandOf(const CLI::App& program, const QStringList& words)
{
    for (const QString& word : words) {
        if (commandNames(program).contains(word))
            return program.get_subcommand(word.toStdString());
    }
    return nullptr;
}

// The option that \a word names, if a value follows it.
const CLI::Option* optionWithValue(const CLI::App& command, const QString& word)
{
    const CLI::Option* const option =
        word.startsWith(QLatin1String("--")) ? command.get_option_no_throw(word.toStdString()) : nullptr;
    return option && option->get_items_expected_max() > 0 ? option : nullptr;
}

// The value of an option among the words, or the first word that belongs to none.
QString given(const CLI::App& command, const QStringList& words, const QString& option)
{
    QString last;
    for (const QString& word : words) {
        const bool isValue = optionWithValue(command, last) != nullptr;
        const bool isPlain = !isValue && !word.startsWith(QLatin1Char('-')) && command.get_name() != word.toStdString();
        if (option.isEmpty() ? isPlain : last == option)
            return word;
        last = word;
    }
    return {};
}

// Each setting of each element of a chain, as "NODE.key=".
QStringList nodeSettings(const SChain& chain, CNodeDataModelRegistry& registry)
{
    QStringList settings;
    for (const QJsonValue& element : chain.elements) {
        std::unique_ptr<CNodeDataModel> model;
        attempt(QStringLiteral("making a model"), [&] {
            model = registry.create(element[QLatin1String("model")][QLatin1String("name")].toString());
            return model != nullptr;
        });
        if (!model)
            continue;
        for (const SModelSetting& setting : settingsOf(*model))
            settings << QStringLiteral("%1.%2=").arg(element[QLatin1String("name")].toString(), setting.name);
    }
    return settings;
}

// Asking a camera on the network would take it from whoever uses it.
QStringList featureNames(const QString& address)
{
    QStringList names;
    CGLibError error;
    const GObjectPtr<_ArvDevice> device =
        SCameraOptions::isFake(address) ? openDevice(address, &error) : GObjectPtr<_ArvDevice>();
    if (!device)
        return names;
    for (const SFeature& feature : CFeatures(device.get()).all()) {
        if (feature.isWritable)
            names << feature.name + QLatin1Char('=');
    }
    return names;
}

QStringList settingsFor(const CLI::App& command, const QStringList& words)
{
    CHostServices services(given(command, words, QStringLiteral("--plugins")));
    if (!services.load().isEmpty())
        return {};
    QString error;
    const QString file = given(command, words, {});
    const SChain chain = file.isEmpty() ? defaultChain({SCameraOptions().address}) : readChain(file, &error);
    return nodeSettings(chain, *services.nodes().registry());
}

QStringList valuesOf(const CLI::App& command, const CLI::Option& option, const QStringList& words)
{
    const std::string type = option.get_type_name();
    if (type == "NODE.key=value")
        return settingsFor(command, words);
    if (type == "Feature=value") {
        const QString camera =
            command.get_option_no_throw("--camera") ? given(command, words, "--camera") : given(command, words, {});
        return featureNames(camera.isEmpty() ? SCameraOptions().address : camera);
    }
    return type == "ID" ? QStringList(SCameraOptions().address) : QStringList();
}

QStringList argumentsOf(const CLI::App& command, const QStringList& words)
{
    if (command.get_name() == "cameras")
        return {SCameraOptions().address};
    CHostServices services(given(command, words, QStringLiteral("--plugins")));
    if (command.get_name() != "models" || !services.load().isEmpty())
        return {};
    QStringList names;
    for (const auto& model : modelNames(*services.nodes().registry()))
        names << model.second;
    return names;
}

QStringList candidates(const CLI::App& program, const QStringList& before, bool isOption)
{
    const CLI::App* const command = commandOf(program, before);
    if (!command)
        return isOption ? optionNames(program) : commandNames(program);
    if (const CLI::Option* const option = optionWithValue(*command, before.last()))
        return valuesOf(*command, *option, before);
    return isOption ? optionNames(*command) : argumentsOf(*command, before);
}

} // namespace

QStringList completions(const CLI::App& program, const QStringList& words)
{
    // As it was typed, with the shell's quotes.
    QString current = words.isEmpty() ? QString() : words.last();
    current.remove(QLatin1Char('\\')).remove(QLatin1Char('"')).remove(QLatin1Char('\''));
    QStringList fitting;
    const QStringList all = candidates(program, words.mid(0, words.size() - 1), current.startsWith(QLatin1Char('-')));
    for (const QString& candidate : all) {
        if (candidate.startsWith(current))
            fitting << candidate;
    }
    fitting.sort();
    return fitting;
}

} // namespace Host
