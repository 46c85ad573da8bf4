#include "fs/primitives.h"

#include <err.h>
#include <unistd.h>

#include <array>
#include <cerrno>

namespace quorrel::fs
{

// The error number is saved first, because warn may change it.

void remove(const std::string& path)
{
    if (unlink(path.c_str()) == 0 || errno == ENOENT)
        return;
    const int error = errno;
    warn("remove: could not remove %s", path.c_str());
    throw error;
}

bool exists(const std::string& path) noexcept
{
    return access(path.c_str(), F_OK) == 0;
}

std::string read_symlink(const std::string& path)
{
    constexpr std::size_t longest_target = 1024;
    std::array<char, longest_target + 1> buffer;
    const ssize_t length = readlink(path.c_str(), buffer.data(), longest_target);
    if (length >= 0) {
        buffer[static_cast<std::size_t>(length)] = '\0';
        return buffer.data();
    }
    const int error = errno;
    if (error == ENOENT)
        return {};
    warn("read_symlink: %s", path.c_str());
    throw error;
}

void create_symlink(const std::string& target, const std::string& link)
{
    if (symlink(target.c_str(), link.c_str()) == 0)
        return;
    const int error = errno;
    warn("create_symlink: from %s to %s", link.c_str(), target.c_str());
    throw error;
}

} // namespace quorrel::fs
