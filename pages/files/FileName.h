// The name of a file on the phone, taken out of its path.
#pragma once

#include <string_view>

namespace quorvi {

// Parts of a path, which they share.
struct FileNameParts {
    std::string_view name;       // behind the last separator, without the extension
    std::string_view extension;  // from the last dot of the name on: ".gz"; empty for none
};

// Cuts an ANSI path as desktops have always cut theirs: '/' and '\' separate, a drive's letter and
// colon in front count for nothing, and of several dots the last one begins the extension. A folder
// is cut like a file. Kept on purpose: a name that begins with its only dot, such as ".nomedia",
// is all extension and has no name left (test FileName.ALeadingDotLeavesNoName).
[[nodiscard]] FileNameParts SplitFileName(std::string_view path);

}  // namespace quorvi
