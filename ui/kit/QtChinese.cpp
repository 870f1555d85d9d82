#include "ui/kit/QtChinese.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QTranslator>
#include <array>
#include <memory>

namespace quorvi {
namespace {

constexpr std::array<QStringView, 2> kCatalogues{u"qtbase_zh_CN", u"qtwebengine_zh_CN"};

}  // namespace

void LoadQtChinese(QApplication& application) {
    const QString folder = QLibraryInfo::path(QLibraryInfo::TranslationsPath);
    for (const QStringView catalogue : kCatalogues) {
        auto words = std::make_unique<QTranslator>(&application);
        if (words->load(catalogue.toString(), folder)) {
            QCoreApplication::installTranslator(words.release());
        }
    }
}

}  // namespace quorvi
