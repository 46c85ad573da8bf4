#include "file_tree.h"

TEST(boot, keeps_corrects_or_resets_the_localtime_link)
{
    const std::string tree = "/var/db/timezone/zoneinfo";
    const std::string reset = "localtime link invalid; resetting to America/Los_Angeles\n";
    const std::string unreadable = "read_symlink: /var/db/timezone/localtime\n" + reset;
    const std::string standard = "-> " + tree + "/America/Los_Angeles";
    const std::string blocked =
        "create_symlink: from /var/db/timezone/localtime to " + tree + "/America/Los_Angeles\n";
    const std::string corrected = "Correcting localtime link to " + tree;
    // Before; printed; after.
    const std::string cases[][3] = {
        {"-> " + tree + "/No", "", "-> " + tree + "/No"},
        {"-> " + tree, "", "-> " + tree},
        {"-> /var/db/timezone/zoneinf", reset, standard},
        {"-> /usr/share/zoneinfo/Zone", corrected + "/Zone\n", "-> " + tree + "/Zone"},
        {"-> /usr/share/zoneinfo/No", corrected + "/No\n" + reset, standard},
        {"-> /usr/share/zoneinfo.default/Zone", corrected + ".default/Zone\n" + reset, standard},
        {"-> /usr/share/zoneinf", reset, standard},
        {"-> ../zoneinfo/Zone", reset, standard},
        {"nothing", reset, standard},
        {"a file", unreadable, standard},
        {"directory", unreadable + blocked, "directory"},
    };
    for (const auto& [before, printed, after] : cases) {
        settle();
        put("localtime", before);
        EXPECT_EQ(start(), printed) << before;
        EXPECT_EQ(at("localtime"), after) << before;
    }
}

TEST(boot, carries_the_older_icu_link_over_and_removes_it)
{
    const std::string stays = "remove: could not remove /var/db/icutz\n"
                              "Could not remove /var/db/icutz\n";
    const std::string failed = "Could not migrate /var/db/icutz to /var/db/timezone/icutz\n";
    const std::string blocked = "create_symlink: from /var/db/timezone/icutz to timezone\n";
    const std::string unreadable = "read_symlink: /var/db/icutz\n" + failed;
    // Older and current link; printed; the links after. In /var/db/timezone the text "timezone"
    // leads nowhere, but it is copied as it is.
    const std::string cases[][5] = {
        {"-> timezone", "nothing", "", "nothing", "-> timezone"},
        {"-> timezone", "-> /var", "", "nothing", "-> /var"},
        {"-> timezone", "-> /no", blocked + failed, "nothing", "-> /no"},
        {"-> /no", "nothing", "", "-> /no", "nothing"},
        {"directory", "nothing", unreadable + stays, "directory", "nothing"},
        {"directory", "-> /var", stays, "directory", "-> /var"},
    };
    for (const auto& [older, current, printed, older_after, current_after] : cases) {
        settle();
        put("/var/db/icutz", older);
        put("icutz", current);
        EXPECT_EQ(start(), printed) << older << current;
        EXPECT_EQ(at("/var/db/icutz"), older_after) << older << current;
        EXPECT_EQ(at("icutz"), current_after) << older << current;
    }
}

TEST(boot, executable_carries_its_identification)
{
    const char identification[] = "@(#)PROGRAM:quorrel  PROJECT:Kelvo-66\n";
    EXPECT_NE(at(QUORREL_PROGRAM).find({identification, sizeof identification}), std::string::npos);
}
