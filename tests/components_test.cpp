#include "components/kelvo_icu.h"
#include "components/kelvo_zoneinfo.h"

#include "file_tree.h"

#include <filesystem>

using namespace quorrel;

TEST(kelvo_zoneinfo, release_is_the_first_word_of_its_version_file)
{
    file_tree::settle();
    for (const std::string content : {"2021a", "\n\v\f\r\t 2021a extra\n", "directory", " \n"}) {
        file_tree::put("/usr/share/zoneinfo.default/+VERSION", content);
        std::string release;
        EXPECT_EQ(file_tree::outcome_of([&] { release = kelvo_zoneinfo().release(); }), "");
        EXPECT_EQ(release, content.find("2021a") == std::string::npos ? "" : "2021a") << content;
    }
}

TEST(kelvo_icu, schema_is_in_the_name_of_a_public_regular_file)
{
    const auto judge = [](const std::string& name, const std::string& thing = "file",
                          const std::string& schema = "44l", unsigned mode = 0604) {
        file_tree::settle();
        file_tree::put("/usr/share/icu/icutzformat.txt", schema);
        file_tree::put("/var/db/elsewhere/icutz44l.dat", "file");
        const std::string path = "/var/db/timezone/tz/2024b";
        file_tree::put(path + "/icutz" + name, thing);
        if (thing == "file")
            std::filesystem::permissions(path + "/icutz" + name, std::filesystem::perms(mode));
        return file_tree::outcome_of(
            [&] { throw kelvo_icu(path).compatible_schema(kelvo_icu()) ? 1 : 0; });
    };
    const std::string none = "No ICU schema found for /var/db/timezone/tz/2024b\n",
                      yes = "threw 1\n";
    for (const std::string schema : {"44l", "0123b", "7e"})
        EXPECT_EQ(judge("/icutz" + schema + ".dat", "file", schema), yes) << schema;
    for (const std::string schema : {"44b", "044l", "44", "44l2", ""})
        EXPECT_EQ(judge("/icutz44l.dat", "file", schema), "threw 0\n") << schema;
    for (const std::string name :
         {"icutz44L.dat", "icutz.dat", "icutzl.dat", "icutz44x.dat", "icutz44le.dat",
          "xicutz44l.dat", "icutz44l.dat.bak", "icutz44lxdat", "below/icutz44l.dat"})
        EXPECT_EQ(judge("/" + name, "file", ""), none + yes) << name;
    EXPECT_EQ(judge("/icutz44l.dat", "directory", ""), none + yes);
    EXPECT_EQ(judge("/icutz44l.dat", "-> /var/db/elsewhere/icutz44l.dat", ""), none + yes);
    EXPECT_EQ(judge("/icutz44l.dat", "file", "", 0640), none + yes);
    EXPECT_EQ(judge("", "-> /var/db/elsewhere"), yes);
}

TEST(kelvo_icu, is_incompatible_with_other_components)
{
    file_tree::settle();
    EXPECT_TRUE(kelvo_zoneinfo().compatible_schema(kelvo_icu()));
    const auto compare = [] { EXPECT_FALSE(kelvo_icu().compatible_schema(kelvo_zoneinfo())); };
    EXPECT_EQ(file_tree::outcome_of(compare),
              "kelvo_icu::compatible_schema: could not dynamic_cast other component\n");
}
