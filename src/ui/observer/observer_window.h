// FormObserver: shows and edits the current observer record (latitude, longitude west or
// east, time zone, the zone the computer's clock runs on), loads and saves record files,
// and picks places from a city list, a world map or a picture of the time zones.
//
// Applying a change rebuilds the day tables, announces the new observer and closes the open
// views (through the station model).
#pragma once

#include "station/station.h"

#include <QDialog>

#include <functional>
#include <string>

class QCheckBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;

namespace tarvelle {

class FormObserver : public QDialog {
    Q_OBJECT
public:
    explicit FormObserver(Station& station, QWidget* parent = nullptr);

    // Validates and applies the boxes; done is false when a value was refused.
    void UpdateValues(bool& done);
    void ShowValues();
    // Writes the boxes to ObFileName; false (and said) when refused or not written.
    bool SaveoB();
    void reject() override;
    void SaveAsDefault();
    void DisplayLongitude();

    // Commands, as the buttons run them.
    void CmdLoadClick();
    void CmdSaveClick();
    void cmdEWClick();
    void CmdCitiesClick();
    void ListRegionsClick(const QString& region);
    void ListCitiesClick(const QString& city);
    void CmdTZClick();
    // The world map under the mouse, in its pixels.
    void MapMouseMove(int x, int y);
    void MapRightButton();

    bool Edited() const { return edited_; }

    QLineEdit *Txtlat = nullptr, *TxtLng = nullptr, *TxtTZ = nullptr, *txtSCTZ = nullptr;
    QCheckBox *chkDetectTZ = nullptr, *ChkMakeDefault = nullptr;
    QPushButton *cmdEW = nullptr, *CmdLoad = nullptr, *CmdSave = nullptr, *CmdApply = nullptr;
    QPushButton *CmdOK = nullptr, *CmdCancel = nullptr, *CmdCities = nullptr, *CmdTZ = nullptr;
    QLabel *LBLObFileName = nullptr, *LBLLatLng = nullptr, *LBLRegions = nullptr, *LBLCities = nullptr;
    QLabel* Picture1 = nullptr; // the world map
    QListWidget *ListRegions = nullptr, *ListCities = nullptr;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void BuildControls();
    void SetBoxQuietly(QLineEdit* box, const std::string& text);
    void BoxChanged();
    void HideLists();
    void SizeLists();
    std::string LatlngPath() const;

    Station& st_;
    Core& core_;

    // The values shown when the window opened.
    // The observer as the window found it or last applied it, for Cancel.
    struct ObserverFields {
        std::string ObFileName, ObLatText, ObLngText, DisplayWest;
        double ObsTZ, SystemClockTZ, ClockOffset;
        float ObsLatitude, ObsLongitude;
        bool UseDetectedTZ;
    };
    static ObserverFields KeepObserver(const Core& c);
    ObserverFields kept_;
    std::string openLatText_, openLngText_;
    double openObsTZ_ = 0.0, openSystemClockTZ_ = 0.0;
    bool openUseDetectedTZ_ = true;
    bool edited_ = false;
    bool eastWestChanged_ = false;
    bool showing_ = false; // ShowValues is filling the boxes: not an edit

    // The place under the mouse at the last move over the map.
    double mapLatitude_ = 0.0, mapLongitudeWest_ = 0.0;
};

} // namespace tarvelle
