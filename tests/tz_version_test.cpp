#include "dataset/tz_version.h"

#include "file_tree.h"

using quorrel::tz_version;

TEST(tz_version, parses_the_whole_text_or_nothing)
{
    tz_version version;
    const auto parse = [&](const std::string& text) {
        const std::string warnings = warnings_of([&] { version.parse(text); });
        return std::to_string(version.number) + " " + version.letters + " " +
               std::to_string(version.minor) + " " + std::to_string(version.patch) + " " + warnings;
    };
    EXPECT_EQ(parse("2018d.3"), "2018 d 3 -1 ");
    EXPECT_EQ(parse("2147483647ab"), "2147483647 ab -1 -1 ");
    EXPECT_EQ(parse("0042f.009.0"), "42 f 9 0 ");
    // Fields before the number that is out of range are assigned.
    EXPECT_EQ(parse("2147483648x.1.1"), "42 f 9 0 threw out of range\n");
    EXPECT_EQ(parse("2018d.2147483648.9"), "2018 d 9 0 threw out of range\n");
    for (const std::string text : {"2017", "2017C.1.0", "2017c.1.0.5", "2017c.", "2017cx1",
                                   "2017c.1.0 ", "2017c.1.0/", ".1.0", ""}) {
        version = tz_version("2017c.1.0");
        const std::string refused = "Cannot parse version string " + text;
        EXPECT_EQ(parse(text), "-1  -1 -1 " + refused + ", results.size() = 0\n" + refused + "\n");
    }
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
}
