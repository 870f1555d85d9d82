#include "pages/files/AttributeText.h"

#include "base/Text.h"

namespace quorvi {

SharedText AttributeText::Next(bool readable, bool writable, bool hidden) {
    if (readable) {
        start_ = all_->size();
        Append(u8"可读");
    }
    if (writable) {
        Append(u8" 可写");
    }
    if (hidden) {
        Append(u8" 隐藏");
    }
    return {all_, start_, all_->size() - start_};
}

void AttributeText::Append(std::u8string_view word) {
    const std::string text = Ansi(word);
    if (all_->size() - start_ + text.size() <= kLongest) {
        *all_ += text;
    }
}

}  // namespace quorvi
