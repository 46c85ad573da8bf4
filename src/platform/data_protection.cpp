#include "platform/data_protection.h"

#include <cerrno>

#ifndef HAVE_OPEN_DPROTECTED_NP
int open_dprotected_np(const char* path, int flags, int protection_class, int /*protection_flags*/,
                       mode_t mode)
{
    if (protection_class != quorrel::unprotected_class) {
        errno = EINVAL;
        return -1;
    }
    return open(path, flags, mode);
}
#endif
