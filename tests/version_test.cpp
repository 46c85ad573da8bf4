#include "version/tz_version.h"

#include "file_tree.h"

#include <gtest/gtest.h>

#include <stdexcept>

using quorrel::tz_version;

namespace
{

TEST(tz_version, parses_the_whole_text_or_nothing)
{
    const struct {
        std::string text;
        int number;
        std::string letters;
        int minor, patch;
    } cases[] = {
        {"2017c.1.0", 2017, "c", 1, 0},
        {"2017c.2", 2017, "c", 2, -1},
        {"2017c", 2017, "c", -1, -1},
        {"0042ab.007.0", 42, "ab", 7, 0},
        {"2147483647a.1.0", 2147483647, "a", 1, 0},
        {"2017", -1, "", -1, -1},
        {"2017C.1.0", -1, "", -1, -1},
        {"2017c.1.0.5", -1, "", -1, -1},
        {"2017c.", -1, "", -1, -1},
        {"2017cx1", -1, "", -1, -1},
        {"2017c.1.0 ", -1, "", -1, -1},
        {"2017c.1.0/", -1, "", -1, -1},
        {".1.0", -1, "", -1, -1},
        {"", -1, "", -1, -1},
    };
    tz_version version;
    for (const auto& c : cases) {
        const std::string refused = "Cannot parse version string " + c.text;
        EXPECT_EQ(file_tree::warnings_of([&] { version.parse(c.text); }),
                  c.number >= 0 ? "" : refused + ", results.size() = 0\n" + refused + "\n");
        EXPECT_EQ(version.number, c.number) << c.text;
        EXPECT_EQ(version.letters, c.letters) << c.text;
        EXPECT_EQ(version.minor, c.minor) << c.text;
        EXPECT_EQ(version.patch, c.patch) << c.text;
    }
}

TEST(tz_version, number_out_of_range_leaves_parse)
{
    tz_version version("2017c.1.2");
    const auto parse = [&] {
        EXPECT_THROW(version.parse("2018d.2147483648.9"), std::out_of_range);
    };
    EXPECT_EQ(file_tree::warnings_of(parse), "");
    EXPECT_EQ(version.number, 2018);
    EXPECT_EQ(version.letters, "d");
    EXPECT_EQ(version.minor, 1);
}

TEST(tz_version, is_ordered_by_release_before_minor_and_patch)
{
    tz_version older;
    for (const std::string text : {"9z.9.9", "2016j.9.9", "2017ab.9.9", "2017c", "2017c.0.0",
                                   "2017c.1", "2017c.1.0", "2017c.1.1", "2017ca", "2017d"}) {
        const tz_version newer(text);
        EXPECT_TRUE(newer > older && !(older > newer) && older != newer) << text;
        older = newer;
    }
    EXPECT_TRUE(tz_version("2017c.01.00") == tz_version("2017c.1.0"));
}

} // namespace
