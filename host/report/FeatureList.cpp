// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/report/FeatureList.h"

#include "host/report/Terminal.h"

#include <QJsonObject>

#include <algorithm>

namespace Host {

namespace {

constexpr int indent = 2;
constexpr int gap = 2;

// "integer, 1 to 2048", "Off, On", "read only"
QString takenBy(const SFeature& feature)
{
    if (!feature.isWritable)
        return QStringLiteral("read only");
    if (feature.range.isEmpty())
        return feature.type;
    return feature.type == QLatin1String("one of") ? feature.range
                                                   : QStringLiteral("%1, %2").arg(feature.type, feature.range);
}

int nameColumns(const std::vector<SFeature>& features)
{
    int columns = 0;
    for (const SFeature& feature : features)
        columns = std::max(columns, feature.name.size());
    return columns;
}

QString featureLines(const SFeature& feature, int nameWidth, int width)
{
    constexpr int valueColumns = 20;
    const QString value = feature.value.isEmpty() ? QStringLiteral("-") : feature.value;
    const QString margin(indent, QLatin1Char(' '));
    QString line = margin + feature.name.leftJustified(nameWidth + gap) + value;
    const QString taken = takenBy(feature);
    const QString whole = line.leftJustified(indent + nameWidth + gap + valueColumns) + QLatin1Char(' ') + taken;
    if (whole.size() <= width)
        return whole + QLatin1Char('\n');
    // On a narrow terminal the names take so much of the line that little is left behind them.
    const int below = std::min(indent + nameWidth + gap, width / 2);
    if (line.size() > width)
        line = margin + feature.name + QLatin1Char('\n') + QString(below, QLatin1Char(' ')) + value;
    return line + QLatin1Char('\n') + wrapped(taken, width, below);
}

} // namespace

QString featureText(const std::vector<SFeature>& features, int width, bool isBold)
{
    const QString bold = isBold ? QStringLiteral("\x1b[1m%1\x1b[0m\n") : QStringLiteral("%1\n");
    const int nameWidth = nameColumns(features);
    QString text;
    QString category;
    for (const SFeature& feature : features) {
        if (feature.category != category)
            text += (category.isEmpty() ? QString() : QStringLiteral("\n")) + bold.arg(feature.category);
        category = feature.category;
        text += featureLines(feature, nameWidth, width);
    }
    return text;
}

QJsonArray featureJson(const std::vector<SFeature>& features)
{
    QJsonArray array;
    for (const SFeature& feature : features)
        array.append(QJsonObject{{"category", feature.category},
                                 {"name", feature.name},
                                 {"type", feature.type},
                                 {"value", feature.value},
                                 {"range", feature.range},
                                 {"writable", feature.isWritable}});
    return array;
}

} // namespace Host
