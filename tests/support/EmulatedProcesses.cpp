// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// QProcess starts programs with process descriptors where the kernel has them. qemu, which runs tests of other
// processors, refuses to make any. So Qt is told here that there are none, and forks as it does with older kernels. It
// is loaded before other libraries, with LD_PRELOAD.

#include <cerrno>
#include <cstdarg>

#include <dlfcn.h>
#include <sys/syscall.h>
#include <unistd.h>

extern "C" [[gnu::visibility("default")]] long syscall(long number, ...) noexcept
{
    long arguments[6];
    va_list list;
    va_start(list, number);
    for (long& argument : arguments)
        argument = va_arg(list, long);
    va_end(list);

    constexpr long byDescriptor = 3; // P_PIDFD
    if (number == SYS_waitid && arguments[0] == byDescriptor) {
        errno = EINVAL;
        return -1;
    }
    static const auto next = reinterpret_cast<long (*)(long, ...)>(dlsym(RTLD_NEXT, "syscall"));
    return next(number, arguments[0], arguments[1], arguments[2], arguments[3], arguments[4], arguments[5]);
}
