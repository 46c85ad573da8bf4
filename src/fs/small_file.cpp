#include "fs/small_file.h"

#include <cctype>
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

} // namespace

std::string first_word(const std::string& path)
{
    const open_file file(std::fopen(path.c_str(), "r"));
    if (file == nullptr)
        return {};
    std::string word;
    for (int byte; (byte = std::getc(file.get())) != EOF;)
        if (std::isspace(byte) == 0)
            word += static_cast<char>(byte);
        else if (!word.empty())
            break;
    return word;
}

void write_file(const std::string& path, const std::string& content) noexcept
{
    if (const open_file file(std::fopen(path.c_str(), "w")); file != nullptr)
        std::fwrite(content.data(), 1, content.size(), file.get());
}

} // namespace quorrel::fs
