// The functions behind the rows of the table of commands, each in a file of its own.
#pragma once

#include "cli/Command.h"

namespace quorvi::cli {

Status RunAlarmsAdd(const Arguments& arguments, const Context& context, Output& output);
Status RunAlarmsDelete(const Arguments& arguments, const Context& context, Output& output);
Status RunAlarmsList(const Arguments& arguments, const Context& context, Output& output);
Status RunAlarmsUpdate(const Arguments& arguments, const Context& context, Output& output);
Status RunAppsList(const Arguments& arguments, const Context& context, Output& output);
Status RunAppsRun(const Arguments& arguments, const Context& context, Output& output);
Status RunAppsUninstall(const Arguments& arguments, const Context& context, Output& output);
Status RunAutoStartList(const Arguments& arguments, const Context& context, Output& output);
Status RunBackup(const Arguments& arguments, const Context& context, Output& output);
Status RunBookmarksAdd(const Arguments& arguments, const Context& context, Output& output);
Status RunBookmarksDelete(const Arguments& arguments, const Context& context, Output& output);
Status RunBookmarksList(const Arguments& arguments, const Context& context, Output& output);
Status RunBookmarksUpdate(const Arguments& arguments, const Context& context, Output& output);
Status RunCallsClear(const Arguments& arguments, const Context& context, Output& output);
Status RunCallsDelete(const Arguments& arguments, const Context& context, Output& output);
Status RunCallsList(const Arguments& arguments, const Context& context, Output& output);
Status RunCleanerClean(const Arguments& arguments, const Context& context, Output& output);
Status RunCleanerScan(const Arguments& arguments, const Context& context, Output& output);
Status RunContactsAdd(const Arguments& arguments, const Context& context, Output& output);
Status RunContactsDelete(const Arguments& arguments, const Context& context, Output& output);
Status RunContactsList(const Arguments& arguments, const Context& context, Output& output);
Status RunContactsShow(const Arguments& arguments, const Context& context, Output& output);
Status RunContactsUpdate(const Arguments& arguments, const Context& context, Output& output);
Status RunDevices(const Arguments& arguments, const Context& context, Output& output);
Status RunDownloadsAdd(const Arguments& arguments, const Context& context, Output& output);
Status RunDownloadsList(const Arguments& arguments, const Context& context, Output& output);
Status RunDownloadsPause(const Arguments& arguments, const Context& context, Output& output);
Status RunDownloadsReinstall(const Arguments& arguments, const Context& context, Output& output);
Status RunDownloadsRemove(const Arguments& arguments, const Context& context, Output& output);
Status RunDownloadsResume(const Arguments& arguments, const Context& context, Output& output);
Status RunDownloadsRun(const Arguments& arguments, const Context& context, Output& output);
Status RunExport(const Arguments& arguments, const Context& context, Output& output);
Status RunFeedback(const Arguments& arguments, const Context& context, Output& output);
Status RunFilesList(const Arguments& arguments, const Context& context, Output& output);
Status RunGroupsAdd(const Arguments& arguments, const Context& context, Output& output);
Status RunGroupsDelete(const Arguments& arguments, const Context& context, Output& output);
Status RunGroupsList(const Arguments& arguments, const Context& context, Output& output);
Status RunGroupsRename(const Arguments& arguments, const Context& context, Output& output);
Status RunImport(const Arguments& arguments, const Context& context, Output& output);
Status RunInfo(const Arguments& arguments, const Context& context, Output& output);
Status RunLink(const Arguments& arguments, const Context& context, Output& output);
Status RunLunar(const Arguments& arguments, const Context& context, Output& output);
Status RunNumber(const Arguments& arguments, const Context& context, Output& output);
Status RunProcessesEnd(const Arguments& arguments, const Context& context, Output& output);
Status RunProcessesList(const Arguments& arguments, const Context& context, Output& output);
Status RunProcessesMemory(const Arguments& arguments, const Context& context, Output& output);
Status RunRestore(const Arguments& arguments, const Context& context, Output& output);
Status RunScreenshot(const Arguments& arguments, const Context& context, Output& output);
Status RunSettingsRead(const Arguments& arguments, const Context& context, Output& output);
Status RunSettingsWrite(const Arguments& arguments, const Context& context, Output& output);
Status RunSmsDelete(const Arguments& arguments, const Context& context, Output& output);
Status RunSmsList(const Arguments& arguments, const Context& context, Output& output);
Status RunSmsSend(const Arguments& arguments, const Context& context, Output& output);
Status RunSmsShow(const Arguments& arguments, const Context& context, Output& output);
Status RunSpecs(const Arguments& arguments, const Context& context, Output& output);
Status RunSpecsCheck(const Arguments& arguments, const Context& context, Output& output);
Status RunReport(const Arguments& arguments, const Context& context, Output& output);
Status RunUpdate(const Arguments& arguments, const Context& context, Output& output);
Status RunVerify(const Arguments& arguments, const Context& context, Output& output);
Status RunWeather(const Arguments& arguments, const Context& context, Output& output);

}  // namespace quorvi::cli
