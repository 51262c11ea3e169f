// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QtGlobal>

/// Which foreign code throws.
enum class EFault
{
    Converter,
    Creator,
    OutData,
    SceneHandler, ///< What is connected to a signal of a scene.
    ServiceHandler,
    SetInData
};

struct SFaultThrown
{
};

/**
 * Foreign code of a kind throws at its Nth call, and not again.
 *
 * \code
 * const CFault fault(EFault::Converter, 3);
 * scenario.run(); // in each converter: CFault::chance(EFault::Converter);
 * if (fault.hasHappened())
 *     scenario.requireUsable();
 * \endcode
 *
 * One at a time, in one thread.
 */
class CFault
{
public:
    CFault(EFault kind, int chance)
    {
        Q_ASSERT(chance > 0 && s_chancesLeft == 0);
        s_kind = kind;
        s_chancesLeft = chance;
        s_hasHappened = false;
    }
    ~CFault() { s_chancesLeft = 0; }
    Q_DISABLE_COPY(CFault)

    bool hasHappened() const { return s_hasHappened; }

    /// A call of foreign code of that kind: throws if it is the one.
    static void chance(EFault kind)
    {
        if (s_chancesLeft == 0 || kind != s_kind || --s_chancesLeft > 0)
            return;
        s_hasHappened = true;
        throw SFaultThrown();
    }

private:
    static inline EFault s_kind = EFault::Converter;
    static inline int s_chancesLeft = 0; // none, if there is no fault to come
    static inline bool s_hasHappened = false;
};
