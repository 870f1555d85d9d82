#include "online/ServiceRequest.h"

#include <fmt/format.h>

#include "base/Json.h"
#include "online/CheckSum.h"
#include "online/HttpForm.h"

namespace quorvi {

std::string BuildServiceUrl(std::string_view host, std::string_view directory,
                            std::string_view name, std::string_view extension) {
    return fmt::format("{}{}{}{}", host, directory, name, extension);
}

std::string ServiceUrl(const Deployment& deployment, const Service& service) {
    return BuildServiceUrl(deployment.siteRoot, "feedback/", service.name, ".php");
}

std::string StoreLinkDocument(std::string_view package) {
    Json::Value document;
    document["CheckSum"] = StoreLinkCheckSum(package);
    document["PackageName"] = JsonText(package);
    return WriteJson(document, JsonForm::styled);
}

std::string StoreCheckDocument(const DeviceIdentity& identity,
                               std::span<const std::string> packages) {
    Json::Value document;
    document["CheckSum"] = StoreCheckCheckSum(packages);
    document["Client"] = identity.client;
    document["Api"] = identity.api;
    document["Model"] = JsonText(identity.model);
    Json::Value& names = document["PackageName"] = Json::Value(Json::arrayValue);
    for (const std::string& package : packages) {
        names.append(JsonText(package));
    }
    return WriteJson(document, JsonForm::styled);
}

std::string AskService(const Deployment& deployment, const Service& service,
                       std::string_view document, const HttpLimits& limits) {
    CHttpForm form(limits);
    form.AddField(service.field, document);
    return form.Post(ServiceUrl(deployment, service));
}

}  // namespace quorvi
