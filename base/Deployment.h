// The values that a deployment of the suite chooses: hosts, contact links, and the code page.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "base/Text.h"

namespace quorvi {

// Texts are ASCII. As default constructed: the placeholders, all under example domains.
struct Deployment {
    // Roots of the services, each with a slash at its end: paths are put right behind them.
    std::string siteRoot = "http://www.quorvi.example/";
    std::string storeRoot = "http://store.quorvi.example/";
    std::string downloadRoot = "http://download.quorvi.example/";
    // A host alone, as it stands between "http://" and "/data/".
    std::string weatherHost = "weather.quorvi.example";

    // Where the help page's links lead.
    std::string contactMail = "mailto:support@quorvi.example";
    std::string forumLink = "http://bbs.quorvi.example/";
    std::string socialLink = "http://social.quorvi.example/quorvi";
    std::string helpLink = "http://help.quorvi.example/";

    // The code page of text in memory, where the user has chosen none.
    CodePage codePage = CodePage::gbk;
};

// The program's own: read from the delivered Data/deployment.json, or from the file that the
// environment tells in its place (Places::DeploymentFile), at the first call, then kept. Any
// thread.
[[nodiscard]] const Deployment& TheDeployment();

// The values of one file. Never fails: where the file is missing or broken, or a value in it is not
// usable, the placeholder holds and one line on standard error, the debug channel, says so. Members
// that the file leaves out keep their placeholders silently.
[[nodiscard]] Deployment ReadDeployment(const std::filesystem::path& file);

// What ReadDeployment makes of a file's text; `complaint`, ASCII, stays empty when all is well.
[[nodiscard]] Deployment ParseDeployment(std::string_view utf8, std::string& complaint);

}  // namespace quorvi
