#include "online/LinkResolver.h"

#include <algorithm>
#include <utility>

#include "base/Json.h"
#include "base/PackageName.h"
#include "base/Text.h"
#include "download/HttpUrl.h"
#include "online/ServiceRequest.h"

namespace quorvi {

ResolvedPackage ReadLinkAnswer(std::string_view answer, std::string_view downloadRoot) {
    const auto document = ParseFirstJson(answer);
    if (!document || !document->isObject()) {
        return {};
    }
    ResolvedPackage resolved;
    CDownloadTask& task = resolved.task;
    task.title = TextMember(*document, "title");
    task.url = std::string(downloadRoot).append(TextMember(*document, "url"));
    std::string package = TextMember(*document, "pkg");
    if (!IsPackageName(package)) {
        resolved.outcome = ResolveOutcome::noPackageName;
        return resolved;
    }
    if (ParseHttpUrl(task.url).server.empty()) {
        resolved.outcome = ResolveOutcome::wrongAddress;
        return resolved;
    }
    task.length = TextMember(*document, "size");
    task.uniqueId = std::move(package);
    resolved.outcome = ResolveOutcome::resolved;
    return resolved;
}

ResolvedPackage ResolvePackage(const Deployment& deployment, std::string_view package,
                               const HttpLimits& limits) {
    if (!IsPackageName(package)) {
        return {.outcome = ResolveOutcome::noPackageName, .task = {}};
    }
    HttpLimits bounded = limits;
    bounded.reply = std::min(bounded.reply, kMostLinkAnswer);
    return ReadLinkAnswer(
        AskService(deployment, kStoreLinkService, StoreLinkDocument(package), bounded),
        deployment.downloadRoot);
}

std::string ResolveStatus(const ResolvedPackage& resolved) {
    switch (resolved.outcome) {
        case ResolveOutcome::resolved:
            return Ansi(u8"【+】下载 ").append(resolved.task.title);
        case ResolveOutcome::noPackageName:
            return Ansi(u8"【错误】应用的包名不正确，没有添加任务，请换一个应用下载");
        case ResolveOutcome::wrongAddress:
            return Ansi(u8"【错误】没有添加任务：")
                .append(resolved.task.title)
                .append(Ansi(u8"，只能从http地址下载，请换一个应用下载"));
        case ResolveOutcome::noAnswer:
            break;
    }
    return {};
}

}  // namespace quorvi
