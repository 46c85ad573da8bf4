#include "components/kelvo_icu.h"
#include "components/kelvo_zoneinfo.h"

#include "file_tree.h"

#include <sys/stat.h>

using namespace quorrel;

TEST(components, are_compatible_if_no_icu_schema_differs)
{
    settle();
    const auto compare_with = [](const std::string& schema) {
        put("/usr/share/icu/icutzformat.txt", "\n\v\f\r\t " + schema + " 1");
        bool same = false;
        const auto compare = [&] {
            same = kelvo_icu("/var/db/timezone/tz/2024b").compatible_schema(kelvo_icu());
        };
        const std::string printed = outcome_of(compare);
        return printed + (same ? "same" : "other");
    };
    for (const std::string name :
         {"icutz44L.dat", "icutz.dat", "icutzl.dat", "icutz44x.dat", "icutz44le.dat",
          "icutz44lxdat", "xicutz44l.dat", "icutz44l.dat.bak", "icutz44l.dat/icutz44l.dat"})
        put("tz/2024b/icutz/" + name, "");
    put("tz/2024b/icutz/icutz7e.dat", "-> /var/elsewhere/icutz7e.dat");
    put("/var/elsewhere/icutz7e.dat", "");
    put("tz/2024b/icutz/icutz0123b.dat", "");
    EXPECT_EQ(compare_with("0123b"), "same");
    ASSERT_EQ(chmod("/var/db/timezone/tz/2024b/icutz/icutz0123b.dat", 0640), 0);
    EXPECT_EQ(compare_with(""), "No ICU schema found for /var/db/timezone/tz/2024b\nother");
    put("tz/2024b/icutz", "-> /var/elsewhere");
    EXPECT_EQ(compare_with("7e"), "same");
    EXPECT_EQ(compare_with("07e"), "other");

    EXPECT_TRUE(kelvo_zoneinfo().compatible_schema(kelvo_icu()));
    EXPECT_EQ(outcome_of([] { EXPECT_FALSE(kelvo_icu().compatible_schema(kelvo_zoneinfo())); }),
              "kelvo_icu::compatible_schema: could not dynamic_cast other component\n");
}
