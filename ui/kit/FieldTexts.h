// Texts from elsewhere in the fields of a form, and what the form gives of them.
#pragma once

#include <map>
#include <string>

#include "ui/kit/EditedText.h"

class QWidget;

namespace quorvi {

class CSkinEdit;
class SkinTextEdit;

// A text that the user has not changed is the one that was put in, whatever the field shows of it.
// Texts are ANSI. The window's thread.
class FieldTexts {
  public:
    void Set(CSkinEdit& field, const std::string& text);
    void Set(SkinTextEdit& field, const std::string& text);

    [[nodiscard]] std::string Text(const CSkinEdit& field) const;
    [[nodiscard]] std::string Text(const SkinTextEdit& field) const;

  private:
    [[nodiscard]] std::string TextOf(const QWidget& field, const QString& now) const;

    std::map<const QWidget*, ShownText> set_;
};

}  // namespace quorvi
