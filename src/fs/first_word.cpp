#include "fs/first_word.h"

#include <fstream>

namespace quorrel::fs
{

std::string first_word(const std::string& path)
{
    std::ifstream file(path);
    std::string word;
    file >> word;
    return word;
}

} // namespace quorrel::fs
