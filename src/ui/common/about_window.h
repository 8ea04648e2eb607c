// FormAbout: the program's title and version, the maker's web address to click, and the
// credits for the data the program carries. Opened as a dialog from mnuAbout:
//
//     FormAbout about(station, versionText, mainWindow);
//     about.exec();
//
// Command1 ("OK") closes it and brings the main window (its parent) forward. A click on
// Label8 opens the web address; a refusal shows the "Browser Error" message.
#pragma once

#include <QDialog>

class QLabel;
class QPushButton;

namespace tarvelle {

struct Station;

class FormAbout : public QDialog {
    Q_OBJECT
public:
    FormAbout(Station& station, const QString& versionText, QWidget* parent = nullptr);

    // Controls, named as their objectNames.
    QLabel* LabelTitle = nullptr;
    QLabel* LabelVersion = nullptr;
    QLabel* Label8 = nullptr;
    QLabel* LabelCredits = nullptr;
    QLabel* Image1 = nullptr;
    QPushButton* Command1 = nullptr;

private:
    void Command1Click();
    void Label8Click();

    Station& st_;
};

} // namespace tarvelle
