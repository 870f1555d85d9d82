// Exports and imports through a page's menu.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "base/os/SmallFile.h"
#include "pages/kit/FileTransfers.h"
#include "tests/support/FileDialogDriver.h"
#include "tests/support/MenuDriver.h"
#include "tests/support/TemporaryFolder.h"

namespace quorvi {

// Over the fixture of the page. Files stand in a folder of the test's own.
template <typename Fixture>
class TransfersPageTest : public Fixture {
  protected:
    void TearDown() override { CloseFileDialog(); }

    // Chooses from the menu of the list what asks for a file.
    void Choose(int command) {
        Q_EMIT this->List().menuAsked(-1, QPoint(0, 0));
        ChooseFrom(this->page_->template findChild<CSkinMenu*>(), command);
        ASSERT_NE(OpenFileDialog(), nullptr);
    }
    // Gives the file that was asked for, and waits until the page has done what it can without
    // another question.
    void Give(const char* name) {
        AnswerFileDialog(Path(name));
        this->Settle();
    }
    void ExportTo(const char* name) {
        Choose(FileTransfers::menuExport);
        Give(name);
    }
    void ImportFrom(const char* name, std::string_view text) {
        ASSERT_TRUE(ReplaceFile(folder_.Path() / name, text));
        Choose(FileTransfers::menuImport);
        Give(name);
    }
    [[nodiscard]] std::string TextOf(const char* name) const {
        return ReadSmallFile(folder_.Path() / name, 100'000).value_or("");
    }
    [[nodiscard]] QString Path(const char* name) const {
        return QString::fromStdString((folder_.Path() / name).native());
    }

    TemporaryFolder folder_;
};

}  // namespace quorvi
