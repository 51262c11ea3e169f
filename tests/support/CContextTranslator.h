// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QCoreApplication>
#include <QTranslator>

/// While it lives, every text is translated into the context that it is asked in: `CFoo::tr("any")` is "CFoo".
class CContextTranslator : public QTranslator
{
public:
    CContextTranslator() { QCoreApplication::installTranslator(this); }
    // The base class takes it out again.
    bool isEmpty() const override { return false; }
    QString translate(const char* context, const char*, const char*, int) const override
    {
        return QString::fromLatin1(context);
    }
};
