// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/commands/ArgumentValues.h"

#include "host/base/FolderName.h"

#include <Halvex/models/ANodeDataModel.h>

#include <CLI/CLI.hpp>

#include <QRegularExpression>

#include <cmath>
#include <map>

namespace Host {

void refuse(const QString& sentence)
{
    throw CLI::ValidationError(sentence.toStdString());
}

void refuseShared(const QString& file)
{
    if (!file.isEmpty())
        refuse(QStringLiteral("'%1' would be replaced while the run uses it.").arg(file));
}

int readCount(const char* option, const std::string& text, int least, int most)
{
    const QString given = QString::fromStdString(text);
    bool ok = false;
    const int number = given.toInt(&ok);
    if (!ok || number < least || number > most)
        refuse(QStringLiteral("%1 takes a whole number from %2 to %3, not '%4'.")
                   .arg(QLatin1String(option), QString::number(least), QString::number(most), given));
    return number;
}

double readRate(const char* option, const std::string& text, double most)
{
    const QString number = QString::fromStdString(text);
    const double rate = number.toDouble();
    if (!(rate > 0.0 && rate <= most))
        refuse(QStringLiteral("%1 takes a number above 0, at most %2, not '%3'.")
                   .arg(option, QString::number(most), number));
    return rate;
}

std::chrono::milliseconds readTime(const char* option, const std::string& text)
{
    static const QRegularExpression pattern(QStringLiteral(R"(^(\d+(?:\.\d+)?)(ms|s|min|h)?$)"));
    static const std::map<QString, double> units{{QStringLiteral("ms"), 1.0},
                                                 {QStringLiteral("s"), 1e3},
                                                 {QStringLiteral("min"), 6e4},
                                                 {QStringLiteral("h"), 36e5}};
    const QString given = QString::fromStdString(text);
    const auto match = pattern.match(given);
    const QString unit = match.captured(2).isEmpty() ? QStringLiteral("s") : match.captured(2);
    const double milliseconds = match.hasMatch() ? match.captured(1).toDouble() * units.at(unit) : 0.0;
    // Up to what a timer can wait.
    if (milliseconds < 1.0 || milliseconds > 2e9)
        refuse(QStringLiteral("%1 takes a time like 500ms, 30s, 5min or 2h, or 30 for seconds, not '%2'.")
                   .arg(QLatin1String(option), given));
    return std::chrono::milliseconds(std::llround(milliseconds));
}

bool readSwitch(const char* option, const std::string& text)
{
    if (text != "on" && text != "off")
        refuse(QStringLiteral("%1 takes 'on' or 'off', not '%2'.").arg(option, QString::fromStdString(text)));
    return text == "on";
}

std::vector<std::pair<QString, QString>> readFeatures(const std::vector<std::string>& texts)
{
    std::vector<std::pair<QString, QString>> features;
    for (const std::string& text : texts) {
        const QString feature = QString::fromStdString(text);
        const int sign = feature.indexOf(QLatin1Char('='));
        if (sign < 1)
            refuse(QStringLiteral("--camera-set takes Feature=value, not '%1'.").arg(feature));
        features.emplace_back(feature.left(sign), feature.mid(sign + 1));
    }
    return features;
}

QStringList readCameras(const std::vector<std::string>& texts)
{
    QStringList cameras;
    for (const std::string& text : texts) {
        const QString camera = QString::fromStdString(text);
        if (camera.isEmpty())
            refuse(QStringLiteral("--camera is empty."));
        // A run writes its files into a folder of that name; and what is no unique name gets no scene.
        if (!makesACameraFolder(camera) || camera == Plugin::Halvex::ANodeDataModel::noUniqueName())
            refuse(QStringLiteral("--camera '%1' is no address.").arg(camera));
        if (cameras.contains(camera))
            refuse(QStringLiteral("--camera '%1' is given twice.").arg(camera));
        cameras << camera;
    }
    return cameras;
}

} // namespace Host
