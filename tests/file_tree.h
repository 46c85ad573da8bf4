#pragma once

#include <sys/types.h>

#include <functional>
#include <string>

// A small world of files in the sandbox, to be described in a line or two and read back, and the
// program run in it. Every function fails the test that calls it if it cannot do its work.
namespace file_tree
{

// Empties /var and /usr/share, and makes /var/db/timezone/tz. Ends the test program if these are
// not the sandbox's.
void clear();

// Make a file or link, and the real directories that lead to it; what is in the way is replaced.
void file(const std::string& path, const std::string& content = "", mode_t mode = 0644);
void link(const std::string& path, const std::string& target);

// What is at the path: a file's content, "-> TARGET" for a link, "directory", "nothing".
std::string at(const std::string& path);

// A system partition of the tz release, and an installed update of the version.
void system_partition(const std::string& release, const std::string& icu_schema = "44l");
void update(const std::string& version, const std::string& icu_file = "icutz44l.dat");

// Runs the action and returns what it warned of, a line each: the text between the program's name
// and the error's.
std::string warnings_of(const std::function<void()>& action);

// Starts the real executable, after `prepare` in its process, and returns what it warned of. It has
// to end with status 0.
std::string start(const std::function<void()>& prepare = [] {});

} // namespace file_tree
