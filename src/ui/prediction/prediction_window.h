// Form3, the prediction window: the day's chart of Jupiter's altitude with the minutes at
// which each mode is active, the grid of begin and end times, the exclusions, the printout,
// and the event report over a span of dates.
//
// It stops the main window's timer while it is active (the prediction moves the core's
// clock) and puts the clock back when it closes.
#pragma once

#include "prediction/prediction.h"
#include "ui/prediction/prediction_chart.h"
#include "ui/prediction/report_options_window.h"
#include "station/station.h"
#include "ui/common/station_window.h"

#include <QWidget>

#include <functional>
#include <optional>

class QLabel;
class QLineEdit;
class QAction;
class QMenu;
class QPushButton;
class QTableWidget;
class QTimer;

namespace tarvelle {

class PlotWidget;

class Form3 : public StationWindow {
    Q_OBJECT
public:
    // stopMainTimer stops the main window's Timer1; onClosed runs when the window closes.
    Form3(Station& station, std::function<void()> stopMainTimer, std::function<void()> onClosed,
          QWidget* parent = nullptr);

    void DoPredictions();
    void ShowPrediction();
    void HourBar();
    void SunAltBar();
    void ChkValidDate(bool& valid);
    void ArrangeDateFields();

    void CmdPredictClick();
    void CmdNextDayClick();
    void CmdPreviousClick();
    void cmdNowClick();
    void CmdPredictPrintClick();
    void CmdReportClick();
    void CmdCancelReportClick() { reportCancelled_ = true; }
    // The mouse over the chart, in its seconds of the day.
    void Picture1MouseMove(float x);

    double PredictDate = 0.0;
    bool ReportInProgress() const { return reportInProgress_; }
    const PredictionGrid& Grid() const { return grid_; }
    // The second of the day where the present minute's line stands, if it is drawn.
    std::optional<double> NowSecond() const { return nowSecond_; }
    const ReportOptions& Report() const { return choices_; }

    QLineEdit *txtYear = nullptr, *txtMonth = nullptr, *txtDay = nullptr;
    QLineEdit *txtJupAltMin = nullptr, *txtSunAltMax = nullptr, *txtMinHA = nullptr, *txtMaxHA = nullptr;
    QPushButton *CmdPredict = nullptr, *CmdNextDay = nullptr, *CmdPrevious = nullptr, *cmdNow = nullptr;
    QPushButton *CmdPredictPrint = nullptr, *CmdReport = nullptr, *CmdCancelReport = nullptr, *CmdExit = nullptr;
    QLabel *LBLDate = nullptr, *LBLDateFormat = nullptr, *LBLWait = nullptr, *LblPrintTitle = nullptr;
    QLabel *LBLTime = nullptr, *LBLJupAlt = nullptr, *LBLJupHA = nullptr, *LBLSunAlt = nullptr;
    QLabel* LBLReportProgress = nullptr;
    QList<QLabel*> LBLMode; // the legend, one label a mode
    PlotWidget* Picture1 = nullptr;
    PlotWidget* PicSunAlt = nullptr;
    class ImageCamera* ImageCamera = nullptr; // copies the chart to the clipboard
    QTableWidget* Grid1 = nullptr;
    // The right button on the chart: the views at the moment under the mouse.
    QMenu* mnuOtherScreens = nullptr;
    QAction* mnuShowForThisTime = nullptr;
    void Picture1RightButton(float x);

signals:
    // The user asks to see the station's views at instant t (GMT); the main window serves it.
    void showForThisTime(double t);

protected:
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void BuildControls();
    void ShowDateInFields(double t);
    void ShowGrid();
    void DrawChart();
    // The present minute's line, when the date shown is today's GMT date.
    void NowLine();
    // The chart again from the day kept when it was predicted: a new size, a new minute.
    void RedrawChart();
    void MoveNowLine();
    // The right button on an event's time offers to add it to the planner.
    ReportExclusions Exclusions() const;
    QString ReportPath();

    std::function<void()> stopMainTimer_, onClosed_;

    PredictionGrid grid_;
    ChartDay chartDay_;
    MinuteTables chartMinutes_; // the minute tables of the day drawn
    std::optional<double> nowSecond_;
    QTimer* nowTimer_ = nullptr;
    ReportOptions choices_;
    bool reportInProgress_ = false;
    bool reportCancelled_ = false;
};

} // namespace tarvelle
