#pragma once

#include <string>

namespace quorrel::fs
{

// Returns the first word of a small data file: what stands between leading white space and the next
// white space or the end, of any length. A file that is missing, cannot be read to the end of that
// word, or is blank gives the empty string. Prints nothing; throws std::bad_alloc only.
[[nodiscard]] std::string first_word(const std::string& path);

} // namespace quorrel::fs
