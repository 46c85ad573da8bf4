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

using open_file = std::unique_ptr<std::FILE, close_file>;

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
    const open_file file(std::fopen(path.c_str(), "r"));
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

void write_file(const std::string& path, const std::string& content) noexcept
{
    const open_file file(std::fopen(path.c_str(), "w"));
    if (file == nullptr)
        return;
    // Without a buffer, it is known how much an interrupted write has written.
    std::setvbuf(file.get(), nullptr, _IONBF, 0);
    std::size_t written = 0;
    do
        written += std::fwrite(&content[written], 1, content.size() - written, file.get());
    while (written < content.size() && errno == EINTR);
}

} // namespace quorrel::fs
