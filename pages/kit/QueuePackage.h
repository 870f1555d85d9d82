// The door for new tasks: how a page that has met a link to a package has it downloaded.
#pragma once

#include <string>
#include <utility>

#include "pages/kit/Services.h"
#include "ui/page/Page.h"

namespace quorvi {

// Hands over the name of a package, as the link gives it, without ".apk". The download page then
// looks it up in its table: of a package that is there it asks its user, and any other it has
// resolved through the site, which makes its task and starts it. All that is told of it stands in
// the window's status. The page that calls this has nothing else to do. The window's thread.
inline void QueuePackage(PageHost& host, const Services& services, std::string package) {
    services.waitingPackages.Add(std::move(package));
    host.Post(Message::pageCommand, static_cast<int>(PageCommand::takeNextPackage));
}

}  // namespace quorvi
