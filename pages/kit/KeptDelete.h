// Deletes that can be taken back: what goes from the phone is written to the PC first.
#pragma once

#include <functional>

#include "agent/AgentSession.h"
#include "backup/KeepAndDelete.h"
#include "ui/page/Page.h"

namespace quorvi {

// A delete that the user wants.
struct KeptDelete {
    PageHost& host;
    QWidget& window;    // over which is asked
    QWidget& controls;  // of it, disabled while the delete is on its way
    AgentAddress agent;
    FindGoing find;
    Bytes request;
    std::function<void(const AcknowledgedReply& reply)> done;
};

// Keeps what will go (DeletedItems, in the user's data folder), then sends the request, and calls
// `done`. Where not all of it can be kept, it asks once more and says why: the phone is not
// touched, and `done` not called, unless the user wants it all the same. What was kept is forgotten
// when the phone was not reached, or when the user leaves it. A connection that is not to be had,
// for either step, is shown in the status. The window's thread.
void SendKeptDelete(KeptDelete deletion);

}  // namespace quorvi
