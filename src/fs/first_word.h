#pragma once

#include <string>

namespace quorrel::fs
{

// Returns the first word of a small data file: what stands between leading white space and the next
// white space or the end, of any length. A file that is missing, unreadable or blank gives the
// empty string, and the word of one that cannot be read on ends there. Prints nothing; throws
// std::bad_alloc only, when there is no memory to open the file.
[[nodiscard]] std::string first_word(const std::string& path);

} // namespace quorrel::fs
