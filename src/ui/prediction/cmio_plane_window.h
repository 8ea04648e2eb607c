// FormCMIoPlane: the plane of CML III (across) and Io phase (up) over a picture of the
// emission probability, with the day's track and its hours, a marker for the present moment
// and the probability under the mouse.
//
// The surface Pic1 is 360 x 360 pixels, one a degree. A point of CML c stands at x = c minus
// PlaneShift (0 or 45), brought into 0..360. In real time a 6-second timer moves the marker.
#pragma once

#include "ui/common/plot_widget.h"
#include "station/station.h"
#include "ui/common/station_window.h"

#include <QWidget>

#include <cstdint>
#include <functional>

class QCheckBox;
class QLabel;
class QPushButton;
class QTimer;

namespace tarvelle {

class Form8;
class ImageCamera;

class FormCMIoPlane : public StationWindow {
    Q_OBJECT
public:
    // pictures holds the Jupiter sprite, its mask and the save-under block; startMainTimer
    // enables the main window's Timer1; onClosed runs when the window closes.
    FormCMIoPlane(Station& station, Form8& pictures, std::function<void()> startMainTimer,
                  std::function<void()> onClosed, QWidget* parent = nullptr);

    void PlotJup();
    void StopTimers() {}
    void StartTimers();
    void GetPointer();
    void DoCaption();
    void UpdateCMIoPlane();
    void CreateBackground();
    void PlotDay();

    // The picture file for the present choice of shift, legend and zones.
    QString PictureFileName() const;
    // The mouse over the plane, in the surface's coordinates, and away from it.
    void Pic1MouseMove(float x, float y);
    void ShowPlottedValues();

    int PlaneShift = 45;
    int16_t PlaneDay = 0;
    int16_t DayPointer = 0;
    float PlotCML = 0.0f, PlotIo = 0.0f;
    SpriteState JupiterSprite;

    PlotWidget* Pic1 = nullptr;
    QLabel* Image1 = nullptr; // the colour legend
    QCheckBox *chkShift45 = nullptr, *chkShowZones = nullptr, *ChkShowScale = nullptr, *chkShowLegend = nullptr;
    QPushButton* cmdProbHelp = nullptr;
    class ImageCamera* ImageCamera = nullptr;
    QLabel *LBLCML = nullptr, *LBLioPhase = nullptr, *LBLProb = nullptr;
    QLabel *LBLTime = nullptr, *LBLDate = nullptr, *LBLDateFormat = nullptr, *LBLNote = nullptr;
    QTimer* Timer1 = nullptr;

protected:
    void closeEvent(QCloseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

private:
    void BuildControls();
    void Redraw();
    void SetProbabilityLabels(float cml, float io);

    Form8& pictures_;
    std::function<void()> startMainTimer_, onClosed_;
};

} // namespace tarvelle
