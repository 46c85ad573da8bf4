#pragma once

namespace quorrel
{

// Gives /var/db/timezone/ and /var/db/timezone/tz/ the protection class without data protection, so
// that both can be read and written at all times. Rests on fcntl(2); where a directory is missing
// or the system has no protection classes, it stays as it is. Prints and throws nothing.
void protect_data_directories() noexcept;

} // namespace quorrel
