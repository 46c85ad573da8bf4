#pragma once

#include "status/state.h"

#include <string>
#include <vector>

namespace quorrel::status
{

// A sentence or two and the commands that belong to it, for a root shell and in that order. Where
// only a person can know what is right, or do it, the sentence says so and there are no commands.
struct finding {
    std::string sentence;
    std::vector<std::string> commands;
};

struct findings {
    std::vector<finding> problems; // something does not work, now or after the next boot or update
    std::vector<finding> remarks;  // only worth knowing

    void problem(const std::string& sentence, const std::vector<std::string>& commands = {});
    void remark(const std::string& sentence, const std::vector<std::string>& commands = {});
};

// Compares each place with what it should be. The commands can be pasted at once, and a second
// time. They delete nothing but links, change no update but to open its permissions, set no other
// zone, and publish no older data unless what is in use cannot be used.
[[nodiscard]] findings find_problems(const state& now);

} // namespace quorrel::status
