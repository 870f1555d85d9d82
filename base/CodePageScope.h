// Work on text that must not lose a character, whatever code page the program shows text in.
#pragma once

#include "base/Text.h"

namespace quorvi {

// From its making to its end this thread's code page is another than the program's. Texts that
// leave the scope in memory are in that code page: GB18030 reads those of GBK alike. Threads that
// are started meanwhile begin without it. Ended in the reverse order.
class CodePageScope {
  public:
    explicit CodePageScope(CodePage codePage);
    ~CodePageScope();
    CodePageScope(const CodePageScope&) = delete;
    CodePageScope& operator=(const CodePageScope&) = delete;

  private:
    int before_;
};

// What is written to files and brought back from them is whole where the window shows '?'.
class WholeTextScope : public CodePageScope {
  public:
    WholeTextScope() : CodePageScope(CodePage::gb18030) {}
};

}  // namespace quorvi
