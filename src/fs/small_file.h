#pragma once

#include <string>

namespace quorrel::fs
{

// Returns the first word of a file, of any length: what stands between leading white space and the
// next white space or the end. If reading fails midway, the word ends there. A file that is
// missing, empty or cannot be opened gives an empty word. Warns of nothing; throws std::bad_alloc
// if there is no memory for the word.
[[nodiscard]] std::string first_word(const std::string& path);

// Creates or empties a file and writes the content, up to the first failure. Warns of nothing and
// throws nothing.
void write_file(const std::string& path, const std::string& content) noexcept;

} // namespace quorrel::fs
