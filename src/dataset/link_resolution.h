#pragma once

#include <string>

// Which datasets the links in /var/db/timezone/ point to. Only a link's own text is read, never
// what is there. Anything here may also throw std::bad_alloc.
namespace quorrel
{

// Returns the target of tz_latest, the link to the newest installed update, unchanged and
// unchecked, or an empty string if there is no link. Warns and throws as fs::read_symlink does.
[[nodiscard]] std::string latest_update_path();

// Returns the path of the dataset in use: dataset_path_from_link of the zoneinfo link's target.
// Warns and throws as that function and fs::read_symlink do.
[[nodiscard]] std::string current_dataset_path();

// Returns the path of the dataset that the target of a zoneinfo link belongs to: the directory that
// holds an update's tree, or the empty path for the system partition's. Warns of any other target
// and throws the int -1, which is not an error number.
[[nodiscard]] std::string dataset_path_from_link(const std::string& target);

} // namespace quorrel
