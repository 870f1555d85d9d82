#include "ui/page/OpenGuide.h"

#include <QFile>
#include <QUrl>
#include <filesystem>
#include <utility>

#include "ui/page/Job.h"
#include "ui/page/OpenOnDesktop.h"

namespace quorvi {
namespace {

constexpr const char* kGuide = "Data/guide.html";

// Empty where it is not delivered.
std::filesystem::path FindGuide(const Places& places) {
    const std::filesystem::path guide = places.Delivered(kGuide);
    std::error_code unknown;
    return std::filesystem::exists(guide, unknown) ? guide : std::filesystem::path();
}

}  // namespace

void OpenGuide(QObject* context, std::function<void()> failed, Places places) {
    RunJob(
        context, [places = std::move(places)] { return FindGuide(places); },
        [failed = std::move(failed)](const std::filesystem::path& guide) {
            const QString file = QFile::decodeName(QByteArray::fromStdString(guide.native()));
            const QString address = QUrl::fromLocalFile(file).toString(QUrl::FullyEncoded);
            if (guide.empty() || !OpenOnDesktop(address)) {
                failed();
            }
        });
}

}  // namespace quorvi
