#pragma once

namespace quorrel
{

// Puts /var/db/timezone/ and /var/db/timezone/tz/ in the protection class that leaves them readable
// and writable at all times. Does nothing for a missing directory or on a system without protection
// classes. Warns of nothing and throws nothing.
void protect_data_directories() noexcept;

} // namespace quorrel
