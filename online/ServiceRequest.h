// The services of the site: where they are, and what is asked of them.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "base/Deployment.h"
#include "online/DeviceIdentity.h"
#include "online/HttpTransfer.h"

namespace quorvi {

// The four texts put together.
[[nodiscard]] std::string BuildServiceUrl(std::string_view host, std::string_view directory,
                                          std::string_view name, std::string_view extension);

// A service, and the one field of its form, which holds a JSON document.
struct Service {
    std::string_view name;
    std::string_view field;
};
inline constexpr Service kStoreLinkService{"android_info", "apk"};
inline constexpr Service kStoreCheckService{"apk_list", "apps"};
inline constexpr Service kFeedbackService{"feedback", "feedback"};

[[nodiscard]] std::string ServiceUrl(const Deployment& deployment, const Service& service);

// The documents, in UTF-8 and in the JSON library's styled form. Texts that come in are ANSI.
[[nodiscard]] std::string StoreLinkDocument(std::string_view package);
[[nodiscard]] std::string StoreCheckDocument(const DeviceIdentity& identity,
                                             std::span<const std::string> packages);

// Posts the document to the service and gives the reply, in UTF-8; see CHttpForm::Post. Waits.
[[nodiscard]] std::string AskService(const Deployment& deployment, const Service& service,
                                     std::string_view document, const HttpLimits& limits = {});

}  // namespace quorvi
