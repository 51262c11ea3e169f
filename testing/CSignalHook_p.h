// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QMetaMethod>
#include <QObject>

#include <functional>
#include <utility>
#include <vector>

namespace Plugin::Halvex::Testing {

/// Runs code whenever an object emits a signal that is known at run time only. Threads: the object's.
class CSignalHook : public QObject
{
    Q_OBJECT

public:
    CSignalHook(const QObject& sender, const QMetaMethod& signal, std::function<void()> run)
        : m_run(std::move(run))
    {
        const int slot = staticMetaObject.indexOfSlot("onSignal()");
        connect(&sender, signal, this, staticMetaObject.method(slot));
    }

public Q_SLOTS:
    void onSignal() { m_run(); }

private:
    std::function<void()> m_run;
};

/// The signals of an object, but for QObject's own.
inline std::vector<QMetaMethod> signalsOf(const QObject& object)
{
    std::vector<QMetaMethod> found;
    const QMetaObject& meta = *object.metaObject();
    for (int i = QObject::staticMetaObject.methodCount(); i < meta.methodCount(); ++i) {
        if (meta.method(i).methodType() == QMetaMethod::Signal)
            found.push_back(meta.method(i));
    }
    return found;
}

} // namespace Plugin::Halvex::Testing
