#include "fs/primitives.h"

#include "file_tree.h"

using namespace quorrel;

TEST(primitives, fail_with_one_warning_and_the_error_number)
{
    file_tree::settle();
    const std::pair<std::function<void()>, std::string> cases[] = {
        {[] { fs::remove("/var/db"); }, "remove: could not remove /var/db\nthrew 21\n"},
        {[] { (void)fs::read_symlink("/var/db"); }, "read_symlink: /var/db\nthrew 22\n"},
        {[] { fs::create_symlink("a", "/var"); }, "create_symlink: from /var to a\nthrew 17\n"},
        {[] { fs::create_symlink("a", "/no/b"); }, "create_symlink: from /no/b to a\nthrew 2\n"},
    };
    for (const auto& [failure, outcome] : cases)
        EXPECT_EQ(file_tree::outcome_of(failure), outcome);
}

TEST(primitives, tolerate_what_is_not_there_and_do_not_follow)
{
    file_tree::settle();
    const std::string link = "/var/db/link", longest = "timezone" + std::string(1016, '/');
    const auto work = [&] {
        fs::remove("/var/no/link");
        EXPECT_EQ(fs::read_symlink("/var/no/link"), "");
        file_tree::put(link, "-> " + longest + "no");
        EXPECT_EQ(fs::read_symlink(link), longest);
        EXPECT_FALSE(fs::exists(link));
        fs::remove(link);
        fs::create_symlink("timezone", link);
        EXPECT_TRUE(fs::exists(link));
        fs::remove(link);
    };
    EXPECT_EQ(file_tree::outcome_of(work), "");
    EXPECT_EQ(file_tree::at("/var/db/timezone"), "directory");
}
