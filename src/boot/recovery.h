#pragma once

namespace quorrel
{

// Keeps signals from ending the start: from now on SIGABRT is answered as `attempt` says, and
// outside of any step ends the process with status 0. SIGPIPE and SIGXFSZ are ignored, so that a
// closed pipe or a file-size limit only fails a write(2). Uses sigaction(2); warns and throws
// nothing.
void survive_signals() noexcept;

// Runs a step of the start and returns true; returns false if the step called abort(3), as the C++
// runtime does where it cannot go on: no memory even for an exception, or a refused system call
// that it relies on. What the aborted step held, memory and open files, stays allocated until the
// process ends. Uses sigsetjmp(3); warns and throws nothing itself.
bool attempt(void (*step)() noexcept) noexcept;

} // namespace quorrel
