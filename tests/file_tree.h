#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>

// A small disk in the sandbox, to be described and read back in a line or two, and the program run
// on it. A name is a path, absolute or below /var/db/timezone. What is there is said as "-> TARGET"
// for a link, "directory" (put down with a file in it), "nothing", or a file's content.

// Puts the thing there, in place of what there is, and makes the directories on the way.
void put(const std::string& name, const std::string& thing);
std::string at(const std::string& name);

// Empties /var and /usr/share, and puts there a system partition of release 2024a and ICU schema
// 44l, with a zone named Zone; it is in use, and that is the local zone. A start changes and prints
// nothing. Ends the test program outside the sandbox.
void settle();

// Installs an update of the version.
void update(const std::string& version, const std::string& icu_file = "icutz44l.dat");

// Runs the action and returns what it warned of, a line each without the program's name and (unless
// asked for) the error's text, and then, as a line "threw ...", the int or "out of range" that it
// threw.
std::string outcome_of(const std::function<void()>& action, bool error_texts = false);

// Runs a shell command in which PROGRAM is the real executable, and returns what it warned of. It
// has to end with status 0.
std::string start(std::string command = "PROGRAM argument");
