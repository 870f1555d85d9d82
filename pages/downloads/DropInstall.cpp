#include "pages/downloads/DropInstall.h"

#include <QFileInfo>
#include <utility>
#include <vector>

#include "link/DeviceContext.h"
#include "pages/downloads/DroppedPackages.h"
#include "ui/kit/ControlNumber.h"
#include "ui/kit/QtText.h"
#include "ui/kit/QuestionDlg.h"
#include "ui/page/Job.h"

namespace quorvi {
namespace {

// Of the message that lists outcomes.
constexpr int kMessage = 0;
constexpr int kSentence = 65535;
constexpr int kOk = 1;

QString NamesOf(const std::vector<std::filesystem::path>& packages) {
    QStringList names;
    for (const std::filesystem::path& package : packages) {
        names.append(QString::fromStdString(package.filename().native()));
    }
    return names.join(QLatin1Char('\n'));
}

}  // namespace

DropInstall::DropInstall(Page& page, PageHost& host, const Services& services)
    : QObject(&page),
      page_(page),
      host_(host),
      installer_(services.installer),
      device_(services.device) {}

void DropInstall::Drop(const QStringList& files) {
    std::vector<std::filesystem::path> paths;
    for (const QString& file : files) {
        paths.emplace_back(file.toStdString());
    }
    std::vector<std::filesystem::path> packages = PackagesAmong(paths);
    if (packages.empty()) {
        return;
    }
    auto* question = new ConsentDlg(
        ToQString(u8"要把这 %1 个安装包安装到手机吗？").arg(packages.size()), ToQString(u8"安装"),
        ToQString(u8"取消"), look::ButtonKind::primary, page_.window());
    question->Quote(NamesOf(packages), ToQString(u8"安装包"));
    question->Open([this, packages = std::move(packages)](int answer) {
        if (answer == QDialog::Accepted) {
            waiting_.insert(waiting_.end(), packages.begin(), packages.end());
            InstallNext();
        }
    });
}

void DropInstall::InstallNext() {
    if (installing_ || waiting_.empty()) {
        return;
    }
    installing_ = true;
    const PackageInstall install{.serial = device_.Serial(), .package = waiting_.front()};
    waiting_.pop_front();
    host_.SetStatus(ToQString(u8"正在安装 %1")
                        .arg(QString::fromStdString(install.package.filename().native())));
    RunJob(
        this,
        [installer = installer_, install] {
            return DropStatus(install.package, installer.Install(install), !install.serial.empty());
        },
        [this](const std::string& outcome) {
            installing_ = false;
            Tell(outcome);
            InstallNext();
        });
}

void DropInstall::Tell(const std::string& outcome) {
    host_.SetStatus(ToQString(outcome));
    outcomes_.append(ToQString(outcome));
    if (!waiting_.empty()) {
        return;
    }
    const QStringList all = std::exchange(outcomes_, {});
    if (all.size() > 1) {
        auto* message =
            new QuestionDlg(kMessage, ToQString(u8"提示 - Quorvi"), QuestionDlg::Kind::information,
                            ToQString(u8"安装包都处理完了："), kSentence, page_.window());
        message->Quote(all.join(QLatin1Char('\n')), ToQString(u8"安装结果"));
        message->SetDefault(message->AddEndButton(kOk, ToQString(u8"确定"), QDialog::Accepted,
                                                  look::ButtonKind::primary));
        message->Open();
    }
}

}  // namespace quorvi
