// The engine's profiles: what documents of a kind may do, and what is kept of them.
#pragma once

#include "ui/html/HtmlSite.h"

class QWebEngineProfile;

namespace quorvi {

// One profile for all views of a kind, and so one renderer; it outlives their pages. What web sites
// keep on the disk is in the program's data folder, and nowhere else; local views keep nothing.
[[nodiscard]] QWebEngineProfile* ProfileOf(HtmlContent content);

}  // namespace quorvi
