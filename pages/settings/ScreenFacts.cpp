#include "pages/settings/ScreenFacts.h"

#include <QGuiApplication>
#include <QScreen>

#include "base/Text.h"
#include "report/SystemFacts.h"
#include "ui/kit/QtText.h"

namespace quorvi {

ReportFile ScreenFacts() {
    const std::string platform = FactText(QGuiApplication::platformName().toStdString());
    QString text = ToQString(u8"Qt: %1\n显示方式: %2\n")
                       .arg(QString::fromLatin1(qVersion()), QString::fromStdString(platform));
    int number = 0;
    for (const QScreen* screen : QGuiApplication::screens()) {
        const QSize size = screen->size();
        text += ToQString(u8"屏幕 %1: %2 × %3，缩放 %4，%5 Hz\n")
                    .arg(++number)
                    .arg(size.width())
                    .arg(size.height())
                    .arg(screen->devicePixelRatio(), 0, 'f', 2)
                    .arg(qRound(screen->refreshRate()));
    }
    return {"screen.txt", u8"屏幕的大小和缩放", ToAnsi(text.toStdString())};
}

}  // namespace quorvi
