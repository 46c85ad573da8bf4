#pragma once

#include <string>

// Four operations on directory entries. They keep no state and never retry. A failure that one of
// them does not tolerate is warned of once and then thrown, as an int that holds the error number;
// what it means is for the caller to say.
namespace quorrel::fs
{

// Removes a directory entry that is not a directory, with unlink(2). An entry that is not there is
// no failure. Any other failure prints "remove: could not remove PATH" and throws the error number.
//
// Where nobody is to hear of a failure, and an empty directory is to go as well, the callers use
// ::remove, the system's own.
void remove(const std::string& path);

// Tells whether access(2) finds the path, following symbolic links: a dangling link does not exist.
// Every failure means no. Prints and throws nothing.
[[nodiscard]] bool exists(const std::string& path) noexcept;

// Returns a symbolic link's target as it is stored, unresolved, from readlink(2): its first 1,024
// bytes if it is longer. A link that is not there yields the empty string. Any other failure (the
// entry is no symbolic link, for one) prints "read_symlink: PATH" and throws the error number.
// Throws std::bad_alloc as well.
[[nodiscard]] std::string read_symlink(const std::string& path);

// Makes the new entry `link` a symbolic link to `target`, with symlink(2). The target need not
// exist; an entry already at `link` is a failure. A failure prints "create_symlink: from LINK to
// TARGET" and throws the error number.
void create_symlink(const std::string& target, const std::string& link);

} // namespace quorrel::fs
