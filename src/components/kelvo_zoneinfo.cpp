#include "components/kelvo_zoneinfo.h"

#include "fs/paths.h"
#include "fs/primitives.h"
#include "fs/small_file.h"

#include <err.h>

namespace quorrel
{

kelvo_zoneinfo::kelvo_zoneinfo(const std::string& path)
    : kelvo_dataset_component(path),
      zoneinfo_dir(path.empty() ? paths::system_zoneinfo : path + paths::update_zoneinfo),
      release_(fs::first_word(zoneinfo_dir + paths::release_file))
{
}

bool kelvo_zoneinfo::compatible_schema(const kelvo_dataset_component& /*other*/) const
{
    return true;
}

void kelvo_zoneinfo::publish_link() const
{
    const std::string link = paths::zoneinfo_link;
    try {
        fs::remove(link);
    } catch (...) {
        // If the old link blocks the new one, create_symlink reports it.
        warn("Unlink of zoneinfo softlink failed");
    }
    fs::create_symlink(zoneinfo_dir, link);
}

} // namespace quorrel
