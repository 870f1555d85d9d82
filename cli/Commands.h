// The functions behind the rows of the table of commands, each in a file of its own.
#pragma once

#include "cli/Command.h"

namespace quorvi::cli {

Status RunContactsAdd(const Arguments& arguments, Output& output);
Status RunContactsDelete(const Arguments& arguments, Output& output);
Status RunContactsList(const Arguments& arguments, Output& output);
Status RunContactsShow(const Arguments& arguments, Output& output);
Status RunContactsUpdate(const Arguments& arguments, Output& output);
Status RunDevices(const Arguments& arguments, Output& output);
Status RunInfo(const Arguments& arguments, Output& output);
Status RunLink(const Arguments& arguments, Output& output);

}  // namespace quorvi::cli
