#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>

// A small disk in the sandbox, described and read back in a line or two, and the program run on it.
// A name is a path, absolute or below /var/db/timezone. What is put there is a file's content,
// "-> TARGET" for a link, or one of these three.
inline const std::string nothing = "nothing";
inline const std::string empty_directory = "empty directory";
inline const std::string directory = "directory"; // with a file in it

// Puts the thing there, in place of what is there, and makes the directories on the way.
void put(const std::string& name, const std::string& thing);

// Empties /var and /usr/share, and lays out a disk as `tools/disk plain IN_USE LATEST` does. Ends
// the test program outside the sandbox.
void fresh_disk(const std::string& in_use = "system", const std::string& latest = nothing);

// Runs the action and returns what it warned of, a line each without the program's name and, unless
// asked for, the error text, and then, as a line "threw ...", the text of the error number
// or "out of range" that it threw. "~/" stands for /var/db/timezone/.
std::string warnings_of(const std::function<void()>& action, bool full = false);
inline constexpr bool with_error_texts = true;

// Runs a shell command in which $PROGRAM is the real executable. The command has to end with status
// 0. Returns the outcome: what it warned of, as above, and then what it changed, in the lines that
// `tools/disk show` prints. The outcome of a start that prints and changes nothing is empty.
std::string start(const std::string& command = "$PROGRAM argument");
inline const std::string unchanged;
