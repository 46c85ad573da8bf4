#pragma once

namespace quorrel
{

// Makes sure that the localtime link points into the published zoneinfo tree. A link whose target
// begins with the tree's path is left alone, even if its zone does not exist. A link into the
// legacy tree is corrected if the corrected target exists. Anything else is replaced by a link to
// America/Los_Angeles, except a non-empty directory.
//
// Has to run after select_dataset: a corrected target is looked up through the zoneinfo link. Warns
// before it corrects or resets the link, and if that fails. Throws nothing.
void repair_localtime_link() noexcept;

} // namespace quorrel
