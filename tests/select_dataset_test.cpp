#include "file_tree.h"

const std::string data = "/var/db/timezone/";

// A disk with system partition 2024a.1.0 and updates older, equal and newer; 2024d has another ICU
// schema. The links name an update, or "system", "nothing", or something at all.
void disk_with(const std::string& current, const std::string& latest)
{
    file_tree::settle();
    for (const std::string version : {"2023z", "2024a.1.0", "2024b", "2024c"})
        file_tree::update(version);
    file_tree::update("2024d", "icutz44b.dat");
    file_tree::put(data + "TZVersionDiffRecord", "before");
    if (current == "nothing")
        file_tree::put(data + "zoneinfo", current);
    else if (current != "system") {
        file_tree::put(data + "zoneinfo", "-> " + data + "tz/" + current + "/zoneinfo");
        file_tree::put(data + "icutz", "-> " + data + "tz/" + current + "/icutz");
    }
    if (latest != "nothing")
        file_tree::put(data + "tz_latest", "-> " + (latest[0] == '/' ? "" : data + "tz/") + latest);
}

TEST(select_dataset, decides_by_schema_and_version)
{
    const std::string given_up = "Symlink points at data incompatible with installed system\n";
    const std::string reset = "Bad zoneinfo link \nInvalid current symlinks; resetting to system "
                              "partition\n";
    const std::string lost = "Unable to locate data; resetting to system partition\n";
    const auto refused = [](const std::string& versions) {
        return "New update not compatible or older version: " + versions + "\n";
    };
    const struct {
        std::string current, latest, printed, published, marker, record;
    } cases[] = {
        {"system", "nothing", "", "system", "nothing", "before"},
        {"2024b", "nothing", "", "2024b", "nothing", "before"},
        {"2024a.1.0", "nothing", "", "2024a.1.0", "nothing", "before"},
        {"system", "2024b", "", "2024b", "nothing", "2024a.1.0_2024b"},
        {"2024b", "2024c", "", "2024c", "", "2024b_2024c"},
        {"2024b", "2024b", refused("2024b vs. 2024b"), "2024b", "nothing", "before"},
        {"2024b", "2024d", refused("2024d vs. 2024b"), "2024b", "nothing", "before"},
        {"2023z", "nothing", given_up, "system", "", "before"},
        {"2023z", "2024b", given_up, "2024b", "", "2024a.1.0_2024b"},
        {"2023z", "2023z", given_up + refused("2023z vs. 2023z"), "system", "", "before"},
        // The latest is measured against the dataset that was given up, not the one in use.
        {"2024d", "2024b", given_up + refused("2024b vs. 2024d"), "system", "", "before"},
        {"2023z", "2024a.1.0", given_up, "2024a.1.0", "", "2024a.1.0_2024a.1.0"},
        {"nothing", "nothing", reset, "system", "nothing", "before"},
        {"nothing", "2024b", reset, "2024b", "nothing", "2024a.1.0_2024b"},
        {"nothing", "2023z", reset + refused("2023z vs. 2024a.1.0"), "system", "nothing", "before"},
        {"2024b", "/no", "kelvo_dataset::create_components: bad path /no\n" + lost, "system",
         "nothing", "before"},
        {"2024b", "2147483648a", lost, "system", "nothing", "before"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.current + " in use, " + c.latest + " the latest");
        disk_with(c.current, c.latest);
        EXPECT_EQ(file_tree::start(), c.printed);
        const bool system = c.published == "system";
        const std::string update = "-> " + data + "tz/" + c.published;
        EXPECT_EQ(file_tree::at(data + "zoneinfo"),
                  system ? "-> /usr/share/zoneinfo.default" : update + "/zoneinfo");
        EXPECT_EQ(file_tree::at(data + "icutz"), system ? "nothing" : update + "/icutz");
        EXPECT_EQ(file_tree::at(data + "needs_cleanup"), c.marker);
        EXPECT_EQ(file_tree::at(data + "TZVersionDiffRecord"), c.record);
    }
}

TEST(select_dataset, goes_on_when_something_is_in_the_way)
{
    const auto start_with_directory_at = [](const std::string& name) {
        disk_with("2024b", "2024c");
        file_tree::put(data + name, "nothing");
        file_tree::put(data + name + "/below", "");
        file_tree::put("/var/db/icutz", "-> /no");
        return file_tree::start();
    };
    const std::string lost = "Unable to locate data; resetting to system partition\n";
    EXPECT_EQ(start_with_directory_at("needs_cleanup"),
              "Cannot touch file /var/db/timezone/needs_cleanup\n");
    EXPECT_EQ(start_with_directory_at("TZVersionDiffRecord"), "");
    EXPECT_EQ(file_tree::at(data + "zoneinfo"), "-> " + data + "tz/2024c/zoneinfo");
    EXPECT_EQ(file_tree::at("/var/db/icutz"), "nothing");

    const std::string icu =
        "remove: could not remove /var/db/timezone/icutz\nunlink of ICU softlink failed\n";
    EXPECT_EQ(
        start_with_directory_at("icutz"),
        icu + "create_symlink: from /var/db/timezone/icutz to /var/db/timezone/tz/2024c/icutz\n" +
            lost + icu);
    EXPECT_EQ(file_tree::at(data + "zoneinfo"), "-> /usr/share/zoneinfo.default");
    EXPECT_EQ(file_tree::at("/var/db/icutz"), "-> /no") << "the first failure ends the removals";

    const std::string zoneinfo =
        "remove: could not remove /var/db/timezone/zoneinfo\nUnlink of zoneinfo softlink failed\n"
        "create_symlink: from /var/db/timezone/zoneinfo to /usr/share/zoneinfo.default\n";
    EXPECT_EQ(start_with_directory_at("zoneinfo"),
              "read_symlink: /var/db/timezone/zoneinfo\n"
              "Invalid current symlinks; resetting to system partition\n" +
                  zoneinfo + lost + zoneinfo);
}
