#include "boot/protect_data_directories.h"

#include "fs/paths.h"
#include "platform/data_protection.h"

#include <fcntl.h>
#include <unistd.h>

namespace quorrel
{
namespace
{

void set_protection_class(const char* path) noexcept
{
    const int descriptor = open(path, O_RDONLY | O_CLOEXEC);
    if (descriptor < 0)
        return;
    fcntl(descriptor, set_protection_class_command, unprotected_class);
    close(descriptor);
}

} // namespace

void protect_data_directories() noexcept
{
    set_protection_class(paths::data_directory);
    set_protection_class(paths::update_directory);
}

} // namespace quorrel
