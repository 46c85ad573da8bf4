#pragma once

#include <regex>
#include <string>

// Regular expressions over byte strings of any length: nothing limits the word in a +VERSION file,
// and the stack may be small.
namespace quorrel
{

// Bytes have no locale: they are matched by value, in ranges such as [0-9], and belong to no
// character class or collation order. Asking the locale about each of the 256 bytes for every
// bracket would take about a sixth of a run.
struct byte_traits : std::regex_traits<char> {
    static bool isctype(char /*byte*/, char_class_type /*mask*/) { return false; }

    template <typename Iterator>
    static std::string transform_primary(Iterator /*first*/, Iterator /*last*/)
    {
        return {};
    }
};

using byte_regex = std::basic_regex<char, byte_traits>;

// Builds the expression, in the ECMAScript grammar. Throws std::regex_error for a bad pattern.
[[nodiscard]] inline byte_regex make_byte_regex(const char* pattern)
{
#ifdef __GLIBCXX__
    // This library's default executor recurses for every byte of the text: a few hundred bytes use
    // up a small stack. Its other one, called polynomial, does not recurse for every byte. It gives
    // the same results for patterns without back-references, as both of this program's are.
    return byte_regex(pattern,
                      std::regex_constants::ECMAScript | std::regex_constants::__polynomial);
#else
    return byte_regex(pattern);
#endif
}

} // namespace quorrel
