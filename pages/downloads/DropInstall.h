// Installs the packages that the user drops on the window.
#pragma once

#include <QObject>
#include <QStringList>
#include <deque>
#include <filesystem>
#include <functional>
#include <string>

#include "link/PackageInstaller.h"
#include "pages/kit/Services.h"
#include "ui/page/Page.h"

namespace quorvi {

// A part of the download page, though no row is made of such a package: it is on the disk already,
// and stays there. Asks first; then installs one after another, and says of each what became of it:
// in the status line, and of several together in a message, too. The window's thread.
class DropInstall : public QObject {
    Q_OBJECT
  public:
    DropInstall(Page& page, PageHost& host, const Services& services);

    // Of these files the packages; nothing where there is none among them.
    void Drop(const QStringList& files);

  private:
    void InstallNext();
    void Tell(const std::string& outcome);

    Page& page_;
    PageHost& host_;
    PackageInstaller installer_;
    DeviceContext& device_;
    std::deque<std::filesystem::path> waiting_;
    bool installing_ = false;
    QStringList outcomes_;  // since the last time that none was left
};

}  // namespace quorvi
