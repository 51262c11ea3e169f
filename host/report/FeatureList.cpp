// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/report/FeatureList.h"

#include "host/report/Terminal.h"

#include <QJsonObject>

#include <algorithm>

namespace Host {

namespace {

constexpr int indent = 2;
constexpr int columnGap = 2;

// "integer, 1 to 2048", "Off, On", "locked now", "read only"
QString takenBy(const SFeature& feature)
{
    if (feature.isLocked)
        return QStringLiteral("locked now");
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
    constexpr int valueColumns = 19;
    constexpr int leastTaken = 24;
    constexpr int below = 6;
    const QString value = feature.value.isEmpty() ? QStringLiteral("-") : feature.value;
    const QString line = QString(indent, QLatin1Char(' ')) + feature.name.leftJustified(nameWidth + columnGap) + value +
                         QLatin1String("  ");
    const int column = indent + nameWidth + columnGap + valueColumns + columnGap;
    // On a narrow terminal, or behind a long value, little would be left of the line.
    if (width - column < leastTaken || line.size() > column) {
        const QString taken = takenBy(feature);
        // Where the longest name leaves too little, each goes by its own length.
        for (const QString& first : {line.trimmed(), feature.name + QLatin1String("  ") + value}) {
            if (indent + first.size() <= width)
                return QString(indent, QLatin1Char(' ')) + first + QLatin1Char('\n') + wrapped(taken, width, below);
        }
        // Rather no indent than a line that the terminal breaks.
        const int nameIndent = std::clamp(width - feature.name.size(), 0, indent);
        return QString(nameIndent, QLatin1Char(' ')) + feature.name + QLatin1Char('\n') +
               wrapped(value + QLatin1String("  ") + taken, width, below);
    }
    return line.leftJustified(column) + wrapped(takenBy(feature), width, column).mid(column);
}

} // namespace

QString featureText(const std::vector<SFeature>& features, int width, bool isBold)
{
    const int nameWidth = nameColumns(features);
    QString text;
    QString category;
    for (const SFeature& feature : features) {
        if (feature.category != category)
            text += (category.isEmpty() ? QString() : QStringLiteral("\n")) + headingLine(feature.category, isBold);
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
