// Reads what a phone says of itself out of any bytes, whole or cut, and writes it for the site.
//
// Input: see FuzzReplyOf.h.
#include <cstdlib>

#include "base/Json.h"
#include "fuzz/agent/FuzzReplyOf.h"
#include "online/ServiceRequest.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto reply = quorvi::fuzz::ReplyOf({data, size});
    if (!reply) {
        return 0;
    }
    quorvi::DeviceIdentity identity;
    quorvi::ParseDeviceIdentity(*reply, identity);
    const auto document = quorvi::ParseJson(quorvi::StoreCheckDocument(identity, {}));
    if (!document || (*document)["Client"].asInt() != identity.client) {
        std::abort();
    }
    return 0;
}
