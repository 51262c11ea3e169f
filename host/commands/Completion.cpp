// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/commands/Completion.h"

#include "host/base/Attempt.h"
#include "host/camera/CFeatures.h"
#include "host/camera/Device.h"
#include "host/camera/PixelFormat.h"
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

// "--save=a" as "--save" and "a".
QStringList splitValues(const CLI::App& command, const QStringList& words)
{
    QStringList split;
    for (const QString& word : words) {
        const int sign = word.indexOf(QLatin1Char('='));
        if (sign > 0 && optionWithValue(command, word.left(sign)))
            split << word.left(sign) << word.mid(sign + 1);
        else
            split << word;
    }
    return split;
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

// "blur.method=" and "blur.method=Box"... of a setting or feature whose values have names, else the first alone.
QStringList withValues(const QString& name, const QString& values, const QString& type)
{
    static const QStringList named{QStringLiteral("one of"), QStringLiteral("bool"), QStringLiteral("boolean")};
    QStringList words{name};
    if (!named.contains(type))
        return words;
    const QStringList all = values.split(QStringLiteral(", "));
    for (const QString& value : all)
        words << name + value;
    return words;
}

// Each setting of each element of a chain, as "NODE.key=", or with its values where these have names.
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
            settings << withValues(
                QStringLiteral("%1.%2=").arg(element[QLatin1String("name")].toString(), setting.name),
                setting.type == QLatin1String("bool") ? QStringLiteral("true, false") : setting.range, setting.type);
    }
    return settings;
}

// Asking a camera on the network would take it from whoever uses it: of such a one its formats may be guessed, no more.
QStringList featureWords(const QString& address)
{
    const QString format = QStringLiteral("PixelFormat=");
    QStringList words;
    CGLibError error;
    const GObjectPtr<_ArvDevice> device =
        SCameraOptions::isFake(address) ? openDevice(address, &error) : GObjectPtr<_ArvDevice>();
    if (!device)
        return withValues(format, pixelFormatNames().join(QStringLiteral(", ")), QStringLiteral("one of"));
    for (const SFeature& feature : CFeatures(device.get()).all()) {
        if (feature.isWritable)
            words << withValues(feature.name + QLatin1Char('='), feature.range, feature.type);
    }
    return words;
}

QStringList pixelFormats(const QString& address)
{
    QStringList formats;
    const QStringList words = featureWords(address).filter(QStringLiteral("PixelFormat="));
    for (const QString& word : words)
        formats << word.section(QLatin1Char('='), 1);
    formats.removeAll(QString());
    return formats;
}

QString cameraOf(const CLI::App& command, const QStringList& words)
{
    const QString camera =
        command.get_option_no_throw("--camera") ? given(command, words, "--camera") : given(command, words, {});
    return camera.isEmpty() ? SCameraOptions().address : camera;
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

bool takesFiles(const std::string& type)
{
    return type == "FILE" || type == "DIR" || type == "DIR|GLOB" || type == "REPORT";
}

QStringList valuesOf(const CLI::App& command, const CLI::Option& option, const QStringList& words)
{
    const std::string type = option.get_type_name();
    if (type == "NODE.key=value")
        return settingsFor(command, words);
    if (type == "Feature=value")
        return featureWords(cameraOf(command, words));
    if (type == "NAME")
        return pixelFormats(cameraOf(command, words));
    if (type == "FORMAT")
        return {QStringLiteral("svg"), QStringLiteral("png"), QStringLiteral("dot")};
    if (type == "on|off")
        return {QStringLiteral("on"), QStringLiteral("off")};
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

SCompletions candidates(const CLI::App& program, const QStringList& before, bool isOption)
{
    const CLI::App* const command = commandOf(program, before);
    if (!command)
        return {isOption ? optionNames(program) : commandNames(program)};
    if (const CLI::Option* const option = optionWithValue(*command, before.last()))
        return {valuesOf(*command, *option, before), takesFiles(option->get_type_name())};
    static const QStringList withoutFiles{QStringLiteral("models"), QStringLiteral("cameras"),
                                          QStringLiteral("plugins")};
    const bool areFiles = !isOption && !withoutFiles.contains(QString::fromStdString(command->get_name()));
    return {isOption ? optionNames(*command) : argumentsOf(*command, before), areFiles};
}

// Those that go on where \a current ends. Behind "blur.method=" stand its values, and before it none.
QStringList fittingWords(const QStringList& words, const QString& current)
{
    QStringList fitting;
    for (const QString& word : words) {
        const int sign = word.indexOf(QLatin1Char('='));
        const bool isValue = sign >= 0 && sign + 1 < word.size();
        if (word.startsWith(current) && isValue == (sign >= 0 && current.size() > sign))
            fitting << word;
    }
    fitting.sort();
    return fitting;
}

} // namespace

SCompletions completions(const CLI::App& program, const QStringList& words)
{
    // As it was typed, with the shell's quotes.
    QString current = words.isEmpty() ? QString() : words.last();
    current.remove(QLatin1Char('\\')).remove(QLatin1Char('"')).remove(QLatin1Char('\''));
    QStringList typed = words.mid(0, words.size() - 1);
    const CLI::App* const command = commandOf(program, typed);
    typed << current;
    if (command)
        typed = splitValues(*command, typed);
    const QString part = typed.takeLast();
    const SCompletions all = candidates(program, typed, part.startsWith(QLatin1Char('-')));
    // The shell is told whole words.
    QStringList fitting = fittingWords(all.words, part);
    for (QString& word : fitting)
        word.prepend(current.left(current.size() - part.size()));
    return {fitting, all.areFiles};
}

} // namespace Host
