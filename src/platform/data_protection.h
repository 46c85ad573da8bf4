#pragma once

#include <fcntl.h>
#include <sys/types.h>

// Per-file data protection: on systems that have it, a file's class determines when its content can
// be read and written.
namespace quorrel
{

// The class without protection: readable and writable at all times while the system runs.
inline constexpr int unprotected_class = 4;

// The fcntl(2) command that sets the class of an open file or directory. Systems without protection
// classes refuse it.
inline constexpr int set_protection_class_command = 64;

} // namespace quorrel

#ifndef HAVE_OPEN_DPROTECTED_NP
// Opens or creates a file in a protection class and returns its descriptor, or -1 with errno set,
// as open(2) does. Where there are no protection classes, every file is unprotected anyway, so the
// class and its flags are ignored.
int open_dprotected_np(const char* path, int flags, int protection_class, int protection_flags,
                       mode_t mode);
#endif
