#pragma once

#include "status/route.h"

#include <string>
#include <vector>

// Commands for a root shell. Each may be pasted a second time. There are none for a mount point.
namespace quorrel::status
{

// Quotes a text for the shell, if it has to be.
[[nodiscard]] std::string quoted(const std::string& text);

[[nodiscard]] bool has_control_character(const std::string& text);

// Puts a link at the place. What is in the way is kept under a new name.
[[nodiscard]] std::vector<std::string> make_link(const place& at, const std::string& target);

// Removes a link, or keeps what is in its place under a new name.
[[nodiscard]] std::vector<std::string> clear(const place& at);

} // namespace quorrel::status
