// The lists and boxes beside the picture of the phone's screen.
#pragma once

#include <QTimer>
#include <optional>

#include "pages/screen/Rotation.h"
#include "ui/kit/SkinLabels.h"
#include "ui/page/FocusKeeper.h"

class QVBoxLayout;

namespace quorvi {

class CSkinCheck;
class CSkinCombo;

// What the user has set for the next capture and the next save. The window's thread.
class ScreenOptions : public CSkinGroupBox {
    Q_OBJECT
  public:
    // Control numbers.
    static constexpr int kRotation = 1348;
    static constexpr int kFormat = 1347;
    static constexpr int kQuality = 1352;
    static constexpr int kSize = 1349;
    static constexpr int kAutoRefresh = 1350;  // hidden
    static constexpr int kBatchSave = 1351;

    explicit ScreenOptions(QWidget* parent = nullptr);

    [[nodiscard]] Rotation ChosenRotation() const;
    // Indexes of their lists.
    [[nodiscard]] int FormatIndex() const;
    [[nodiscard]] int QualityIndex() const;
    [[nodiscard]] bool SavesWithoutAsking() const;

    // The size of the phone's screen as the one entry of its list.
    void ShowScreenSize(int width, int height);

    // While a capture runs no other rotation can be chosen: the list would show another one than
    // the picture has. At first it only takes none, and it is disabled when the capture lasts: it
    // would flicker at each capture, and painting it takes time from the capture.
    void LockRotation();
    void UnlockRotation();

  Q_SIGNALS:
    void rotationChanged();
    void autoRefreshClicked(bool on);

  private:
    void OnRotationChosen(int index);
    void DisableRotation();
    CSkinCombo* AddList(QVBoxLayout& rows, std::u8string_view caption, int number);

    CSkinCombo* rotation_;
    CSkinCombo* format_;
    CSkinCombo* quality_;
    CSkinCombo* size_;
    CSkinCheck* autoRefresh_;
    CSkinCheck* batchSave_;
    QTimer lasting_;             // until the list is disabled
    std::optional<int> locked_;  // the entry of the capture that runs
    std::optional<FocusKeeper> focus_;
};

}  // namespace quorvi
