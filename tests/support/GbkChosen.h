// A user who has chosen GBK, for the programs that a test runs.
#pragma once

#include "base/CodePageChoice.h"
#include "base/SettingsFile.h"

namespace quorvi {

// In the settings of the test's own home; gone at the end.
class GbkChosen {
  public:
    GbkChosen() { ChooseCodePage(settings_, CodePage::gbk); }
    ~GbkChosen() { settings_.Delete(kSettingsKey, "code_page"); }
    GbkChosen(const GbkChosen&) = delete;
    GbkChosen& operator=(const GbkChosen&) = delete;

  private:
    SettingsFile settings_;
};

}  // namespace quorvi
