#include "components/kelvo_icu.h"
#include "version/tz_version.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <random>
#include <regex>

using namespace quorrel;

// The regular expressions that define a version and a data file's name run here only.

namespace
{

// Calls the action with the text, and with every text that adds at most so many bytes of the
// alphabet to it.
template <typename Action>
void for_every_end(const std::string& text, int most, const std::string& alphabet,
                   const Action& action)
{
    action(text);
    if (most > 0)
        for (const char c : alphabet)
            for_every_end(text + c, most - 1, alphabet, action);
}

// Assigns what the expression finds, in the order of the fields, and throws as std::stoi does.
void assign_by_expression(tz_version& version, const std::string& text)
{
    static const std::regex expression(R"(([0-9]+)([a-z]+)(?:\.([0-9]+))?(?:\.([0-9]+))?)");
    std::smatch groups;
    if (!std::regex_match(text, groups, expression)) {
        version = {};
        return;
    }
    version.number = std::stoi(groups[1]);
    version.letters = groups[2];
    version.minor = groups[3].matched ? std::stoi(groups[3]) : -1;
    version.patch = groups[4].matched ? std::stoi(groups[4]) : -1;
}

// Returns the fields after the text was parsed into a version that had others, and whether it
// threw.
template <typename Parse>
auto parsed(const Parse& parse)
{
    tz_version version("2017c.7.8");
    bool throws = false;
    try {
        parse(version);
    } catch (const std::out_of_range&) {
        throws = true;
    }
    return std::pair(version, throws);
}

void expect_same_version(const std::string& text)
{
    if (parsed([&](tz_version& version) { version.parse(text); }) !=
        parsed([&](tz_version& version) { assign_by_expression(version, text); }))
        ADD_FAILURE() << testing::PrintToString(text);
}

void expect_same_schema(const std::string& name)
{
    static const std::regex expression(R"(icutz([0-9]+[lbe])\.dat)");
    std::smatch groups;
    const std::string schema = std::regex_match(name, groups, expression) ? groups[1].str() : "";
    if (kelvo_icu::schema_in(name) != schema)
        ADD_FAILURE() << testing::PrintToString(name);
}

} // namespace

TEST(scanners, accept_what_the_expressions_accept)
{
    using namespace std::string_literals;
    const int standard_error = dup(STDERR_FILENO); // each text that is no version is warned of
    dup2(open("/dev/null", O_WRONLY), STDERR_FILENO);
    for (const char* const begin : {"", "2024", "2024b", "2024b.1", "2024b.1.0"})
        for_every_end(begin, 3, "/09:`az{.A\n\0\xff"s, expect_same_version);
    for_every_end("icutz", 3, "/09:aebdfklm.\n\0\xff"s,
                  [](const std::string& text) { expect_same_schema(text + ".dat"); });
    for (const std::string name : {"icutz44l.dat", "icutz1e.dat"})
        for (std::size_t i = 0; i <= name.size(); ++i)
            for (const char c : "aAilt0\n.\0"s) {
                expect_same_schema(std::string(name).insert(i, 1, c));
                expect_same_schema(std::string(name).replace(i, 1, 1, c));
                expect_same_schema(std::string(name).erase(i));
            }

    // Numbers of any length, and those around the greatest, in every place.
    std::mt19937 random;
    const auto number = [&] {
        const std::string numbers[] = {"7", "2147483647", "2147483648", "99999999999999999999"};
        return std::string(random() % 12, '0') + numbers[random() % 4];
    };
    for (int i = 0; i < 5000; ++i) {
        const std::string text = number() + "ab" + "." + number() + "." + number();
        expect_same_version(text.substr(0, 10 + random() % text.size()));
    }
    dup2(standard_error, STDERR_FILENO);
}
