#include "dataset/link_resolution.h"

#include "file_tree.h"

using namespace quorrel;

TEST(link_resolution, turns_a_tree_into_its_dataset_and_refuses_the_rest)
{
    const std::string updates = "/var/db/timezone/tz/";
    EXPECT_EQ(dataset_path_from_link("/usr/share/zoneinfo.default"), "");
    for (const std::string dataset : {"2024a.1.0", "2024a.1.0/zoneinfo", "a"})
        for (const std::string tree : {"/zoneinfo", "/other", "/"})
            EXPECT_EQ(dataset_path_from_link(updates + dataset + tree), updates + dataset);
    for (const std::string target :
         {"/var/db/timezone/tz/2024a.1.0", "/var/db/timezone/tz//zoneinfo", "/var/db/timezone/tz/",
          "/var/db/timezone/tZ/2024a.1.0/zoneinfo", "/usr/share/zoneinfo.default/",
          "/usr/share/zoneinfo", "tz/2024a.1.0/zoneinfo", ""})
        EXPECT_THROW((void)dataset_path_from_link(target), int) << target;
}
