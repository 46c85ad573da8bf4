#include "dataset/cleanup_marker.h"

#include "fs/paths.h"
#include "platform/data_protection.h"

#include <err.h>
#include <stdio.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace quorrel
{
namespace
{

// Returns the error number of the first call that failed, or 0. Warning has to wait until the
// marker is closed: in a run without standard error it may have become descriptor 2.
int create_marker() noexcept
{
    constexpr mode_t mode = 0666;
    const int marker =
        open_dprotected_np(paths::needs_cleanup, O_RDWR | O_CREAT, unprotected_class, 0, mode);
    if (marker < 0)
        return errno;
    struct stat status;
    const int status_error = fstat(marker, &status) == 0 ? 0 : errno;
    const int close_error = close(marker) == 0 ? 0 : errno;
    return status_error != 0 ? status_error : close_error;
}

} // namespace

void delete_cleanup_marker() noexcept
{
    ::remove(paths::needs_cleanup);
}

void touch_needs_cleanup() noexcept
{
    if (const int error = create_marker(); error != 0) {
        errno = error;
        warn("Cannot touch file %s", paths::needs_cleanup);
    }
}

} // namespace quorrel
