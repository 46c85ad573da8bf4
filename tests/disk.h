#pragma once

#include <string>

// A small disk in the sandbox. A name is a path, absolute or below /var/db/timezone. A thing is a
// file's content, "-> TARGET" for a link, or one of these three.
inline const std::string nothing = "nothing";
inline const std::string empty_directory = "empty directory";
inline const std::string directory = "directory"; // with a file in it, `below`

// Empties /var and /usr/share, and lays out a disk as `tools/disk plain IN_USE LATEST` does.
// Outside the sandbox, ends the test program.
void fresh_disk(const std::string& in_use = "system", const std::string& latest = nothing);

// Puts the thing there, in place of what is there, and makes the directories on the way.
void put(const std::string& name, const std::string& thing);
