#include "ui/kit/FieldTexts.h"

#include "ui/kit/QtText.h"
#include "ui/kit/SkinFields.h"

namespace quorvi {

void FieldTexts::Set(CSkinEdit& field, const std::string& text) {
    const QString loaded = ToQString(text);
    field.setText(loaded);
    set_[&field] = {loaded, field.text()};
}

void FieldTexts::Set(SkinTextEdit& field, const std::string& text) {
    const QString loaded = ToQString(text);
    field.SetText(loaded);
    set_[&field] = {loaded, field.toPlainText()};
}

std::string FieldTexts::Text(const CSkinEdit& field) const {
    return TextOf(field, field.text());
}

std::string FieldTexts::Text(const SkinTextEdit& field) const {
    return TextOf(field, field.toPlainText());
}

std::string FieldTexts::TextOf(const QWidget& field, const QString& now) const {
    const auto set = set_.find(&field);
    return FromQString(set == set_.end() ? now : EditedText(set->second, now));
}

}  // namespace quorvi
