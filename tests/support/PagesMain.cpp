#include <gtest/gtest.h>

#include <QApplication>
#include <QLoggingCategory>

#include "tests/support/OwnPlaces.h"
#include "tests/support/PrivateNetwork.h"
#include "ui/html/HtmlSite.h"
#include "ui/kit/ApplyLook.h"

// The one application object of tests whose windows hold browsers, in a network of its own.
int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    const quorvi::OwnPlaces places;
    quorvi::EnterPrivateNetwork();
    QLoggingCategory::setFilterRules(QStringLiteral("qt.webenginecontext=false"));
    quorvi::PrepareHtmlViews();
    QApplication application(argc, argv);
    quorvi::ApplyLook(application);
    return RUN_ALL_TESTS();
}
