// The application object: the order in which the process starts, and how it ends.
#pragma once

namespace quorvi {

// Runs the program and gives the status of the process. Never returns once the window has ended.
class CPhoneSuiteApp {
  public:
    CPhoneSuiteApp(int& argc, char** argv);

    [[nodiscard]] int Run();

  private:
    [[nodiscard]] int RunWindow();

    int& argc_;
    char** argv_;
};

}  // namespace quorvi
