// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/base/SettingRange.h"

#include <Halvex/models/AWorkerNodeDataModel.h>

#include <QCoreApplication>
#include <QMetaClassInfo>
#include <QRegularExpression>

#include <cmath>
#include <limits>

namespace Host {

using namespace Plugin::Halvex;

namespace {

constexpr QLatin1String oddEnding(", odd", 5); // of a range

// Of settings that come from the library, which says in its headers alone what they take.
QString rangeInLibrary(const QMetaProperty& property)
{
    const QMetaObject* const owner = property.enclosingMetaObject();
    const QLatin1String name(property.name());
    if (owner == &AWorkerNodeDataModel::staticMetaObject && name == QLatin1String("mostWaiting"))
        return QStringLiteral("1..");
    // The library has no upper bound. More than that is a slip of the hand: no machine has as many cores.
    if (owner == &AWorkerNodeDataModel::staticMetaObject && name == QLatin1String("parallelism"))
        return QStringLiteral("1..1024");
    return {};
}

// As it is written: "1..99, odd", "1..".
QString writtenRange(const QObject& model, const QMetaProperty& property)
{
    const QMetaObject& meta = *model.metaObject();
    const int index = meta.indexOfClassInfo((QByteArray(property.name()) + ".range").constData());
    return index < 0 ? rangeInLibrary(property) : QString::fromUtf8(meta.classInfo(index).value());
}

} // namespace

QString rangeOf(const QObject& model, const QMetaProperty& property)
{
    const QString range = writtenRange(model, property);
    const int dots = range.indexOf(QLatin1String(".."));
    if (dots < 0)
        return range;
    const QString least = range.left(dots);
    const QString most = range.mid(dots + 2);
    if (most.isEmpty())
        return QCoreApplication::translate("Host::SettingRange", "from %1").arg(least);
    if (most.endsWith(oddEnding))
        return QCoreApplication::translate("Host::SettingRange", "%1 to %2, odd")
            .arg(least, most.chopped(oddEnding.size()));
    return QCoreApplication::translate("Host::SettingRange", "%1 to %2").arg(least, most);
}

std::optional<SSettingBounds> boundsOf(const QObject& model, const QMetaProperty& property)
{
    static const QRegularExpression bounds(QStringLiteral(R"(^(-?\d+(?:\.\d+)?)(?:\.\.(-?\d+(?:\.\d+)?)?)?)"));
    const QString range = writtenRange(model, property);
    const auto match = bounds.match(range);
    if (!match.hasMatch())
        return std::nullopt;
    const bool isOpen = match.captured(2).isEmpty();
    return SSettingBounds{match.captured(1).toDouble(),
                          isOpen ? std::numeric_limits<double>::infinity() : match.captured(2).toDouble(),
                          range.endsWith(oddEnding)};
}

bool isInRange(const QObject& model, const QMetaProperty& property, double value)
{
    const auto bounds = boundsOf(model, property);
    return !bounds || (std::isfinite(value) && value >= bounds->least && value <= bounds->most);
}

} // namespace Host
