#include "disk.h"

#include "run.h"

#include <sys/stat.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

void fresh_disk(const std::string& in_use, const std::string& latest)
{
    umask(022);
    if (shell("$DISK plain '" + in_use + "' '" + latest + "'") != 0)
        std::exit(1);
}

void put(const std::string& name, const std::string& thing)
{
    const std::filesystem::path place = std::filesystem::path("/var/db/timezone") / name;
    create_directories(place.parent_path());
    remove_all(place);
    if (thing.starts_with("-> "))
        std::filesystem::create_symlink(thing.substr(3), place);
    else if (thing == directory)
        put(name + "/below", "");
    else if (thing == empty_directory)
        create_directory(place);
    else if (thing != nothing)
        std::ofstream(place) << thing;
}
