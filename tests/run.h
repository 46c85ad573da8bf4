#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>

// A row of a table: the rule that it is for, which is printed if it fails, what is given, and what
// has to come of it.
struct row {
    std::string rule, given, outcome;
};

// Returns the text with "~/" in place of /var/db/timezone/.
std::string abbreviated(const std::string& text);

// Runs a shell command in which $PROGRAM and $STATUS are the real executables and $DISK is
// tools/disk. Returns its status: 124 if it takes longer than 30 seconds, -1 if a signal ends it.
int shell(const std::string& command);

// Runs the program, or another shell command, which has to end with status 0. Returns the outcome:
// what it printed, as `warnings_of` does, and then what it changed below /var/db, in the lines of
// `tools/disk show`, where "gone" stands before what is no longer there. The outcome of a run that
// prints and changes nothing is empty. "~/" stands for /var/db/timezone/. Normally the program has
// an argument, which it ignores, and no standard input, which it does not need.
std::string run(const std::string& command = "$PROGRAM ignored <&-");
inline const std::string unchanged;

// Runs the action and returns what it printed, a line per warning, without the program's name and,
// unless `full`, without the error text. If it threw, the last line is "threw ", and the error
// number's text, "-1" or "out of range". "~/" stands for /var/db/timezone/.
std::string warnings_of(const std::function<void()>& action, bool full = false);
inline constexpr bool with_error_texts = true;
