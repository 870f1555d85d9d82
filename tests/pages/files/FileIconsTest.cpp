#include <gtest/gtest.h>

#include <QFile>
#include <QIcon>
#include <QTemporaryDir>
#include <QTextStream>

#include "base/Text.h"
#include "pages/files/FileIcons.h"

namespace quorvi {
namespace {

void WriteFile(const QString& path, const QString& text) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    QTextStream(&file) << text;
}

// An icon theme that holds just the icons of these names, or none at all.
class FileIconsOf : public testing::Test {
  protected:
    void SetUp() override {
        paths_ = QIcon::themeSearchPaths();
        name_ = QIcon::themeName();
        ChooseTheme({});
    }
    void TearDown() override {
        QIcon::setThemeSearchPaths(paths_);
        QIcon::setThemeName(name_);
    }

    void ChooseTheme(const QStringList& icons) {
        const QString theme = QStringLiteral("theme%1").arg(++themes_);
        QDir(folder_.path()).mkpath(theme + QStringLiteral("/icons"));
        WriteFile(folder_.filePath(theme + QStringLiteral("/index.theme")),
                  QStringLiteral("[Icon Theme]\nName=%1\nDirectories=icons\n\n"
                                 "[icons]\nSize=48\nType=Scalable\nMinSize=8\nMaxSize=256\n")
                      .arg(theme));
        for (const QString& icon : icons) {
            WriteFile(folder_.filePath(theme + QStringLiteral("/icons/%1.svg").arg(icon)),
                      QStringLiteral("<svg xmlns='http://www.w3.org/2000/svg' width='8' "
                                     "height='8'><rect width='8' height='8'/></svg>"));
        }
        QIcon::setThemeSearchPaths({folder_.path()});
        QIcon::setThemeName(theme);
    }
    QString OwnOf(std::string_view extension) { return icons_.Of(false, extension).own; }

    QTemporaryDir folder_;
    int themes_ = 0;
    QStringList paths_;
    QString name_;
    FileIcons icons_;
};

TEST_F(FileIconsOf, WithoutAThemeAreTheSuitesOwnByTheKindOfFile) {
    const std::pair<const char*, const char*> expected[] = {
        {".jpg", "file-image"},
        {".png", "file-image"},
        {".mp3", "file-audio"},
        {".ogg", "file-audio"},
        {".mp4", "file-video"},
        {".3gp", "file-video"},
        {".txt", "file-text"},
        {".doc", "file-text"},
        {".xls", "file-text"},
        {".pdf", "file-text"},
        {".zip", "file-archive"},
        {".gz", "file-archive"},
        {".7z", "file-archive"},
        {".html", "file-web"},
        {".apk", "file-app"},
        {".unheardof", "file"},
        {"", "file"},
        {".", "file"},
    };
    for (const auto& [extension, own] : expected) {
        EXPECT_EQ(OwnOf(extension), QLatin1String(own)) << extension;
        EXPECT_TRUE(icons_.Of(false, extension).theme.isNull()) << extension;
    }
    EXPECT_EQ(icons_.Of(true, "").own, QStringLiteral("file-folder"));
    EXPECT_TRUE(icons_.Of(true, "").theme.isNull());
}

TEST_F(FileIconsOf, TheCaseOfAnExtensionCountsForNothing) {
    EXPECT_EQ(OwnOf(".JPG"), QStringLiteral("file-image"));
}

TEST_F(FileIconsOf, AFolderIsOneWhateverItsExtension) {
    EXPECT_EQ(icons_.Of(true, ".jpg").own, QStringLiteral("file-folder"));
}

TEST_F(FileIconsOf, ComeFromTheThemeByTheMimeType) {
    ChooseTheme({QStringLiteral("image-png"), QStringLiteral("inode-directory")});
    EXPECT_FALSE(icons_.Of(false, ".png").theme.isNull());
    EXPECT_FALSE(icons_.Of(true, "").theme.isNull());
    EXPECT_TRUE(icons_.Of(false, ".zip").theme.isNull());
}

TEST_F(FileIconsOf, ComeFromTheThemeByTheGroupOfTheTypeWhereItHasNoneOfTheType) {
    ChooseTheme({QStringLiteral("package-x-generic")});
    EXPECT_FALSE(icons_.Of(false, ".zip").theme.isNull());
}

TEST_F(FileIconsOf, FollowAThemeThatIsChosenLater) {
    ChooseTheme({QStringLiteral("image-png")});
    EXPECT_FALSE(icons_.Of(false, ".png").theme.isNull());
    ChooseTheme({});
    EXPECT_TRUE(icons_.Of(false, ".png").theme.isNull());
    ChooseTheme({QStringLiteral("image-png")});
    EXPECT_FALSE(icons_.Of(false, ".png").theme.isNull());
}

// A file of such a name on the PC is another one: what it holds tells nothing.
TEST_F(FileIconsOf, AreToldByTheExtensionAloneThoughThePcHasAFileOfTheName) {
    const QString before = QDir::currentPath();
    QDir::setCurrent(folder_.path());
    WriteFile(folder_.filePath(QStringLiteral("x.unheardof")), QStringLiteral("%PDF-1.4\n"));
    WriteFile(folder_.filePath(QStringLiteral("x")), QStringLiteral("%PDF-1.4\n"));
    EXPECT_EQ(OwnOf(".unheardof"), QStringLiteral("file"));
    EXPECT_EQ(OwnOf(""), QStringLiteral("file"));
    QDir::setCurrent(before);
}

TEST_F(FileIconsOf, AnExtensionOfAnyBytesIsAFilesOwn) {
    for (const std::string& extension :
         {std::string(1'000'000, '.'), std::string(".\0jpg", 5), std::string(".*"),
          std::string(".[a-z]?"), std::string(".\xff\xfe"), Ansi(u8".图片")}) {
        EXPECT_FALSE(OwnOf(extension).isEmpty());
    }
}

TEST_F(FileIconsOf, AsManyExtensionsAsThereAreFilesAreNotAllKept) {
    for (int i = 0; i < 5'000; ++i) {
        EXPECT_EQ(OwnOf(".q" + std::to_string(i)), QStringLiteral("file"));
    }
}

}  // namespace
}  // namespace quorvi
