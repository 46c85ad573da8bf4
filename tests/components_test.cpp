#include "components/kelvo_icu.h"
#include "components/kelvo_zoneinfo.h"

#include "file_tree.h"

#include <gtest/gtest.h>

using namespace quorrel;

namespace
{

TEST(kelvo_zoneinfo, release_is_the_first_word_of_its_version_file)
{
    file_tree::clear();
    const std::string version_file = "/usr/share/zoneinfo.default/+VERSION";
    const auto release = [] { return kelvo_zoneinfo().release(); };
    EXPECT_EQ(file_tree::warnings_of([&] { EXPECT_EQ(release(), ""); }), "");
    for (const std::string content : {"2021a\n", "\n\v\f\r\t 2021a extra\n", "2021a"}) {
        file_tree::file(version_file, content);
        EXPECT_EQ(release(), "2021a");
    }
    file_tree::file(version_file, " \n");
    EXPECT_EQ(release(), "");
    file_tree::file(version_file + "/below");
    EXPECT_EQ(file_tree::warnings_of([&] { EXPECT_EQ(release(), ""); }), "");
}

TEST(kelvo_zoneinfo, publishes_its_link_over_an_older_one)
{
    file_tree::clear();
    const std::string link = "/var/db/timezone/zoneinfo";
    const auto publish = [](const std::string& path) {
        return file_tree::warnings_of([&] { kelvo_zoneinfo(path).publish_link(); });
    };
    EXPECT_EQ(publish(""), "");
    EXPECT_EQ(file_tree::at(link), "-> /usr/share/zoneinfo.default");
    EXPECT_EQ(publish("/var/db/timezone/tz/2021a.1.0"), "");
    EXPECT_EQ(file_tree::at(link), "-> /var/db/timezone/tz/2021a.1.0/zoneinfo");
    file_tree::file(link + "/below");
    EXPECT_EQ(file_tree::warnings_of([] { EXPECT_THROW(kelvo_zoneinfo().publish_link(), int); }),
              "remove: could not remove /var/db/timezone/zoneinfo\n"
              "Unlink of zoneinfo softlink failed\n"
              "create_symlink: from /var/db/timezone/zoneinfo to /usr/share/zoneinfo.default\n");
}

TEST(kelvo_icu, schema_is_in_the_name_of_a_public_regular_file_of_the_directory)
{
    const std::string update = "/var/db/timezone/tz/2021a.1.0", directory = update + "/icutz/";
    const std::string none = "No ICU schema found for " + update + "\n";
    const struct {
        std::string name;
        mode_t mode;
        std::string schema, printed;
    } cases[] = {
        {"icutz44l.dat", 0644, "44l", ""},      {"icutz0123b.dat", 0004, "0123b", ""},
        {"icutz7e.dat", 0644, "7e", ""},        {"icutz44l.dat", 0640, "", none},
        {"icutz44L.dat", 0644, "", none},       {"icutz.dat", 0644, "", none},
        {"icutzl.dat", 0644, "", none},         {"icutz44x.dat", 0644, "", none},
        {"icutz44le.dat", 0644, "", none},      {"xicutz44l.dat", 0644, "", none},
        {"icutz44l.dat.bak", 0644, "", none},   {"icutz44lxdat", 0644, "", none},
        {"below/icutz44l.dat", 0644, "", none}, {"icutz44l.dat/below", 0644, "", none},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        file_tree::clear();
        file_tree::system_partition("2021a", c.schema);
        file_tree::file(directory + c.name, "", c.mode);
        const auto compare = [&] { EXPECT_TRUE(kelvo_icu(update).compatible_schema(kelvo_icu())); };
        EXPECT_EQ(file_tree::warnings_of(compare), c.printed);
    }
    file_tree::file("/var/db/elsewhere/icutz44l.dat");
    file_tree::link(directory + "icutz44l.dat", "/var/db/elsewhere/icutz44l.dat");
    EXPECT_EQ(file_tree::warnings_of([&] { kelvo_icu icu(update); }), none);
    file_tree::link(update + "/icutz", "/var/db/elsewhere");
    EXPECT_EQ(file_tree::warnings_of([&] { kelvo_icu icu(update); }), "");
}

TEST(kelvo_icu, is_compatible_with_the_very_same_schema_only)
{
    file_tree::clear();
    file_tree::update("2021a.1.0");
    const kelvo_icu update("/var/db/timezone/tz/2021a.1.0");
    for (const std::string schema : {"44b", "044l", "44", "44l2", ""}) {
        file_tree::system_partition("2021a", schema);
        EXPECT_FALSE(update.compatible_schema(kelvo_icu())) << schema;
    }
    const auto compare = [&] {
        EXPECT_FALSE(update.compatible_schema(kelvo_zoneinfo()));
        EXPECT_TRUE(kelvo_zoneinfo().compatible_schema(update));
    };
    EXPECT_EQ(file_tree::warnings_of(compare),
              "kelvo_icu::compatible_schema: could not dynamic_cast other component\n");
}

TEST(kelvo_icu, publishing_removes_both_links_and_makes_one_for_an_update)
{
    file_tree::clear();
    file_tree::update("2021a.1.0");
    const std::string link = "/var/db/timezone/icutz", older_link = "/var/db/icutz";
    const kelvo_icu update("/var/db/timezone/tz/2021a.1.0");
    for (const std::string kept : {"-> /var/db/timezone/tz/2021a.1.0/icutz", "nothing"}) {
        file_tree::link(link, "/old");
        file_tree::link(older_link, "/older");
        const auto publish = [&] {
            kept == "nothing" ? kelvo_icu().publish_link() : update.publish_link();
        };
        EXPECT_EQ(file_tree::warnings_of(publish), "");
        EXPECT_EQ(file_tree::at(link), kept);
        EXPECT_EQ(file_tree::at(older_link), "nothing");
    }
    file_tree::link(older_link, "/older");
    file_tree::file(link + "/below");
    EXPECT_EQ(file_tree::warnings_of([&] { EXPECT_THROW(update.publish_link(), int); }),
              "remove: could not remove /var/db/timezone/icutz\n"
              "unlink of ICU softlink failed\n"
              "create_symlink: from /var/db/timezone/icutz to "
              "/var/db/timezone/tz/2021a.1.0/icutz\n");
    EXPECT_EQ(file_tree::at(older_link), "-> /older") << "the first failure ends the removals";
}

} // namespace
