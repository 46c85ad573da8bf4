#include "fs/primitives.h"

#include "file_tree.h"

#include <gtest/gtest.h>

#include <cerrno>

using namespace quorrel;

namespace
{

const std::string longest = std::string(1023, '/') + "a";

TEST(primitives, fail_with_one_warning_and_the_error_number)
{
    file_tree::clear();
    file_tree::file("/var/db/file", "content");
    const struct {
        std::function<void()> operation;
        int thrown;
        std::string warning;
    } cases[] = {
        {[] { fs::remove("/var/db/timezone"); }, EISDIR,
         "remove: could not remove /var/db/timezone\n"},
        {[] { fs::remove("/var/db/file/below"); }, ENOTDIR,
         "remove: could not remove /var/db/file/below\n"},
        {[] { (void)fs::read_symlink("/var/db/file"); }, EINVAL, "read_symlink: /var/db/file\n"},
        {[] { fs::create_symlink("/target", "/var/db/file"); }, EEXIST,
         "create_symlink: from /var/db/file to /target\n"},
        {[] { fs::create_symlink("/target", "/var/none/link"); }, ENOENT,
         "create_symlink: from /var/none/link to /target\n"},
    };
    for (const auto& c : cases) {
        int thrown = 0;
        const std::string printed = file_tree::warnings_of([&] {
            try {
                c.operation();
            } catch (int error) {
                thrown = error;
            }
        });
        EXPECT_EQ(printed, c.warning);
        EXPECT_EQ(thrown, c.thrown) << c.warning;
    }
    EXPECT_EQ(file_tree::at("/var/db/file"), "content");
}

TEST(primitives, tolerate_what_is_not_there_and_leave_targets_alone)
{
    file_tree::clear();
    file_tree::file("/var/db/file");
    file_tree::link("/var/db/long", longest + "cut");
    const std::string printed = file_tree::warnings_of([] {
        fs::remove("/var/db/none");
        fs::remove("/var/none/none");
        EXPECT_EQ(fs::read_symlink("/var/none/none"), "");
        EXPECT_EQ(fs::read_symlink("/var/db/long"), longest);
        fs::create_symlink("timezone/../file", "/var/db/link");
        EXPECT_EQ(fs::read_symlink("/var/db/link"), "timezone/../file");
        EXPECT_TRUE(fs::exists("/var/db/link"));
        fs::remove("/var/db/file");
        EXPECT_FALSE(fs::exists("/var/db/link")) << "it dangles now";
        fs::create_symlink("timezone", "/var/db/directory");
        fs::remove("/var/db/directory");
    });
    EXPECT_EQ(printed, "");
    EXPECT_EQ(file_tree::at("/var/db/directory"), "nothing");
    EXPECT_EQ(file_tree::at("/var/db/timezone"), "directory");
}

} // namespace
