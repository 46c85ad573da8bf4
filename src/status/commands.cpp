#include "status/commands.h"

#include <algorithm>
#include <cctype>

namespace quorrel::status
{
namespace
{

std::string to_new_name(const std::string& path)
{
    return path + " " + path + ".old-$(date +%s)";
}

} // namespace

std::string quoted(const std::string& text)
{
    const std::string plain = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_/.+-";
    if (text.find_first_not_of(plain) == text.npos)
        return text;
    std::string result = "'";
    for (const char c : text)
        result += c == '\'' ? "'\\''" : std::string(1, c);
    return result + "'";
}

bool has_control_character(const std::string& text)
{
    return std::any_of(text.begin(), text.end(),
                       [](unsigned char c) { return std::iscntrl(c) != 0; });
}

std::vector<std::string> make_link(const place& at, const std::string& target)
{
    const std::string link = "ln -sfn " + quoted(target) + " " + at.path;
    if (at.is_missing() || at.is_link())
        return {link};
    if (at.is_mount_point)
        return {};
    // The file may be the zone that programs read, so it stays until the link replaces it.
    const std::string keep = S_ISREG(at.mode) ? "cp -p " : "mv ";
    return {"[ -h " + at.path + " ] || " + keep + to_new_name(at.path), link};
}

std::vector<std::string> clear(const place& at)
{
    if (at.is_link())
        return {"rm -f " + at.path};
    if (at.is_mount_point)
        return {};
    return {"[ ! -e " + at.path + " ] || mv " + to_new_name(at.path)};
}

} // namespace quorrel::status
