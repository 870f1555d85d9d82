// What is done with an application, and what the phone says of itself to the store.
#pragma once

#include <string_view>

#include "agent/AgentSession.h"
#include "agent/Request.h"
#include "online/ServiceRequest.h"

namespace quorvi {

// Whether a name has the form of a package's name: letters, digits, '_' and '.', at least one. No
// other name that a phone sends becomes an argument of adb.
[[nodiscard]] bool IsPackageName(std::string_view name);

// The request of command 870805, which starts an application. Its frame stands apart: the count
// comes before the length, and the name goes out as it stands, without the way to UTF-8. Kept on
// purpose: agents have always been sent these bytes (RunApplicationRequestTest.HasItsOwnFrame).
[[nodiscard]] Bytes RunApplicationRequest(std::string_view package);

// Reads what the phone is out of the reply of command 870002. A model that is absent leaves the one
// before. Any thread.
void ParseDeviceIdentity(const ReplyBuffer& reply, DeviceIdentity& identity);

// One session that reads it; without data all stays as it is. Any thread.
SessionOutcome ReadDeviceIdentity(const AgentSession& session, DeviceIdentity& identity);

}  // namespace quorvi
