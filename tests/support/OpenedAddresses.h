// Stands in for the desktop's programs: keeps each address that they would be started with.
#pragma once

#include <QDesktopServices>
#include <QStringList>
#include <QUrl>

namespace quorvi {

// Takes the addresses of these schemes for as long as it lives.
class OpenedAddresses : public QObject {
    Q_OBJECT
  public:
    explicit OpenedAddresses(const QStringList& schemes) : schemes_(schemes) {
        for (const QString& scheme : schemes_) {
            QDesktopServices::setUrlHandler(scheme, this, "Take");
        }
    }
    ~OpenedAddresses() override {
        for (const QString& scheme : schemes_) {
            QDesktopServices::unsetUrlHandler(scheme);
        }
    }
    OpenedAddresses(const OpenedAddresses&) = delete;
    OpenedAddresses& operator=(const OpenedAddresses&) = delete;

    // In the form in which they go to a program.
    QStringList taken;

    Q_INVOKABLE void Take(const QUrl& url) { taken.append(QString::fromLatin1(url.toEncoded())); }

  private:
    QStringList schemes_;
};

}  // namespace quorvi
