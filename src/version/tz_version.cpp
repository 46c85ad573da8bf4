#include "version/tz_version.h"

#include "platform/byte_regex.h"

#include <err.h>

#include <stdexcept>

namespace quorrel
{
namespace
{

std::int32_t number_or_unset(const std::string& digits)
{
    return digits.empty() ? -1 : std::stoi(digits);
}

} // namespace

void tz_version::parse(const std::string& text)
{
    static const byte_regex pattern =
        make_byte_regex(R"(([0-9]+)([a-z]+)(?:\.([0-9]+))?(?:\.([0-9]+))?)");
    constexpr std::size_t whole_match_and_groups = 5;
    try {
        std::smatch results;
        if (!std::regex_match(text, results, pattern) || results.size() != whole_match_and_groups) {
            warn("Cannot parse version string %s, results.size() = %d", text.c_str(),
                 static_cast<int>(results.size()));
            throw std::invalid_argument("no match");
        }
        number = std::stoi(results[1]);
        letters = results[2];
        minor = number_or_unset(results[3]);
        patch = number_or_unset(results[4]);
    } catch (const std::invalid_argument&) {
        warn("Cannot parse version string %s", text.c_str());
        *this = tz_version();
    }
}

} // namespace quorrel
