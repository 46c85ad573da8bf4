#include "components/kelvo_icu.h"
#include "components/kelvo_zoneinfo.h"

#include "file_tree.h"

#include <sys/stat.h>

using namespace quorrel;

TEST(components, are_compatible_if_their_icu_schemas_are_equal)
{
    const std::string update = "/var/db/timezone/tz/2022a", icutz = update + "/icutz/";
    const auto compare_with = [&](const std::string& schema) {
        std::string result;
        put("/usr/share/icu/icutzformat.txt", "\n\v\f\r\t " + schema);
        return warnings_of([&] {
                   result = kelvo_icu(update).compatible_schema(kelvo_icu()) ? "same" : "other";
               })
            .append(result);
    };
    fresh_disk();
    for (const std::string name :
         {"icutz44L.dat", "icutz.dat", "icutzl.dat", "icutz44x.dat", "icutz44le.dat",
          "icutz44lxdat", "xicutz44l.dat", "icutz44l.dat.bak", "icutz44l.dat/icutz44l.dat"})
        put(icutz + name, "");
    put("/var/elsewhere/icutz7e.dat", "");
    put(icutz + "icutz7e.dat", "-> /var/elsewhere/icutz7e.dat");
    put(icutz + "icutz0123b.dat", "");
    EXPECT_EQ(compare_with("0123b 1"), "same");
    chmod((icutz + "icutz0123b.dat").c_str(), 0640);
    EXPECT_EQ(compare_with(""), "No ICU schema found for ~/tz/2022a\nsame");
    put(update + "/icutz", "-> /var/elsewhere");
    EXPECT_EQ(compare_with("7e"), "same");
    EXPECT_EQ(compare_with("07e"), "other");

    EXPECT_TRUE(kelvo_zoneinfo().compatible_schema(kelvo_icu()));
    EXPECT_EQ(warnings_of([] { EXPECT_FALSE(kelvo_icu().compatible_schema(kelvo_zoneinfo())); }),
              "kelvo_icu::compatible_schema: could not dynamic_cast other component\n");
}

#ifdef __GLIBC__ // whose fts_open(3) takes no path of 64 KiB
TEST(components, throw_the_error_of_a_walk_that_cannot_begin)
{
    const std::string path(1 << 16, 'x'), error = "File name too long";
    EXPECT_EQ(warnings_of([&] { const kelvo_icu icu(path); }, with_error_texts),
              "tz_icu::initialize: fts_open of " + path + "/icutz failed, " + error + ": " + error +
                  "\nthrew " + error + "\n");
}
#endif
