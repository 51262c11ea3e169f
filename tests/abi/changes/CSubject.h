// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QObject>

#include <functional>
#include <memory>

namespace Plugin::Halvex {

/// A class of a library that is checked as the real one is. CHANGED_… is defined for the library that has that change;
/// check_changes.sh says which of them break programs. Behind its last member is padding, which a subclass may use.
class Q_DECL_EXPORT CSubject : public QObject
{
    Q_OBJECT
    Q_PROPERTY(int rate READ rate NOTIFY rateChanged)

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

    using Work = std::function<int(const CSubject&)>;

    CSubject();
    ~CSubject() override;

#ifdef CHANGED_VTABLE
    virtual int newest();
#endif
    virtual int first();
    virtual int second();
    virtual Work makeWork() const;
#ifdef CHANGED_VIRTUAL_ADDED
    virtual int newest();
#endif

#ifndef CHANGED_REMOVED
    int rate() const;
#else
    int rate() const
    {
        return 1;
    }
#endif
#ifdef CHANGED_RESULT
    long limit() const;
#else
    int limit() const;
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
    class CQueue;
    struct SHidden;

#ifdef CHANGED_PRIVATE
    int newestStep() const;
#else
    int step() const;
#endif

    SHidden* m_hidden = nullptr;
    std::shared_ptr<CQueue> m_queue;
#ifdef CHANGED_ORDER
    short m_step = 0;
    int m_rate = 1;
#else
    int m_rate = 1;
    short m_step = 0;
#endif
#ifdef CHANGED_PADDING
    [[maybe_unused]] short m_newest = 0; // where it stands is all that matters
#endif
#ifdef CHANGED_SIZE
    [[maybe_unused]] double m_newest = 0.0; // the same
#endif
};

#ifdef CHANGED_CLASS_ADDED
class Q_DECL_EXPORT CNewest
{
public:
    virtual ~CNewest();

    static int count;
};
#endif

} // namespace Plugin::Halvex
