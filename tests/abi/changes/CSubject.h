// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QObject>

namespace Plugin::Halvex {

/// A class of a library that is checked as the real one is. Each change below is one that breaks programs in its own
/// way; CHANGED_… is defined for the library that has it.
class Q_DECL_EXPORT CSubject : public QObject
{
    Q_OBJECT
    Q_PROPERTY(int rate READ rate)

public:
    enum class EMode
    {
#ifdef CHANGED_ENUM
        Newest,
#endif
        Slow,
        Fast
    };
    Q_ENUM(EMode)

    CSubject();
    ~CSubject() override;

#ifdef CHANGED_VTABLE
    virtual int newest();
#endif
    virtual int first();
    virtual int second();

#ifndef CHANGED_REMOVED
    int rate() const;
#else
    int rate() const
    {
        return 1;
    }
#endif
#ifdef CHANGED_ADDED
    int newestRate() const;
#endif
#ifdef CHANGED_ARGUMENT
    void setRate(long rate);
#else
    void setRate(int rate);
#endif

Q_SIGNALS:
#ifdef CHANGED_SIGNAL
    void newestChanged();
#endif
    void rateChanged(int rate);
#ifdef CHANGED_SIGNAL_ADDED
    void newestChanged();
#endif

private:
    struct SHidden;

#ifdef CHANGED_PRIVATE
    int newestStep() const;
#else
    int step() const;
#endif

#ifdef CHANGED_ORDER
    short m_step = 0;
    int m_rate = 1;
#else
    int m_rate = 1;
    short m_step = 0;
#endif
    SHidden* m_hidden = nullptr;
#ifdef CHANGED_SIZE
    double m_newest = 0.0;
#endif
};

} // namespace Plugin::Halvex
