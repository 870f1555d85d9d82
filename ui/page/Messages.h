// The messages between windows, by number. They are posted to the receiver's event queue.
#pragma once

namespace quorvi {

enum class Message : int {
    tray = 1034,            // from the tray icon
    goToPage = 1074,        // first: tab, second: page number
    search = 1124,          // from the search box
    selectTab = 1125,       // second: tab
    commandButton = 1126,   // second: index 0 to 3
    selectItem = 1127,      // second: item
    dropFiles = 1174,       // to the file manager page
    documentLoaded = 1175,  // an HTML view to its parent, first: 0
    openStoreItem = 1275,   // to the store page, second: item number
    startCapture = 1276,    // to the screen capture page
    pageCommand = 2024,     // first: PageCommand, second: its argument
    dashboardLink = 2025,   // the dashboard to itself, first: action
    conversation = 2026,    // the SMS page to itself, first: 0 view, 1 delete, second: id
    takeNumber = 2100,      // to the SMS page or the contacts page, for which a number waits
};

// First arguments of Message::pageCommand.
enum class PageCommand : int {
    openDeviceManager = 0,
    openStoreItem = 1,    // go to page 20 and send it openStoreItem with the second argument
    captureScreen = 2,    // go to page 44 and send it startCapture
    takeNextPackage = 3,  // have the download page look up a package of Services::waitingPackages
    repaintContent = 4,   // repaint the content frame
    writeToNumber = 5,    // have the SMS page write to a number of Services::numbersToWriteTo
    addNumber = 6,        // have the contacts page add one of Services::numbersToAdd
};

}  // namespace quorvi
