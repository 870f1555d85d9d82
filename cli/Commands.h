// The functions behind the rows of the table of commands, each in a file of its own.
#pragma once

#include "cli/Command.h"

namespace quorvi::cli {

Status RunCallsClear(const Arguments& arguments, Output& output);
Status RunCallsDelete(const Arguments& arguments, Output& output);
Status RunCallsList(const Arguments& arguments, Output& output);
Status RunContactsAdd(const Arguments& arguments, Output& output);
Status RunContactsDelete(const Arguments& arguments, Output& output);
Status RunContactsList(const Arguments& arguments, Output& output);
Status RunContactsShow(const Arguments& arguments, Output& output);
Status RunContactsUpdate(const Arguments& arguments, Output& output);
Status RunDevices(const Arguments& arguments, Output& output);
Status RunGroupsAdd(const Arguments& arguments, Output& output);
Status RunGroupsDelete(const Arguments& arguments, Output& output);
Status RunGroupsList(const Arguments& arguments, Output& output);
Status RunGroupsRename(const Arguments& arguments, Output& output);
Status RunInfo(const Arguments& arguments, Output& output);
Status RunLink(const Arguments& arguments, Output& output);
Status RunLunar(const Arguments& arguments, Output& output);
Status RunNumber(const Arguments& arguments, Output& output);
Status RunSmsDelete(const Arguments& arguments, Output& output);
Status RunSmsList(const Arguments& arguments, Output& output);
Status RunSmsSend(const Arguments& arguments, Output& output);
Status RunSmsShow(const Arguments& arguments, Output& output);

}  // namespace quorvi::cli
