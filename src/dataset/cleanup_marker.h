#pragma once

namespace quorrel
{

// Creates the marker needs_cleanup, which tells the update agent that an update was given up or
// replaced. A marker that is already there is left as it is. Uses open_dprotected_np, fstat(2) and
// close(2); warns if one of them fails. Throws nothing.
void touch_needs_cleanup() noexcept;

} // namespace quorrel
