// For test programs that start no thread, at which the thread sanitizer therefore does not look:
// one that starts a thread after all ends at once, and says so.
#include <pthread.h>

#include <cstdio>
#include <cstdlib>

// Stands in front of the system's own, also for the libraries that the program uses.
extern "C" int pthread_create(pthread_t* /*thread*/, const pthread_attr_t* /*attributes*/,
                              void* (*)(void*), void* /*argument*/) noexcept {
    std::fputs("a test has started a thread: its program must not say NO_THREADS\n", stderr);
    std::abort();
}
