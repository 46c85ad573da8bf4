#pragma once

namespace quorrel
{

// Creates the marker needs_cleanup, which tells the update agent that data is out of use, unless it
// is there already, and then leaves it as it is. Rests on open_dprotected_np, fstat(2) and
// close(2); when one of them fails, prints "Cannot touch file PATH" with that call's error. Throws
// nothing.
void touch_needs_cleanup() noexcept;

} // namespace quorrel
