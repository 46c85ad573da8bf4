#include "file_tree.h"

// Runs a start that has to migrate an older link in vain, to reset the zoneinfo link and to correct
// the localtime link, in this order, and to activate an update.
std::string eventful_start(const std::string& command, const std::string& release = "2024a")
{
    settle();
    update("2024b");
    put("/usr/share/zoneinfo.default/+VERSION", release);
    put("/var/db/icutz", "directory");
    put("/var/db/timezone/tz_latest", "-> /var/db/timezone/tz/2024b");
    put("/var/db/timezone/zoneinfo", "-> /no");
    put("/var/db/timezone/localtime", "-> /usr/share/zoneinfo/Zone");
    const std::string printed = start(command);
    EXPECT_EQ(at("/var/db/timezone/localtime"), "-> /var/db/timezone/zoneinfo/Zone") << command;
    return printed;
}

TEST(surroundings, broken_do_not_stop_a_start)
{
    const std::string in_order = eventful_start("PROGRAM");
    EXPECT_LT(in_order.find("Could not migrate"), in_order.find("Bad zoneinfo link"));
    eventful_start("ulimit -n 3; PROGRAM");
    for (const std::string command :
         {"PROGRAM 2>/dev/full", "PROGRAM <&- >&- 2>&-", "ulimit -f 0; PROGRAM",
          "umask 777; PROGRAM",
          "{ sleep 0.1; PROGRAM; echo $? >/var/status; } 2>&1 | true; exit $(cat /var/status)"}) {
        eventful_start(command);
        EXPECT_EQ(at("/var/db/timezone/zoneinfo"), "-> /var/db/timezone/tz/2024b/zoneinfo")
            << command;
    }
}

TEST(surroundings, a_release_of_any_length_is_read_on_a_small_stack)
{
    const std::string zeros(1 << 20, '0');
    const auto is_parsed = [](const std::string& release) {
        const std::string printed = eventful_start("ulimit -s 256; PROGRAM", release);
        return printed.find("Cannot parse") == std::string::npos;
    };
    EXPECT_TRUE(is_parsed(zeros + "2024a"));
    EXPECT_FALSE(is_parsed("2024a" + zeros));
    EXPECT_FALSE(is_parsed(zeros));
}
