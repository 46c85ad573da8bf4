#pragma once

namespace quorrel
{

// The marker needs_cleanup tells the update agent that the last run took an update out of use.

// Deletes the marker of an earlier run. Has to run before select_dataset, which may create it
// again. Warns of nothing and throws nothing, even if the marker cannot be deleted.
void delete_cleanup_marker() noexcept;

// Creates the marker, readable and writable at all times. A marker that is already there is left as
// it is. Warns if the marker cannot be opened, examined or closed. Throws nothing.
void touch_needs_cleanup() noexcept;

} // namespace quorrel
