// The About window, the directory chooser and the help commands, driven offscreen through
// their named controls, with the desktop and the message boxes recorded.
#include "ui/common/qt_dialogs.h"
#include "ui/common/about_window.h"
#include "ui/common/dir_list_window.h"
#include "station/help_commands.h"
#include "station/station.h"

#include "station_test.h"

#include <gtest/gtest.h>

#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QFileSystemModel>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTreeView>

#include <memory>

using namespace tarvelle;

namespace {

const QString kBrowserError =
    "There was a problem launching your default Web Browser, please check  your Web Browser and try again";

class ShellWindowsTest : public StationTest {
protected:
    QString Path(const QString& relative) const { return dir.filePath(relative); }

    void ExpectOneBrowserError() const {
        ASSERT_EQ(dialogs.messages.size(), 1u);
        EXPECT_EQ(dialogs.messages[0].text, kBrowserError);
        EXPECT_EQ(dialogs.messages[0].title, "Browser Error");
        EXPECT_EQ(dialogs.messages[0].icon, MsgIcon::Critical);
    }
};

} // namespace

TEST_F(ShellWindowsTest, HtmlHelpOpensTheStoredPageOrTheBundledOne) {
    ShowHtmlHelp(*station);
    settings->save("Settings", "HelpFilePath", "/srv/station/help/index.htm");
    ShowHtmlHelp(*station);
    EXPECT_EQ(desktop.opened, QStringList({programDir + "gethelp.htm", "/srv/station/help/index.htm"}));
    EXPECT_TRUE(dialogs.messages.empty());
}

TEST_F(ShellWindowsTest, HelpThatTheSystemRefusesIsReported) {
    desktop.succeed = false;
    ShowHtmlHelp(*station);
    ExpectOneBrowserError();

    dialogs.messages.clear();
    ShowOnlineHelp(*station);
    ExpectOneBrowserError();
    ASSERT_EQ(desktop.opened.size(), 2);
    EXPECT_EQ(desktop.opened[1], MakerWebAddress());
    EXPECT_TRUE(OpenDocument(desktop, "/tmp/a.htm")); // true when refused
    desktop.succeed = true;
    EXPECT_FALSE(OpenDocument(desktop, "/tmp/a.htm"));
}

TEST_F(ShellWindowsTest, AboutShowsVersionIconCreditsAndClosesOnOK) {
    FormAbout about(*station, "3.8.2");
    EXPECT_EQ(about.findChild<QLabel*>("LabelVersion")->text(), "3.8.2");
    // The application icon comes from the compiled-in resources.
    EXPECT_FALSE(about.findChild<QLabel*>("Image1")->pixmap().isNull());
    const QString credits = about.findChild<QLabel*>("LabelCredits")->text();
    for (const char* source : {"tz database", "NASA", "DejaVu", "Qt"})
        EXPECT_TRUE(credits.contains(source)) << source;
    // Only what ships is credited: no star catalogue is bundled yet.
    EXPECT_FALSE(credits.contains("Star")) << "credits a star catalogue that does not ship";

    about.show();
    QTest::mouseClick(about.findChild<QPushButton*>("Command1"), Qt::LeftButton);
    EXPECT_EQ(about.result(), QDialog::Accepted);
    EXPECT_FALSE(about.isVisible());
    EXPECT_TRUE(desktop.opened.isEmpty());
}

TEST_F(ShellWindowsTest, AboutLinkOpensTheWebAddressOrReports) {
    FormAbout about(*station, "3.8.2");
    about.show();
    auto* link = about.findChild<QLabel*>("Label8");
    QTest::mouseClick(link, Qt::LeftButton);
    EXPECT_EQ(desktop.opened, QStringList{MakerWebAddress()});
    EXPECT_TRUE(dialogs.messages.empty());

    desktop.succeed = false;
    QTest::mouseClick(link, Qt::LeftButton);
    ExpectOneBrowserError();
    EXPECT_TRUE(about.isVisible()); // the window stays

    QTest::mouseClick(link, Qt::RightButton); // only the left button follows the link
    EXPECT_EQ(desktop.opened.size(), 2);
}

