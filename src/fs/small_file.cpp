#include "fs/small_file.h"

#include <cctype>
#include <cerrno>
#include <cstdio>
#include <memory>

namespace quorrel::fs
{
namespace
{

struct close_file {
    void operator()(std::FILE* file) const { std::fclose(file); }
};

// Returns the next byte, or EOF at the end or if reading fails. An interrupted read is continued.
int next_byte(std::FILE* file)
{
    int byte;
    while ((byte = std::getc(file)) == EOF && std::ferror(file) != 0 && errno == EINTR)
        std::clearerr(file);
    return byte;
}

} // namespace

std::string first_word(const std::string& path)
{
    const std::unique_ptr<std::FILE, close_file> file(std::fopen(path.c_str(), "r"));
    if (file == nullptr)
        return {};
    std::string word;
    for (int byte; (byte = next_byte(file.get())) != EOF;)
        if (std::isspace(byte) == 0)
            word += static_cast<char>(byte);
        else if (!word.empty())
            break;
    return word;
}

} // namespace quorrel::fs
