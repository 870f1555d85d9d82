// A network of a test's own.
#pragma once

namespace quorvi {

// Moves the calling process, and what it starts from then on, into a network where nothing listens
// and only 127.0.0.1 exists, so that a test may use the suite's fixed ports whatever else runs on
// the machine. The agent's port is nobody's there who did not ask for it by number. Called before
// any other thread exists; a second call changes nothing. False where the system does not allow it:
// the process stays in the network it was in.
//
// A test program asks for it by OWN_NETWORK in its quorvi_test.
bool EnterPrivateNetwork();

}  // namespace quorvi
