#pragma once

#include <sys/stat.h>

#include <string>
#include <vector>

// Looking at files. Whatever cannot be looked at throws std::system_error with its path, because it
// must not be reported as missing.
namespace quorrel::status
{

// Returns what stat(2) or lstat(2) says of the path, or all zeros if nothing is there. A loop of
// links leads nowhere.
[[nodiscard]] struct stat status_of(const std::string& path, decltype(stat) look = stat);
[[nodiscard]] mode_t mode_of(const std::string& path, decltype(stat) look = stat);

// Returns the target of a link as an absolute path without ".", ".." and "//".
[[nodiscard]] std::string destination(const std::string& link);

// What stands at a place that is meant for a link.
struct place {
    std::string path;
    mode_t mode = 0;    // 0 if nothing is there
    std::string target; // of a link, as it is stored
    bool is_mount_point = false;

    [[nodiscard]] bool is_missing() const { return mode == 0; }
    [[nodiscard]] bool is_link() const { return S_ISLNK(mode); }
};
[[nodiscard]] place look_at(const std::string& path);

// The way that the system takes from a path to a file, link by link.
struct route {
    std::vector<std::string> stations; // the path, and what it became with each link
    mode_t mode = 0;                   // of what it ends at, 0 if it leads nowhere
    std::vector<std::string> closed;   // what not everybody can enter or, if a file, read

    // Returns whether a station is the path or lies below it.
    [[nodiscard]] bool passes(const std::string& path) const;
};
[[nodiscard]] route follow(const std::string& path);

// Returns whether the mode grants everybody these permissions, for example S_IROTH | S_IXOTH, or
// nothing is there.
[[nodiscard]] bool is_open(mode_t mode, mode_t permissions);

// Returns whether the path is `top` or lies below it.
[[nodiscard]] bool is_within(const std::string& path, const std::string& top);

} // namespace quorrel::status
