#include "dataset/link_resolution.h"

#include "run.h"

using quorrel::dataset_path_from_link;

TEST(link_resolution, turns_a_tree_into_its_dataset_and_refuses_any_other_target)
{
    const std::string updates = "/var/db/timezone/tz/";
    EXPECT_EQ(dataset_path_from_link("/usr/share/zoneinfo.default"), "");
    for (const std::string dataset : {"2024a.1.0", "2024a.1.0/zoneinfo", "a"})
        for (const std::string tree : {"/zoneinfo", "/other", "/"})
            EXPECT_EQ(dataset_path_from_link(updates + dataset + tree), updates + dataset);

    const std::pair<std::string, std::string> refused[] = {
        {"an update is a directory above its tree", "/var/db/timezone/tz/2024a.1.0"},
        {"an update has a name", "/var/db/timezone/tz//zoneinfo"},
        {"the directory of the updates is no dataset", "/var/db/timezone/tz/"},
        {"letters are compared with their case", "/var/db/timezone/tZ/2024a.1.0/zoneinfo"},
        {"no slash follows the system's tree", "/usr/share/zoneinfo.default/"},
        {"a missing link points to no dataset", ""},
    };
    for (const auto& [rule, target] : refused)
        EXPECT_EQ(warnings_of([&, &given = target] { (void)dataset_path_from_link(given); }),
                  "Bad zoneinfo link " + abbreviated(target) + "\nthrew -1\n")
            << rule;
}
