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

TEST(surroundings, an_abort_fails_the_dataset_phase_alone)
{
    const std::string printed = "Unable to locate data; resetting to system partition\n"
                                "Correcting localtime link to /var/db/timezone/zoneinfo/Zone\n";
    // A named pipe in place of +VERSION holds the phase, or its fallback, until a signal comes.
    const std::string abort_once = "{ PROGRAM & exec 3>+VERSION; mv text +VERSION; kill -ABRT $!; ";
    const std::string abort_twice = "{ PROGRAM & exec 3>+VERSION; mv pipe +VERSION; kill -ABRT $!; "
                                    "exec 4>+VERSION; kill -ABRT $!; ";
    for (const std::string& held : {abort_once, abort_twice}) {
        settle();
        update("2024b");
        update("2024c");
        put("zoneinfo", "-> /var/db/timezone/tz/2024b/zoneinfo");
        put("icutz", "-> /var/db/timezone/tz/2024b/icutz");
        put("tz_latest", "-> /var/db/timezone/tz/2024c");
        put("localtime", "-> /usr/share/zoneinfo/Zone");
        EXPECT_EQ(start("cd /usr/share/zoneinfo.default; mv +VERSION text; mkfifo +VERSION pipe; " +
                        held + "wait $!; }"),
                  printed);
        const bool reset = held == abort_once;
        EXPECT_EQ(at("zoneinfo"), reset ? "-> /usr/share/zoneinfo.default"
                                        : "-> /var/db/timezone/tz/2024b/zoneinfo");
        EXPECT_EQ(at("icutz"), reset ? "nothing" : "-> /var/db/timezone/tz/2024b/icutz");
        EXPECT_EQ(at("localtime"), "-> /var/db/timezone/zoneinfo/Zone");
    }
}
