// FormTimeZones: a picture of the world's time zones with a bar of zone cells along the
// bottom; a click on the bar picks a zone. SelectedTZ is 99 when none was picked.
//
//     FormTimeZones zones(observerWindow);
//     zones.exec();
//     if (zones.SelectedTZ() != FormTimeZones::kNoZone) ... // hours east
//
// Picture1 shows the picture at 1:1. A mouse move over the bar (y of 310 or more) remembers
// its x; a click then picks the zone of that x and shows it in the title. CmdOK and Esc close
// keeping the choice; CmdCancel forgets it (99) and closes.
#pragma once

#include <QDialog>

class QLabel;
class QPushButton;

namespace tarvelle {

class FormTimeZones : public QDialog {
    Q_OBJECT
public:
    static constexpr int kNoZone = 99;
    static constexpr int kBarTop = 310; // first picture row of the bar of zone cells

    explicit FormTimeZones(QWidget* parent = nullptr);

    int SelectedTZ() const { return selectedTZ_; }
    // Sets SelectedTZ from the x of the last mouse move over the bar.
    void getTZ();

    // Controls, named as their objectNames.
    QLabel* Picture1 = nullptr;
    QPushButton* CmdOK = nullptr;
    QPushButton* CmdCancel = nullptr;

private:
    void Picture1MouseMove(const QPoint& position);
    void Picture1Click();
    void CmdOKClick();
    void CmdCancelClick();

    int selectedTZ_ = kNoZone;
    int lastX_ = 0; // in picture pixels
};

} // namespace tarvelle
