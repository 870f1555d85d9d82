#include "base/Deployment.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <fstream>
#include <iterator>

#include "base/CodePageChoice.h"
#include "base/Json.h"
#include "base/Places.h"

namespace quorvi {
namespace {

enum class Kind { root, host, link };

struct Member {
    const char* name;
    std::string Deployment::*value;
    Kind kind;
};

// The members of the document.
constexpr std::array<Member, 8> kMembers{{
    {"site", &Deployment::siteRoot, Kind::root},
    {"store", &Deployment::storeRoot, Kind::root},
    {"download", &Deployment::downloadRoot, Kind::root},
    {"weather", &Deployment::weatherHost, Kind::host},
    {"contact_mail", &Deployment::contactMail, Kind::link},
    {"forum", &Deployment::forumLink, Kind::link},
    {"social", &Deployment::socialLink, Kind::link},
    {"help", &Deployment::helpLink, Kind::link},
}};

bool IsPrintableAscii(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return c > ' ' && c < '\x7F'; });
}

bool IsWebAddress(std::string_view text) {
    return text.starts_with("http://") || text.starts_with("https://");
}

bool IsUsable(std::string_view text, Kind kind) {
    if (text.empty() || !IsPrintableAscii(text)) {
        return false;
    }
    switch (kind) {
        case Kind::root:
            return IsWebAddress(text);
        case Kind::host:
            return text.find('/') == std::string_view::npos;
        case Kind::link:
            return IsWebAddress(text) || text.starts_with("mailto:");
    }
    return false;
}

void Complain(std::string& complaint, std::string_view about) {
    complaint.append(complaint.empty() ? "" : ", ").append(about);
}

}  // namespace

Deployment ParseDeployment(std::string_view utf8, std::string& complaint) {
    Deployment deployment;
    const auto document = ParseJson(utf8);
    if (!document || !document->isObject()) {
        Complain(complaint, "not a JSON object");
        return deployment;
    }
    for (const Member& member : kMembers) {
        if (!document->isMember(member.name)) {
            continue;
        }
        std::string text = TextMember(*document, member.name);
        if (!IsUsable(text, member.kind)) {
            Complain(complaint, std::string("unusable value of ") + member.name);
            continue;
        }
        if (member.kind == Kind::root && !text.ends_with('/')) {
            text += '/';
        }
        deployment.*member.value = std::move(text);
    }
    if (document->isMember("code_page")) {
        if (const auto codePage = CodePageOfName(TextMember(*document, "code_page"))) {
            deployment.codePage = *codePage;
        } else {
            Complain(complaint, "unusable value of code_page");
        }
    }
    return deployment;
}

Deployment ReadDeployment(const std::filesystem::path& file) {
    std::string complaint;
    Deployment deployment;
    if (std::ifstream stream(file, std::ios::binary); stream) {
        const std::string text{std::istreambuf_iterator<char>(stream), {}};
        deployment = ParseDeployment(text, complaint);
    } else {
        complaint = "cannot be read";
    }
    if (!complaint.empty()) {
        std::fprintf(stderr, "%s: %s; placeholders are used\n", file.c_str(), complaint.c_str());
    }
    return deployment;
}

const Deployment& TheDeployment() {
    static const Deployment deployment = ReadDeployment(ThePlaces().DeploymentFile());
    return deployment;
}

}  // namespace quorvi
