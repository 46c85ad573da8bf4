#pragma once

namespace quorrel
{

// Keeps signals from ending the start. SIGPIPE and SIGXFSZ are ignored, so that a closed pipe or a
// file-size limit only fails a write(2). SIGABRT is unblocked: an abort in a step makes `attempt`
// return false, and outside of any step it ends the process with status 0. An exception that nobody
// catches aborts without a message. Uses sigaction(2) and sigprocmask(2); warns and throws nothing.
void survive_signals() noexcept;

// Runs a step of the start and returns true; returns false if the step called abort(3), as the C
// and C++ libraries do where they cannot go on: no memory even for an exception, or a refused
// system call that they rely on. What the aborted step held, memory and open files, stays allocated
// until the process ends. Uses sigsetjmp(3); warns and throws nothing itself.
bool attempt(void (*step)() noexcept) noexcept;

} // namespace quorrel
