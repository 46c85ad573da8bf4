#include "dataset/link_resolution.h"

#include "file_tree.h"

#include <gtest/gtest.h>

using namespace quorrel;

namespace
{

TEST(link_resolution, turns_a_tree_into_its_dataset_and_refuses_the_rest)
{
    const std::string bad = "(bad)", updates = "/var/db/timezone/tz/";
    const struct {
        std::string target, path;
    } cases[] = {
        {updates + "2024a.1.0/zoneinfo", updates + "2024a.1.0"},
        {updates + "2024a.1.0/other", updates + "2024a.1.0"},
        {updates + "2024a.1.0/zoneinfo/", updates + "2024a.1.0/zoneinfo"},
        {updates + "a/zoneinfo", updates + "a"},
        {"/usr/share/zoneinfo.default", ""},
        {updates + "2024a.1.0", bad},
        {updates + "/zoneinfo", bad},
        {updates, bad},
        {"/var/db/timezone/tZ/2024a.1.0/zoneinfo", bad},
        {"/usr/share/zoneinfo.default/", bad},
        {"/usr/share/zoneinfo", bad},
        {"tz/2024a.1.0/zoneinfo", bad},
        {"", bad},
    };
    for (const auto& c : cases) {
        std::string path;
        const auto convert = [&] {
            try {
                path = dataset_path_from_link(c.target);
            } catch (int thrown) {
                path = thrown == -1 ? bad : "thrown";
            }
        };
        EXPECT_EQ(file_tree::warnings_of(convert),
                  c.path == bad ? "Bad zoneinfo link " + c.target + "\n" : "");
        EXPECT_EQ(path, c.path) << c.target;
    }
}

TEST(link_resolution, hands_out_the_latest_update_untested)
{
    file_tree::clear();
    EXPECT_EQ(latest_update_path(), "");
    file_tree::link("/var/db/timezone/tz_latest", "tz/../nowhere/");
    EXPECT_EQ(latest_update_path(), "tz/../nowhere/");
}

} // namespace
