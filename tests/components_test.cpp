#include "components/kelvo_icu.h"
#include "components/kelvo_zoneinfo.h"

#include "file_tree.h"

#include <filesystem>

using namespace quorrel;

TEST(kelvo_icu, schema_is_in_the_name_of_a_public_regular_file)
{
    settle();
    const std::string path = "/var/db/timezone/tz/2024b", directory = path + "/icutz/";
    const auto expect_schema = [&](const std::string& schema) {
        put("/usr/share/icu/icutzformat.txt", "\n\v\f\r\t " + schema + " 1");
        const auto find = [&] { EXPECT_TRUE(kelvo_icu(path).compatible_schema(kelvo_icu())); };
        EXPECT_EQ(outcome_of(find), "");
    };
    const auto expect_none = [&] {
        const auto find = [&] { EXPECT_FALSE(kelvo_icu(path).compatible_schema(kelvo_icu())); };
        EXPECT_EQ(outcome_of(find), "No ICU schema found for " + path + "\n");
    };
    for (const std::string name : {"44L.dat", ".dat", "l.dat", "44x.dat", "44le.dat", "44lxdat",
                                   "44l.dat.bak", "44l.dat/icutz44l.dat"})
        put(directory + "icutz" + name, "");
    put(directory + "xicutz44l.dat", "");
    put("/var/elsewhere/icutz7e.dat", "");
    put(directory + "icutz7e.dat", "-> /var/elsewhere/icutz7e.dat");
    put(directory + "icutz0123b.dat", "");
    expect_schema("0123b");
    std::filesystem::permissions(directory + "icutz0123b.dat", std::filesystem::perms(0640));
    expect_none();
    put(path + "/icutz", "-> /var/elsewhere");
    expect_schema("7e");
}

TEST(kelvo_icu, is_incompatible_with_another_component)
{
    EXPECT_TRUE(kelvo_zoneinfo().compatible_schema(kelvo_icu()));
    EXPECT_EQ(outcome_of([] { EXPECT_FALSE(kelvo_icu().compatible_schema(kelvo_zoneinfo())); }),
              "kelvo_icu::compatible_schema: could not dynamic_cast other component\n");
}
