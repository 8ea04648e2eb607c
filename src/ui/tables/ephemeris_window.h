// Form2, the ephemeris: for one GMT date, the day's positions and a grid of Jupiter's and the
// Sun's local positions with CML III and Io phase at a step of minutes, and its printout.
//
// It stops the main window's Timer1 when opened (the computation moves the core's clock); the
// main window starts it again when it is activated in real time.
#pragma once

#include "tables/ephemeris.h"
#include "ui/common/station_window.h"

#include <functional>

class QLabel;
class QLineEdit;
class QPushButton;
class QTableWidget;
class QTimer;

namespace tarvelle {

class Form2 : public StationWindow {
    Q_OBJECT
public:
    // mainTimer is the main window's Timer1; onClosed runs when the window closes.
    Form2(Station& station, QTimer* mainTimer, std::function<void()> onClosed, QWidget* parent = nullptr);

    void CmdCalcClick();
    void CmdPrintClick();
    bool EphemerisBusy() const { return busy_; }
    const EphemerisResult& Result() const { return result_; }

    QLineEdit *txtY = nullptr, *txtM = nullptr, *txtD = nullptr, *Text2 = nullptr;
    QPushButton *CmdCalc = nullptr, *CmdPrint = nullptr, *CmdExit = nullptr;
    QLabel *Label4 = nullptr, *LBLLocalDate = nullptr, *LBLDateFormat = nullptr, *LBLDate = nullptr;
    QLabel *LbLJupRA = nullptr, *LbLJupDec = nullptr, *LbLSunRA = nullptr, *LbLSunDec = nullptr;
    QLabel *LBLDe = nullptr, *LbLDist = nullptr, *LbLSep = nullptr;
    QTableWidget* Grid1 = nullptr;
    QTimer* Timer1 = nullptr;

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void BuildControls();
    void Tick();
    void ShowResult();
    void PrintHeading(class PagePrinter& printer, const QString& title) const;

    QTimer* mainTimer_;
    std::function<void()> onClosed_;
    bool busy_ = false;
    EphemerisResult result_;
};

} // namespace tarvelle
