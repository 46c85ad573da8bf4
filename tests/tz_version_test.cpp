#include "version/tz_version.h"

#include "run.h"

#include <sstream>

using quorrel::tz_version;

TEST(tz_version, parses_the_whole_text_or_nothing)
{
    const std::string refused = "-1  -1 -1 no version";
    const row cases[] = {
        {"a number of 31 bits, no patch", "2147483647ab.009", "2147483647 ab 9 -1 "},
        {"a year of 32 bits", "2147483648x.1.1", "2017 c 7 0 threw out of range\n"},
        {"a minor number of 32 bits", "042x.2147483648.1", "42 x 7 0 threw out of range\n"},
        {"no letters", "2017", refused},
        {"upper case", "2017C.1.0", refused},
        {"one number too many", "2017c.1.0.5", refused},
        {"no digits", "2017c.", refused},
        {"no full stop", "2017cx1", refused},
        {"a space at the end", "2017c.1.0 ", refused},
        {"a slash at the end", "2017c.1.0/", refused},
        {"no number", "c.1.0", refused},
        {"no text", "", refused},
    };
    for (const auto& [rule, text, result] : cases) {
        tz_version version("2017c.7.0");
        const std::string printed = warnings_of([&, &given = text] { version.parse(given); });
        const std::string both = "Cannot parse version string " + text + ", results.size() = 0\n" +
                                 "Cannot parse version string " + text + "\n";
        std::ostringstream fields;
        fields << version.number << ' ' << version.letters << ' ' << version.minor << ' '
               << version.patch << ' ' << (printed == both ? "no version" : printed);
        EXPECT_EQ(fields.str(), result) << rule;
    }
}

TEST(tz_version, is_ordered_by_release_before_minor_and_patch)
{
    tz_version older;
    for (const std::string text : {"9z.9.9", "2016j.9.9", "2017ab.9.9", "2017c", "2017c.0.0",
                                   "2017c.1", "2017c.1.0", "2017c.1.10", "2017ca", "2017d"}) {
        const tz_version newer(text);
        EXPECT_TRUE(newer > older && !(older > newer) && older != newer) << text;
        older = newer;
    }
}
