#include "version/tz_version.h"

#include <err.h>

#include <algorithm>
#include <string_view>

namespace quorrel
{
namespace
{

// Takes the run of bytes from `first` to `last` off the beginning of the text.
std::string take_run(std::string_view& text, char first, char last)
{
    const auto ends_run = [=](char c) { return c < first || c > last; };
    const auto end = std::find_if(text.begin(), text.end(), ends_run);
    const std::string run(text.begin(), end);
    text.remove_prefix(run.size());
    return run;
}

// Takes a full stop and digits off the beginning of the text, if it has both, and returns the
// digits.
std::string take_dotted_number(std::string_view& text)
{
    std::string_view rest = text;
    if (!rest.starts_with('.'))
        return {};
    rest.remove_prefix(1);
    const std::string digits = take_run(rest, '0', '9');
    if (!digits.empty())
        text = rest;
    return digits;
}

std::int32_t number_or_unset(const std::string& digits)
{
    return digits.empty() ? -1 : std::stoi(digits);
}

} // namespace

// A version is ([0-9]+)([a-z]+)(?:\.([0-9]+))?(?:\.([0-9]+))? and nothing else.
void tz_version::parse(const std::string& text)
{
    std::string_view rest = text;
    const std::string number_text = take_run(rest, '0', '9');
    const std::string letters_text = take_run(rest, 'a', 'z');
    const std::string minor_text = take_dotted_number(rest);
    const std::string patch_text = take_dotted_number(rest);
    if (number_text.empty() || letters_text.empty() || !rest.empty()) {
        constexpr int matched_groups = 0;
        warn("Cannot parse version string %s, results.size() = %d", text.c_str(), matched_groups);
        warn("Cannot parse version string %s", text.c_str());
        *this = tz_version();
        return;
    }
    number = std::stoi(number_text);
    letters = letters_text;
    minor = number_or_unset(minor_text);
    patch = number_or_unset(patch_text);
}

} // namespace quorrel
