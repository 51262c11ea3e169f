// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QMetaMethod>
#include <QMetaObject>
#include <QStringList>

/// The methods that a class itself adds to its meta-object, in order, as "public signal changed(int index)".
inline QStringList methodsOf(const QMetaObject& metaObject)
{
    const QStringList accesses{QStringLiteral("private"), QStringLiteral("protected"), QStringLiteral("public")};
    const QStringList kinds{QStringLiteral("method"), QStringLiteral("signal"), QStringLiteral("slot"),
                            QStringLiteral("constructor")};
    QStringList methods;
    for (int i = metaObject.methodOffset(); i < metaObject.methodCount(); ++i) {
        const QMetaMethod method = metaObject.method(i);
        QStringList parameters;
        for (int p = 0; p < method.parameterCount(); ++p)
            parameters << QString::fromLatin1(method.parameterTypes().at(p) + ' ' + method.parameterNames().at(p));
        methods << QStringLiteral("%1 %2 %3(%4)")
                       .arg(accesses.value(method.access()), kinds.value(method.methodType()),
                            QString::fromLatin1(method.name()), parameters.join(QStringLiteral(", ")));
    }
    return methods;
}

/// How many properties, enumerations and class infos a class itself adds.
inline int otherMembersOf(const QMetaObject& metaObject)
{
    return metaObject.propertyCount() - metaObject.propertyOffset() + metaObject.enumeratorCount() -
           metaObject.enumeratorOffset() + metaObject.classInfoCount() - metaObject.classInfoOffset();
}
