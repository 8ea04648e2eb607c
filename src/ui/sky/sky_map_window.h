// FormSkyMap ("SkyMap"): the observer's whole sky as a disc, the zenith at the centre and the
// horizon at the rim, north up and east on the left: the sky shaded by the Sun's height, a
// grid, the stars, the antenna and its beams, the local horizon, the tracks and marks of
// Jupiter and the Sun, and the galactic plane. The drawing itself is ui/sky/sky_map_drawing.h.
//
// Sequence of use: construct, show(). In real time Timer1 redraws once a minute; the station's
// ShowForThisTime brings an open map to its instant with GetPointer() then UpdateSkymap(), and
// a new map only with UpdateSkymap(). The window closes itself on station.model.closeViews.
#pragma once

#include "formats/antenna_file.h"
#include "formats/horizon_file.h"
#include "ui/common/plot_widget.h"
#include "ui/common/station_window.h"

#include <QString>

#include <cstdint>
#include <functional>

class QCheckBox;
class QLabel;
class QPushButton;
class QTimer;

namespace tarvelle {

class Form8;
class ImageCamera;
struct SkyMapScene;

class FormSkyMap : public StationWindow {
    Q_OBJECT
public:
    // pictures holds Jupiter's sprite and its mask; onClosed runs when the window closes.
    FormSkyMap(Station& station, const Form8& pictures, std::function<void()> onClosed = {},
               QWidget* parent = nullptr);

    void DoTimeDateLabels();
    void scalemap();
    void UpdateSkymap();
    void GetPointer();
    // LoadAntFile: reads AntFileName into the window's antenna and works out its contours.
    void LoadAntFile(QString& path);
    void LoadHorizonFile(const QString& path);

    // Commands.
    void cmdAntClick();
    void cmdDefAntClick();
    void cmdHorizonClick();
    void CmdMagClick();
    void PicSkyMapMouseMove(float x, float y);

    int16_t MinutePointer = 0;
    float StarMagLimit = 5.0f;
    int UseHorizon = 0;
    QString HorizonFileName;
    HorizonTable HorizonAlt{};
    QString AntFileName = "NONE"; // the antenna file; "NONE" or empty: no antenna
    Antenna antenna;

    PlotWidget* PicSkyMap = nullptr;
    QCheckBox *ChkGrid = nullptr, *ChkStars = nullptr, *ChkJupTrack = nullptr, *ChkSunTrack = nullptr;
    QCheckBox *chkGalacticPlane = nullptr, *chkHorizon = nullptr;
    QPushButton *CmdMag = nullptr, *cmdHorizon = nullptr, *cmdAnt = nullptr, *cmdDefAnt = nullptr;
    class ImageCamera* ImageCamera = nullptr;
    QLabel *LBLDate = nullptr, *LBLTime = nullptr, *LBLDateFormat = nullptr, *LabelJup = nullptr;
    QLabel *LBLJupAlt = nullptr, *LBLJupAz = nullptr, *LabelSun = nullptr, *LBLSunAlt = nullptr;
    QLabel *LBLSunAz = nullptr, *LBLAntName = nullptr;
    QTimer* Timer1 = nullptr;
    QWidget* Controls = nullptr; // the column beside the map

protected:
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void BuildControls();
    void ReadSettings();
    void ConnectControls();
    bool AntennaLoaded() const { return AntFileName != "NONE" && !AntFileName.isEmpty(); }
    QString AntennaDirectory() const;

    const Form8& pictures_;
    std::function<void()> onClosed_;
};

} // namespace tarvelle
