#include "file_tree.h"

// Runs a start that has to migrate an older link in vain, to reset the zoneinfo link, to activate
// an update, and to correct the localtime link, in this order.
std::string eventful_start(const std::string& command, const std::string& release = "2024a")
{
    settle();
    update("2024b");
    put("/usr/share/zoneinfo.default/+VERSION", release);
    put("/var/db/icutz", "directory");
    put("tz_latest", "-> /var/db/timezone/tz/2024b");
    put("zoneinfo", "-> /no");
    put("localtime", "-> /usr/share/zoneinfo/Zone");
    const std::string printed = start(command);
    EXPECT_EQ(at("localtime"), "-> /var/db/timezone/zoneinfo/Zone") << command;
    return printed + at("zoneinfo");
}

TEST(surroundings, broken_do_not_stop_a_start)
{
    const std::string outcome = eventful_start("PROGRAM");
    EXPECT_LT(outcome.find("Could not migrate"), outcome.find("Bad zoneinfo link"));
    for (const std::string command :
         {"PROGRAM 2>/dev/full", "PROGRAM <&- >&- 2>&-", "ulimit -f 0; PROGRAM 2>&-",
          "umask 777; PROGRAM",
          "{ sleep 0.1; PROGRAM; echo $? >/var/status; } 2>&1 | true; exit $(cat /var/status)"})
        EXPECT_TRUE(eventful_start(command).ends_with("/tz/2024b/zoneinfo")) << command;
}

TEST(surroundings, a_release_of_any_length_is_read_on_a_small_stack)
{
    const std::string zeros(1 << 20, '0');
    for (const std::string& release : {zeros + "2024a", "2024a" + zeros}) {
        const std::string outcome = eventful_start("ulimit -s 256; PROGRAM", release);
        EXPECT_EQ(outcome.find("Cannot parse") == std::string::npos, release.ends_with("2024a"));
    }
}
