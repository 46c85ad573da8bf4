#include "file_tree.h"

const std::string tree = "/var/db/timezone/zoneinfo", localtime_link = "/var/db/timezone/localtime";

TEST(boot, keeps_corrects_or_resets_the_localtime_link)
{
    const std::string reset = "localtime link invalid; resetting to America/Los_Angeles\n";
    const std::string unreadable = "read_symlink: " + localtime_link + "\n" + reset;
    const std::string standard = "-> " + tree + "/America/Los_Angeles";
    const auto corrected = [](const std::string& rest) {
        return "Correcting localtime link to " + tree + rest + "\n";
    };
    const struct {
        std::string before, printed, after;
    } cases[] = {
        {"-> " + tree + "/No", "", "-> " + tree + "/No"},
        {"-> " + tree, "", "-> " + tree},
        {"-> " + tree + "x", "", "-> " + tree + "x"},
        {"-> /var/db/timezone/zoneinf", reset, standard},
        {"-> /usr/share/zoneinfo/Zone", corrected("/Zone"), "-> " + tree + "/Zone"},
        {"-> /usr/share/zoneinfo/No", corrected("/No") + reset, standard},
        {"-> /usr/share/zoneinfo.default/Zone", corrected(".default/Zone") + reset, standard},
        {"-> /usr/share/zoneinf", reset, standard},
        {"-> ../zoneinfo/Zone", reset, standard},
        {"nothing", reset, standard},
        {"a file", unreadable, standard},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.before);
        file_tree::settle();
        file_tree::put("/usr/share/zoneinfo.default/Zone", "TZif");
        file_tree::put(localtime_link, c.before);
        EXPECT_EQ(file_tree::start(), c.printed);
        EXPECT_EQ(file_tree::at(localtime_link), c.after);
    }
    file_tree::put(localtime_link, "nothing");
    file_tree::put(localtime_link + "/below", "");
    EXPECT_EQ(file_tree::start(), unreadable + "create_symlink: from " + localtime_link + " to " +
                                      standard.substr(3) + "\n");
}

TEST(boot, deletes_the_marker_and_the_older_icu_data_silently)
{
    for (const std::string path : {"/var/db/timezone/needs_cleanup", "/var/db/icu"}) {
        file_tree::settle();
        file_tree::put(path, "directory");
        EXPECT_EQ(file_tree::start(), "");
        EXPECT_EQ(file_tree::at(path), "nothing");
        file_tree::put(path + "/below", "");
        EXPECT_EQ(file_tree::start(), "");
        EXPECT_EQ(file_tree::at(path), "directory");
    }
}

TEST(boot, executable_carries_its_identification)
{
    const char identification[] = "@(#)PROGRAM:quorrel  PROJECT:Kelvo-66\n";
    const std::string executable = file_tree::at(QUORREL_PROGRAM);
    EXPECT_NE(executable.find({identification, sizeof identification}), std::string::npos);
}
