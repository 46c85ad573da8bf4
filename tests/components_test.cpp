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

} // namespace
