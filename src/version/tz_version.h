#pragma once

#include <compare>
#include <cstdint>
#include <string>

namespace quorrel
{

// A dataset's version: the tz release, which is a number (the year) and letters, and up to two
// further numbers. 2024b.1.0 is number 2024, letters "b", minor 1, patch 0.
//
// Versions are ordered by the fields as they are declared; a greater version is newer. The unset
// value, which stands for a version that cannot be read, is older than every other.
struct tz_version {
    std::int32_t number = -1;
    std::string letters; // ordered as bytes
    std::int32_t minor = -1;
    std::int32_t patch = -1;

    // The unset value.
    tz_version() = default;

    // What `parse` makes of the text.
    explicit tz_version(const std::string& text) { parse(text); }

    // Reads a version text: decimal digits, lower-case letters, and each behind a full stop up to
    // two more runs of digits, which are -1 where the text has none. Leading zeros do not count.
    //
    // A text that is anything else prints "Cannot parse version string TEXT, results.size() = 0"
    // and "Cannot parse version string TEXT" and gives the unset value. Throws std::out_of_range
    // for a number above 2147483647, and prints nothing then; the fields before it are assigned.
    void parse(const std::string& text);

    friend std::strong_ordering operator<=>(const tz_version&, const tz_version&) = default;
};

} // namespace quorrel
