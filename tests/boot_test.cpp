#include "file_tree.h"

const std::string tree = "/var/db/timezone/zoneinfo", localtime_link = "/var/db/timezone/localtime";
const std::string icu_link = "/var/db/timezone/icutz", older_icu_link = "/var/db/icutz";

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

TEST(boot, carries_the_older_icu_link_over_and_removes_it)
{
    const std::string stays =
        "remove: could not remove /var/db/icutz\nCould not remove /var/db/icutz\n";
    const std::string failed = "Could not migrate /var/db/icutz to /var/db/timezone/icutz\n";
    const std::string blocked = "create_symlink: from " + icu_link + " to timezone\n" + failed;
    const std::string unreadable = "read_symlink: /var/db/icutz\n" + failed;
    const struct {
        std::string older, current, printed, older_after, current_after;
    } cases[] = {
        {"-> timezone", "nothing", "", "nothing", "-> timezone"},
        {"-> timezone", "-> /var", "", "nothing", "-> /var"},
        {"-> timezone", "-> /no", blocked, "nothing", "-> /no"},
        {"-> /no", "nothing", "", "-> /no", "nothing"},
        {"directory", "nothing", unreadable + stays, "directory", "nothing"},
        {"directory", "-> /var", stays, "directory", "-> /var"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.older + " " + c.current);
        file_tree::settle();
        file_tree::put(older_icu_link, c.older);
        file_tree::put(icu_link, c.current);
        // In /var/db "timezone" resolves, in /var/db/timezone it does not: the text is copied.
        EXPECT_EQ(file_tree::start(), c.printed);
        EXPECT_EQ(file_tree::at(older_icu_link), c.older_after);
        EXPECT_EQ(file_tree::at(icu_link), c.current_after);
    }
}

TEST(boot, executable_carries_its_identification)
{
    const char identification[] = "@(#)PROGRAM:quorrel  PROJECT:Kelvo-66\n";
    const std::string executable = file_tree::at(QUORREL_PROGRAM);
    EXPECT_NE(executable.find({identification, sizeof identification}), std::string::npos);
}
