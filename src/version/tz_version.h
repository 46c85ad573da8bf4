#pragma once

#include <compare>
#include <cstdint>
#include <string>

namespace quorrel
{

// A dataset's version: the tz release, which is a number (the year) and letters, and up to two more
// numbers. 2024b.1.0 is number 2024, letters "b", minor 1, patch 0.
//
// Versions are ordered by their fields as declared; a greater version is newer. The unset value
// stands for a version that cannot be parsed, and is older than every other.
struct tz_version {
    std::int32_t number = -1;
    std::string letters; // ordered as bytes
    std::int32_t minor = -1;
    std::int32_t patch = -1;

    // The unset value.
    tz_version() = default;

    // The value that `parse` gives.
    explicit tz_version(const std::string& text) { parse(text); }

    // Parses decimal digits, lower-case letters, and up to two more runs of digits, each after a
    // full stop. A number that is missing is -1. Leading zeros have no meaning.
    //
    // Warns of any other text, and leaves the unset value. Throws std::out_of_range for a number
    // above 2147483647, without a warning; the fields before it are assigned. May also throw
    // std::bad_alloc.
    void parse(const std::string& text);

    friend std::strong_ordering operator<=>(const tz_version&, const tz_version&) = default;
};

} // namespace quorrel
