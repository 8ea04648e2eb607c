// GoogleTest main for tests that drive widgets: one QApplication for the whole run, and the
// per-user paths of Qt sent to a test location.
#include <gtest/gtest.h>

#include <QApplication>
#include <QStandardPaths>

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QStandardPaths::setTestModeEnabled(true);
    QApplication::setOrganizationName("Tarvelle");
    QApplication::setApplicationName("Tarvelle");
    QApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