TEST_F(ShellWindowsTest, DirListStartsFromSelectedDir) {
    ASSERT_TRUE(QDir().mkpath(Path("Antennas/yagi")));
    station->SelectedDir = Path("Antennas");
    FormDirList chooser(*station);
    EXPECT_EQ(chooser.txtPath->text(), Path("Antennas"));
    EXPECT_EQ(chooser.Dir1Path(), Path("Antennas"));
    // The program folder holds it more closely than the file system's root does.
    EXPECT_EQ(chooser.Dir1Root(), QDir::cleanPath(programDir));

    // A change in the tree puts its folder in the box.
    auto* model = qobject_cast<QFileSystemModel*>(chooser.Dir1->model());
    ASSERT_NE(model, nullptr);
    chooser.Dir1->setCurrentIndex(model->index(Path("Antennas/yagi")));
    EXPECT_EQ(chooser.txtPath->text(), Path("Antennas/yagi"));

    // A folder still to be made stays in the box; the tree shows the nearest that exists.
    station->SelectedDir = Path("Logs/2026");
    FormDirList later(*station);
    EXPECT_EQ(later.txtPath->text(), Path("Logs/2026"));
    EXPECT_EQ(later.Dir1Path(), QDir::cleanPath(dir.path()));
}

TEST_F(ShellWindowsTest, DirListDriveChangeMovesTheTree) {
    station->SelectedDir = dir.path();
    FormDirList chooser(*station);
    const int root = chooser.Drive1->findData(QStringLiteral("/"));
    ASSERT_GE(root, 0);
    chooser.Drive1->setCurrentIndex(root);
    emit chooser.Drive1->activated(root);
    EXPECT_EQ(chooser.Dir1Root(), "/");
    EXPECT_EQ(chooser.txtPath->text(), "/");
    const int home = chooser.Drive1->findData(QDir::cleanPath(QDir::homePath()));
    ASSERT_GE(home, 0);
    emit chooser.Drive1->activated(home);
    EXPECT_EQ(chooser.txtPath->text(), QDir::cleanPath(QDir::homePath()));
}

TEST_F(ShellWindowsTest, DirListOKTakesAnExistingOrNewFolder) {
    ASSERT_TRUE(QDir().mkpath(Path("a")));
    ASSERT_TRUE(QDir().mkpath(Path("b")));
    station->SelectedDir = Path("a");
    for (const char* typed : {"b", "new/deeper"}) {
        FormDirList chooser(*station);
        chooser.show();
        chooser.txtPath->setText(Path(typed));
        QTest::mouseClick(chooser.OKButton, Qt::LeftButton);
        EXPECT_TRUE(QFileInfo(Path(typed)).isDir()) << typed;
        EXPECT_EQ(station->SelectedDir, Path(typed));
        EXPECT_EQ(chooser.result(), QDialog::Accepted) << typed;
    }
    EXPECT_TRUE(dialogs.messages.empty());
}

TEST_F(ShellWindowsTest, DirListDoubleClickSelectsLikeOKAndCancelKeeps) {
    ASSERT_TRUE(QDir().mkpath(Path("a/picked")));
    station->SelectedDir = Path("a");
    {
        FormDirList chooser(*station);
        chooser.show();
        auto* model = qobject_cast<QFileSystemModel*>(chooser.Dir1->model());
        emit chooser.Dir1->doubleClicked(model->index(Path("a/picked")));
        EXPECT_EQ(station->SelectedDir, Path("a/picked"));
        EXPECT_EQ(chooser.result(), QDialog::Accepted);
    }
    FormDirList chooser(*station);
    chooser.show();
    chooser.txtPath->setText(Path("a"));
    QTest::mouseClick(chooser.CancelButton, Qt::LeftButton);
    EXPECT_EQ(station->SelectedDir, Path("a/picked"));
    EXPECT_EQ(chooser.result(), QDialog::Rejected);
    EXPECT_FALSE(chooser.isVisible());
}

TEST_F(ShellWindowsTest, DirListFolderThatCannotBeMadeIsReported) {
    QFile plain(Path("plain"));
    ASSERT_TRUE(plain.open(QIODevice::WriteOnly));
    plain.close();
    station->SelectedDir = dir.path();
    FormDirList chooser(*station);
    chooser.show();
    chooser.txtPath->setText(Path("plain/sub"));
    QTest::mouseClick(chooser.OKButton, Qt::LeftButton);
    ASSERT_EQ(dialogs.messages.size(), 1u);
    EXPECT_TRUE(dialogs.messages[0].text.startsWith("There was an error: could not create folder " +
                                                    Path("plain/sub")))
        << dialogs.messages[0].text.toStdString();
    EXPECT_EQ(station->SelectedDir, dir.path());
    EXPECT_TRUE(chooser.isVisible());
}

TEST(QtDialogs, FiltersBecomeQtNameFilters) {
    EXPECT_EQ(QtDialogs::QtFilter("Observer File|*.obs|Any|*.*"), "Observer File (*.obs);;Any (*.*)");
    EXPECT_EQ(QtDialogs::QtFilter("Pictures|*.bmp;*.gif"), "Pictures (*.bmp *.gif)");
}
