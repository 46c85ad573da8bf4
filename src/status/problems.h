#pragma once

#include "status/disk.h"

#include <string>
#include <vector>

namespace quorrel::status
{

// What is wrong, in a sentence or two, and the commands that cure it, for a root shell and in that
// order; none where only a person can know what is right.
struct problem {
    std::string sentence;
    std::vector<std::string> commands;
};

// Returns what is wrong on the disk: of a chain of faults, the first. A command deletes nothing but
// links, changes no update but to make it readable for others, and never sets the clock back.
[[nodiscard]] std::vector<problem> find_problems(const disk& now);

} // namespace quorrel::status
