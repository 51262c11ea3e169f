// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/base/RunFiles.h"

#include <QRegularExpression>

namespace Host::RunFiles {

namespace {

QString chainName(const QString& number)
{
    return QStringLiteral("chain%1.json").arg(number);
}

} // namespace

QString manifest()
{
    return QStringLiteral("manifest.json");
}

QString chain(std::size_t index)
{
    return chainName(index == 0 ? QString() : QStringLiteral("-%1").arg(index + 1));
}

QString graphText()
{
    return QStringLiteral("graph.txt");
}

QString graphPicture()
{
    return QStringLiteral("graph.dot");
}

bool isBesideCameras(const QString& name)
{
    // How many chains a run has is not asked: a camera keeps its name from one run to the next.
    static const QRegularExpression anyChain(
        QRegularExpression::anchoredPattern(QRegularExpression::escape(chainName(QStringLiteral("N")))
                                                .replace(QLatin1Char('N'), QLatin1String("(-\\d+)?"))));
    return name == manifest() || anyChain.match(name).hasMatch();
}

bool isBesideSinks(const QString& name)
{
    return name == graphText() || name == graphPicture();
}

} // namespace Host::RunFiles
