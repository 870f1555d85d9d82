#include <gtest/gtest.h>

#include <QApplication>
#include <QStandardPaths>

#include "ui/html/HtmlSite.h"
#include "ui/kit/ApplyLook.h"

// The one application object of the pages' tests.
int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    QStandardPaths::setTestModeEnabled(true);
    quorvi::PrepareHtmlViews();
    QApplication application(argc, argv);
    quorvi::ApplyLook(application);
    return RUN_ALL_TESTS();
}
