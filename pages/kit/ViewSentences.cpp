#include "pages/kit/ViewSentences.h"

namespace quorvi {

QString CheckTheCable(std::u8string_view refresh) {
    const QString check = ToQString(u8"请检查数据线");
    return refresh.empty() ? check : check + ToQString(u8"，然后点“%1”").arg(ToQString(refresh));
}

}  // namespace quorvi
