// Places of a test program's own.
#pragma once

#include "tests/support/TemporaryFolder.h"

namespace quorvi {

// Gives the process, and what it starts from then on, a home, the folders for settings, data and
// caches, a run-time folder for sockets, and a temporary folder that no other process uses, so that
// tests which run side by side never meet in a file, and nothing of the user's is read or written.
// Made in main before any thread; all of it is gone when the object goes.
class OwnPlaces {
  public:
    OwnPlaces();

  private:
    TemporaryFolder folder_;
};

}  // namespace quorvi
