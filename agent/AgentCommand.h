// Every command that an agent answers.
#pragma once

#include <cstdint>

namespace quorvi {

// Sent as u32. The hundreds name the group.
enum class AgentCommand : std::uint32_t {
    // Phone
    deviceSummary = 870002,
    agentVersion = 870003,
    systemInformation = 870004,
    // Contacts
    listContacts = 870101,
    readContact = 870102,
    addContact = 870103,
    updateContact = 870104,
    deleteContacts = 870106,
    listGroupNames = 870120,
    addGroup = 870121,
    renameGroup = 870122,
    deleteGroups = 870124,
    listGroups = 870140,
    listGroupMembers = 870150,
    // Messages
    listConversations = 870201,
    readConversation = 870202,
    sendMessage = 870204,
    deleteConversation = 870206,
    // Calls
    listCalls = 870301,
    deleteCalls = 870303,
    deleteAllCalls = 870304,
    // Alarms
    listAlarms = 870401,
    addAlarm = 870402,
    updateAlarm = 870403,
    deleteAlarms = 870405,
    // Files
    listFileRoots = 870601,
    listDirectory = 870602,
    // Bookmarks
    listBookmarks = 870701,
    addBookmark = 870702,
    updateBookmark = 870703,
    deleteBookmarks = 870705,
    // Applications
    listApplications = 870802,
    runApplication = 870805,
    // Settings
    readSettings = 871501,
    writeSetting = 871502,
    // Cleaner
    scanForCleaning = 871601,
    clean = 871602,
    // Auto-start
    listAutoStart = 871701,
    // Tasks
    listProcesses = 871801,
    endProcesses = 871804,
    freeMemory = 871806,
};

}  // namespace quorvi
