// Reads any text as a document from outside, and as the deployment's file.
#include <cstdint>
#include <cstdlib>
#include <string>

#include "base/Deployment.h"
#include "base/Json.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    if (const auto document = quorvi::ParseJson(text)) {
        static_cast<void>(quorvi::TextMember(*document, "title"));
        static_cast<void>(quorvi::WriteJson(*document, quorvi::JsonForm::oneLine));
    }
    std::string complaint;
    const quorvi::Deployment deployment = quorvi::ParseDeployment(text, complaint);
    if (deployment.siteRoot.empty() || deployment.siteRoot.back() != '/') {
        std::abort();
    }
    return 0;
}
