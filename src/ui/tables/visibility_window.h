// FormRiseSet, the yearly visibility chart: a day a row, local time across, coloured by which
// of Jupiter and the Sun are up. Normal resolution is 72 steps a day, high resolution 1440.
//
// The main window's Timer1 stops while a chart is computed; the main window starts it again
// when activated in real time.
#pragma once

#include "tables/visibility.h"
#include "ui/common/station_window.h"

class QCheckBox;
class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;
class QTimer;

namespace tarvelle {

class PlotWidget;

// The chart's colour of a letter.
int VisibilityColour(Visible v);

class FormRiseSet : public StationWindow {
    Q_OBJECT
public:
    FormRiseSet(Station& station, QTimer* mainTimer, QWidget* parent = nullptr);

    void CmdCalcClick();
    void CmdNextYearClick();
    void Pic1MouseMove(float x, float y);
    int Year() const { return year_; }

    QLineEdit* TxtGraphYear = nullptr;
    QPushButton *CmdCalc = nullptr, *CmdNextYear = nullptr, *CmdExit = nullptr;
    QCheckBox *ChkGrid = nullptr, *ChkHiRes = nullptr;
    QLabel *Label1 = nullptr, *Label2 = nullptr, *Label3 = nullptr, *Label4 = nullptr;
    QLabel *PicX = nullptr, *PicY = nullptr;
    QProgressBar* Progress = nullptr;
    PlotWidget* Pic1 = nullptr;

private:
    void BuildControls();
    QWidget* BuildLegend();
    void DrawDay(int day, const std::string& letters, const VisibilityResolution& res);

    QTimer* mainTimer_;
    int year_ = 0;
    bool busy_ = false;
};

} // namespace tarvelle
