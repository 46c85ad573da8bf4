#include "file_tree.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

namespace
{

const std::string localtime_link = "/var/db/timezone/localtime";
const std::string published = "/var/db/timezone/zoneinfo";

// A start from here, with nothing else on the disk, changes nothing and prints nothing.
void settled_disk()
{
    file_tree::clear();
    file_tree::system_partition("2024a");
    file_tree::file("/usr/share/zoneinfo.default/Asia/Tokyo", "TZif");
    file_tree::link(published, "/usr/share/zoneinfo.default");
    file_tree::link(localtime_link, published + "/Asia/Tokyo");
}

TEST(localtime_link, is_kept_corrected_or_reset)
{
    const std::string reset = "localtime link invalid; resetting to America/Los_Angeles\n";
    const std::string unreadable = "read_symlink: /var/db/timezone/localtime\n";
    const std::string default_target = published + "/America/Los_Angeles";
    const std::string blocked =
        "create_symlink: from /var/db/timezone/localtime to " + default_target + "\n";
    const auto corrected = [](const std::string& rest) {
        return "Correcting localtime link to " + published + rest + "\n";
    };
    const struct {
        std::string target, printed, result;
    } cases[] = {
        {published + "/Asia/None", "", "-> " + published + "/Asia/None"},
        {published, "", "-> " + published},
        {published + "x", "", "-> " + published + "x"},
        {"/var/db/timezone/zoneinf", reset, "-> " + default_target},
        {"/usr/share/zoneinfo/Asia/Tokyo", corrected("/Asia/Tokyo"),
         "-> " + published + "/Asia/Tokyo"},
        {"/usr/share/zoneinfo/Asia/None", corrected("/Asia/None") + reset, "-> " + default_target},
        {"/usr/share/zoneinfo.default/Asia/Tokyo", corrected(".default/Asia/Tokyo") + reset,
         "-> " + default_target},
        {"/usr/share/zoneinf", reset, "-> " + default_target},
        {"../zoneinfo/Asia/Tokyo", reset, "-> " + default_target},
        {"(nothing)", reset, "-> " + default_target},
        {"(file)", unreadable + reset, "-> " + default_target},
        {"(full directory)", unreadable + reset + blocked, "directory"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.target);
        settled_disk();
        if (c.target == "(file)")
            file_tree::file(localtime_link);
        else if (c.target == "(full directory)")
            file_tree::file(localtime_link + "/below");
        else if (c.target == "(nothing)")
            std::filesystem::remove(localtime_link);
        else
            file_tree::link(localtime_link, c.target);
        EXPECT_EQ(file_tree::start(), c.printed);
        EXPECT_EQ(file_tree::at(localtime_link), c.result);
    }
}

TEST(boot, deletes_the_marker_and_the_older_icu_data_silently)
{
    for (const std::string path : {"/var/db/timezone/needs_cleanup", "/var/db/icu"}) {
        SCOPED_TRACE(path);
        settled_disk();
        file_tree::link(path, "/usr/share");
        EXPECT_EQ(file_tree::start(), "");
        EXPECT_EQ(file_tree::at(path), "nothing");
        std::filesystem::create_directory(path);
        EXPECT_EQ(file_tree::start(), "");
        EXPECT_EQ(file_tree::at(path), "nothing");
        file_tree::file(path + "/below");
        EXPECT_EQ(file_tree::start(), "");
        EXPECT_EQ(file_tree::at(path), "directory");
    }
}

TEST(boot, executable_carries_its_identification)
{
    std::ostringstream executable;
    executable << std::ifstream(QUORREL_PROGRAM).rdbuf();
    const char identification[] = "@(#)PROGRAM:quorrel  PROJECT:Kelvo-66\n";
    EXPECT_NE(executable.str().find(std::string(identification, sizeof identification)),
              std::string::npos);
}

} // namespace
