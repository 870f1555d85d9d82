// What every program with the suite's window does before it makes the window.
#pragma once

class QApplication;

namespace quorvi {

// Names the program and prepares the HTML views. Before the application is made.
void PrepareQt();

// Sets the code page, which is the user's choice or else the deployment's, the language of Qt's own
// words, and the look.
void PrepareApplication(QApplication& application);

}  // namespace quorvi
