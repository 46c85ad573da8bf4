#include "file_tree.h"

// A start that has three things to do: reset the zoneinfo link, with a warning; activate an update;
// correct the localtime link.
void unsettle()
{
    file_tree::settle();
    file_tree::put("/usr/share/zoneinfo.default/Zone", "TZif");
    file_tree::put(file_tree::update("2024b") + "/zoneinfo/Zone", "TZif");
    file_tree::put("/var/db/timezone/tz_latest", "-> /var/db/timezone/tz/2024b");
    file_tree::put("/var/db/timezone/zoneinfo", "-> /no");
    file_tree::put("/var/db/timezone/localtime", "-> /usr/share/zoneinfo/Zone");
}

TEST(surroundings, broken_in_one_way_do_not_stop_a_start)
{
    const std::string updated = "-> /var/db/timezone/tz/2024b/zoneinfo";
    for (const std::string command :
         {"PROGRAM 2>/dev/full", "PROGRAM <&- >&- 2>&-", "ulimit -f 0; PROGRAM 2>&-",
          "umask 777; PROGRAM", "ulimit -s 256; PROGRAM",
          "{ sleep 0.1; PROGRAM; echo $? >/var/status; } 2>&1 | true; exit $(cat /var/status)"}) {
        SCOPED_TRACE(command);
        unsettle();
        file_tree::start(command);
        EXPECT_EQ(file_tree::at("/var/db/timezone/zoneinfo"), updated);
        EXPECT_EQ(file_tree::at("/var/db/timezone/localtime"), "-> /var/db/timezone/zoneinfo/Zone");
    }
    unsettle();
    file_tree::start("ulimit -n 3; PROGRAM");
    EXPECT_EQ(file_tree::at("/var/db/timezone/localtime"), "-> /var/db/timezone/zoneinfo/Zone");
}

TEST(surroundings, a_release_of_any_length_is_read_on_a_small_stack)
{
    const std::string megabyte(1 << 20, '0');
    for (const std::string& release : {megabyte + "2024a", megabyte, "2024a" + megabyte}) {
        unsettle();
        file_tree::put("/usr/share/zoneinfo.default/+VERSION", release);
        const bool parsed =
            file_tree::start("ulimit -s 256; PROGRAM").find("Cannot parse") == std::string::npos;
        EXPECT_EQ(parsed, release.ends_with("2024a"));
        EXPECT_EQ(file_tree::at("/var/db/timezone/zoneinfo"),
                  "-> /var/db/timezone/tz/2024b/zoneinfo");
    }
}
