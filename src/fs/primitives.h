#pragma once

#include <string>

// Four operations on directory entries, which keep no state and never retry. A failure that an
// operation does not tolerate is warned of once and then thrown, as an int that holds the error
// number. What it means is up to the caller.
//
// These are not std::filesystem's functions of the same names.
namespace quorrel::fs
{

// Removes a directory entry other than a directory. Tolerates that it is missing.
//
// Callers that want failures ignored, or empty directories removed too, use ::remove.
void remove(const std::string& path);

// Returns whether the path exists. Symbolic links are followed, so a dangling link does not exist.
// Every failure means no; warns of nothing and throws nothing.
[[nodiscard]] bool exists(const std::string& path) noexcept;

// Returns the target of a symbolic link as it is stored, cut after 1,024 bytes.
// Tolerates that the link is missing: the target is then empty. An entry that is not a symbolic
// link is a failure. May also throw std::bad_alloc.
[[nodiscard]] std::string read_symlink(const std::string& path);

// Creates the symbolic link `link` to `target`, which need not exist. An entry that is already at
// `link` is a failure.
void create_symlink(const std::string& target, const std::string& link);

} // namespace quorrel::fs
