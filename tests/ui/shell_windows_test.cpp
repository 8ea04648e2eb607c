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
#include <QTest>
#include <QTreeView>

#include <memory>

using namespace tarvelle;

namespace {

class ShellWindowsTest : public StationTest {
protected:
    QString Path(const QString& relative) const { return dir.filePath(relative); }

    void ExpectOneBrowserError() {
        ASSERT_EQ(dialogs.messages.size(), 1u);
        EXPECT_EQ(dialogs.messages[0].text, "There was a problem launching your default Web Browser, please check  "
                                            "your Web Browser and try again");
        EXPECT_EQ(dialogs.messages[0].icon, MsgIcon::Critical);
        dialogs.messages.clear();
    }
    static QModelIndex IndexOf(FormDirList& chooser, const QString& path) {
        return qobject_cast<QFileSystemModel*>(chooser.Dir1->model())->index(path);
    }
};

} // namespace

// The bundled help page unless another is stored; a refusal by the system is reported.
TEST_F(ShellWindowsTest, HelpOpensTheStoredPageOrTheBundledOneAndRefusalsAreReported) {
    ShowHtmlHelp(*station);
    settings->save("Settings", "HelpFilePath", "/srv/station/help/index.htm");
    ShowHtmlHelp(*station);
    EXPECT_EQ(desktop.opened, QStringList({programDir + "gethelp.htm", "/srv/station/help/index.htm"}));
    EXPECT_TRUE(dialogs.messages.empty());

    desktop.succeed = false;
    ShowHtmlHelp(*station);
    ExpectOneBrowserError();
    ShowOnlineHelp(*station);
    ExpectOneBrowserError();
    EXPECT_EQ(desktop.opened.back(), MakerWebAddress());
    EXPECT_TRUE(OpenDocument(desktop, "/tmp/a.htm")); // true when refused
    desktop.succeed = true;
    EXPECT_FALSE(OpenDocument(desktop, "/tmp/a.htm"));
}

TEST_F(ShellWindowsTest, AboutShowsTheIconCreditsWhatShipsAndFollowsItsLink) {
    FormAbout about(*station, "3.8.2");
    about.show();
    auto* link = about.findChild<QLabel*>("Label8");
    QTest::mouseClick(link, Qt::LeftButton);
    QTest::mouseClick(link, Qt::RightButton); // only the left button follows the link
    EXPECT_EQ(desktop.opened, QStringList{MakerWebAddress()});
    EXPECT_TRUE(dialogs.messages.empty());
    desktop.succeed = false;
    QTest::mouseClick(link, Qt::LeftButton);
    ExpectOneBrowserError();
    EXPECT_TRUE(about.isVisible()); // the window stays

    QTest::mouseClick(about.findChild<QPushButton*>("Command1"), Qt::LeftButton);
    EXPECT_EQ(about.result(), QDialog::Accepted);
    EXPECT_FALSE(about.isVisible());
}

TEST_F(ShellWindowsTest, DirListStartsFromSelectedDirAndFollowsTheTreeAndTheDrives) {
    ASSERT_TRUE(QDir().mkpath(Path("Antennas/yagi")));
    station->SelectedDir = Path("Antennas");
    FormDirList chooser(*station);
    EXPECT_EQ(chooser.txtPath->text(), Path("Antennas"));
    EXPECT_EQ(chooser.Dir1Path(), Path("Antennas"));
    // The program folder holds it more closely than the file system's root does.
    EXPECT_EQ(chooser.Dir1Root(), QDir::cleanPath(programDir));
    // A change in the tree puts its folder in the box.
    chooser.Dir1->setCurrentIndex(IndexOf(chooser, Path("Antennas/yagi")));
    EXPECT_EQ(chooser.txtPath->text(), Path("Antennas/yagi"));
    // A drive chosen moves the tree and the box.
    for (const QString& drive : {QStringLiteral("/"), QDir::cleanPath(QDir::homePath())}) {
        const int i = chooser.Drive1->findData(drive);
        ASSERT_GE(i, 0) << drive.toStdString();
        emit chooser.Drive1->activated(i);
        EXPECT_EQ(chooser.txtPath->text(), drive);
        EXPECT_EQ(chooser.Dir1Root(), drive);
    }

    // A folder still to be made stays in the box; the tree shows the nearest that exists.
    station->SelectedDir = Path("Logs/2026");
    FormDirList later(*station);
    EXPECT_EQ(later.txtPath->text(), Path("Logs/2026"));
    EXPECT_EQ(later.Dir1Path(), QDir::cleanPath(dir.path()));
}

// OK takes an existing folder or makes a new one; one that cannot be made is reported and the
// window stays; a double click selects like OK; Cancel keeps the folder.
TEST_F(ShellWindowsTest, DirListOKDoubleClickAndCancel) {
    ASSERT_TRUE(QDir().mkpath(Path("a/picked")));
    ASSERT_TRUE(QDir().mkpath(Path("b")));
    WriteFile("plain", "");
    const struct {
        const char* typed;
        bool taken;
    } cases[] = {{"b", true}, {"new/deeper", true}, {"plain/sub", false}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.typed);
        station->SelectedDir = Path("a");
        dialogs.messages.clear();
        FormDirList chooser(*station);
        chooser.show();
        chooser.txtPath->setText(Path(c.typed));
        QTest::mouseClick(chooser.OKButton, Qt::LeftButton);
        EXPECT_EQ(QFileInfo(Path(c.typed)).isDir(), c.taken);
        EXPECT_EQ(station->SelectedDir, c.taken ? Path(c.typed) : Path("a"));
        EXPECT_EQ(chooser.isVisible(), !c.taken);
        if (c.taken) {
            EXPECT_EQ(chooser.result(), QDialog::Accepted);
            EXPECT_TRUE(dialogs.messages.empty());
        } else {
            ASSERT_EQ(dialogs.messages.size(), 1u);
            EXPECT_TRUE(dialogs.messages[0].text.startsWith("There was an error: could not create folder " +
                                                            Path(c.typed)));
        }
    }
    station->SelectedDir = Path("a");
    {
        FormDirList chooser(*station);
        chooser.show();
        emit chooser.Dir1->doubleClicked(IndexOf(chooser, Path("a/picked")));
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

TEST(QtDialogs, FiltersBecomeQtNameFilters) {
    EXPECT_EQ(QtDialogs::QtFilter("Observer File|*.obs|Any|*.*"), "Observer File (*.obs);;Any (*.*)");
    EXPECT_EQ(QtDialogs::QtFilter("Pictures|*.bmp;*.gif"), "Pictures (*.bmp *.gif)");
}
