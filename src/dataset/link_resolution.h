#pragma once

#include <string>

// Which datasets the links below /var/db/timezone/ name. Nothing here looks at what a link's target
// holds, or whether it exists. Besides what is named here, only std::bad_alloc is thrown.
namespace quorrel
{

// Returns the target of tz_latest, the link to the newest installed update, unchanged and untested;
// empty when no update is installed. Prints and throws as fs::read_symlink does.
[[nodiscard]] std::string latest_update_path();

// Returns the path of the dataset in use: what dataset_path_from_link makes of the published
// zoneinfo link. Prints and throws as that and fs::read_symlink do.
[[nodiscard]] std::string current_dataset_path();

// Turns the target of a published zoneinfo link, a zoneinfo tree, into the path of the dataset that
// the tree belongs to: an update's directory, or the empty string for the system partition. Any
// other target prints "Bad zoneinfo link TARGET" and throws the int -1, which is no error number.
[[nodiscard]] std::string dataset_path_from_link(const std::string& target);

} // namespace quorrel
