// The functions behind the rows of the table of commands, each in a file of its own.
#pragma once

#include "cli/Command.h"

namespace quorvi::cli {

Status RunInfo(const Arguments& arguments, Output& output);

}  // namespace quorvi::cli
