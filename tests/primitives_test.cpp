#include "fs/primitives.h"

#include "file_tree.h"

using namespace quorrel;

TEST(primitives, fail_with_one_warning_and_the_error_number)
{
    settle();
    const std::pair<std::function<void()>, std::string> cases[] = {
        {[] { fs::remove("/var/db"); },
         "remove: could not remove /var/db: Is a directory\nthrew 21\n"},
        {[] { (void)fs::read_symlink("/var"); },
         "read_symlink: /var: Invalid argument\nthrew 22\n"},
        {[] { fs::create_symlink("a", "/var"); },
         "create_symlink: from /var to a: File exists\nthrew 17\n"},
        {[] { fs::create_symlink("a", "/no/b"); },
         "create_symlink: from /no/b to a: No such file or directory\nthrew 2\n"},
    };
    for (const auto& [failure, outcome] : cases)
        EXPECT_EQ(outcome_of(failure, true), outcome);

    const std::string longest(1024, 'x');
    put("/var/link", "-> " + longest + "cut");
    EXPECT_EQ(fs::read_symlink("/var/link"), longest);
}
