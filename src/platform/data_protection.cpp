#include "platform/data_protection.h"

#ifndef HAVE_OPEN_DPROTECTED_NP
int open_dprotected_np(const char* path, int flags, int /*protection_class*/,
                       int /*protection_flags*/, mode_t mode)
{
    return open(path, flags, mode);
}
#endif
