// Finding the store's semaphore set, or creating it and giving it its value.
// Creating is two steps (semget, then SETVAL to 1), and a creator can die
// between them: the set then stays at 0 and every lock would wait forever.
// The other processes therefore wait for a set to have been given its value
// before they use it, and replace one that was abandoned unvalued.
#pragma once

namespace gv::onuopt {

// How long a process waits for a set's creator to give it its value before it
// takes the creator for dead. Two system calls apart, a live creator is well
// inside it; a creator stopped longer than this is taken for dead.
inline constexpr unsigned kCreatorGraceMs = 1000;

struct SemaphoreSetUp {
    int sem_id = -1;
    const char *failure = nullptr; // when sem_id < 0: the text to print before errno's
};

// The set's id once it has its value, or the failure with errno set.
SemaphoreSetUp set_up_semaphore() noexcept;

} // namespace gv::onuopt
