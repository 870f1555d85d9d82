// The command line of quorvi-site, and the deployment that it writes.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "base/Deployment.h"
#include "site/SampleServer.h"

namespace quorvi::site {

struct CommandLine {
    ServerOptions server;
    std::filesystem::path deployment;  // the file to write; empty: none
    bool help = false;
    std::string error;  // why the line cannot be used; empty when it can
};

// The program's name is not among the words.
[[nodiscard]] CommandLine ParseCommandLine(const std::vector<std::string>& words);

[[nodiscard]] std::string HelpText();

// A deployment as its file holds it: ParseDeployment reads the same values out of it.
[[nodiscard]] std::string DeploymentDocument(const Deployment& deployment);

}  // namespace quorvi::site
