#pragma once

namespace quorrel
{

// The dataset phase: decides which dataset the system uses, and publishes it.
//
// The dataset in use stays, if it is compatible with the system partition and not older; else the
// system partition is published, and needs_cleanup created. Then the latest update is activated, if
// it is compatible with the system partition and newer than the dataset that was in use at the
// start. Activating it creates needs_cleanup if another update was in use until then, and writes
// TZVersionDiffRecord.
//
// Throws nothing. A failure anywhere, but for the marker's and the record's, ends with the system
// partition published; should that fail too, the links stay as that leaves them. Prints "Invalid
// current symlinks; resetting to system partition", "Symlink points at data incompatible with
// installed system", "New update not compatible or older version: LATEST vs. CURRENT" and "Unable
// to locate data; resetting to system partition", and what the operations that it calls print.
void select_dataset() noexcept;

} // namespace quorrel
