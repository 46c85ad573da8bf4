#include "fs/first_word.h"

#include <fstream>

namespace quorrel::fs
{

std::string first_word(const std::string& path)
{
    std::ifstream file(path);
    std::string word;
    file >> word;
    // The stream also keeps a failed read or allocation to itself; half a word is then no word.
    return file.bad() ? std::string() : word;
}

} // namespace quorrel::fs
