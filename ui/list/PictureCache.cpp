#include "ui/list/PictureCache.h"

#include <cmath>

#include "ui/list/DecodePicture.h"
#include "ui/look/Look.h"

namespace quorvi {

PictureCache::PictureCache() : pictures_(kBudget) {}

QPixmap PictureCache::Get(std::uint64_t id, std::string_view bytes, int side, bool rounded,
                          qreal dpr) {
    if (!qFuzzyCompare(dpr_ + 1, dpr + 1)) {
        pictures_.clear();  // the window came to a screen of another scale
        dpr_ = dpr;
    }
    if (const QPixmap* found = pictures_.object(id)) {
        return *found;
    }
    ++decodes_;
    const int pixels = static_cast<int>(std::lround(side * dpr));
    QPixmap made = QPixmap::fromImage(DecodePicture(
        bytes, pixels, rounded,
        static_cast<qreal>(pixels) * look::Metric::radiusPanel / look::Metric::rowPicture));
    made.setDevicePixelRatio(dpr);
    const qsizetype cost = made.isNull() ? 1 : qsizetype{4} * pixels * pixels;
    pictures_.insert(id, new QPixmap(made), cost);
    return made;
}

}  // namespace quorvi
