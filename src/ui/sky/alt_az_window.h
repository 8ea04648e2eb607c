// FormAltAz ("Jupiter Altitude vs Azimuth Display"): the day's paths of Jupiter and the Sun on
// a flat chart of azimuth (across, one pixel a degree) against altitude (up, 90 at the top to
// -10 at the foot), with hour marks, and a sprite for each body at its present place.
//
// Sequence of use: construct, show(). In real time it follows the station's tick; the
// station's ShowForThisTime brings it to its instant with UpdateAltAz(). It closes itself on
// station.model.closeViews.
#pragma once

#include "render/plot_surface.h"
#include "ui/common/plot_widget.h"
#include "ui/common/station_window.h"

#include <cstdint>
#include <functional>

class QCheckBox;
class QLabel;

namespace tarvelle {

class Form8;
class ImageCamera;

class FormAltAz : public StationWindow {
    Q_OBJECT
public:
    // pictures holds the sprites, their mask and the save-under blocks; onClosed runs when the
    // window closes.
    FormAltAz(Station& station, Form8& pictures, std::function<void()> onClosed = {}, QWidget* parent = nullptr);

    void AllPlots();
    void GetPointer();
    void PlotAltAzSun();
    void PlotAltAz();
    void UpdateAltAz();
    void DoLabels();
    void PlotSun(double az, double alt);
    void PlotJup(double az, double alt);

    int16_t MinutePointer = 0;
    SpriteState JupBlock, SunBlock; // JupOnPlot and SunOnPlot are their onPlot flags

    PlotWidget* Pic1 = nullptr;
    QCheckBox *ChkPlotJupiter = nullptr, *ChkPlotSun = nullptr;
    QLabel *LBLDateTime = nullptr, *LBLaltAz = nullptr;
    class ImageCamera* ImageCamera = nullptr;

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void BuildControls();
    // The track of one body over the day tables, as PlotAltAz and PlotAltAzSun share it.
    void PlotTrack(bool jupiter);
    void MoveBody(bool jupiter, double az, double alt);

    Form8& pictures_;
    std::function<void()> onClosed_;
};

} // namespace tarvelle
