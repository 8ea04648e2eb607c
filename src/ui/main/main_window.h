// Form1, the station window: the live readout of the Sun, Jupiter, CML III and Io, the date
// and time boxes, the row of buttons and the menus that open every other window.
//
// Sequence of use: construct with the Station, call Load() once (the start-up sequence; it
// reads the settings and the observer, sets the clock, builds the day tables and starts
// Timer1), then show(). Each Timer1 tick reads the clock and refreshes the readout.
#pragma once

#include "prediction/next_window.h"
#include "server/jis_control.h"
#include "station/station.h"

#include "render/picture_store.h"

#include <QMainWindow>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

class QAction;
class QBoxLayout;
class QEvent;
class QLabel;
class QLineEdit;
class QMenu;
class QPushButton;
class QTimer;
class QToolButton;
class QWidget;

namespace tarvelle {

class JisServer;
class FormObserverLog;
class ScriptRunner;

class Form1 : public QMainWindow, public JisControl {
    Q_OBJECT
public:
    explicit Form1(Station& station, QWidget* parent = nullptr);
    ~Form1() override;

    void Load();

    // The readout.
    void DisplayTimes();
    void DisplayInfo();
    void FillObLabel();
    void DisplayCaption();
    void PutDateInBox(double t);
    void PutTimeInBox(double t);
    void PlaceButtons();
    void ArrangeDateBoxes();

    // The once-a-second heartbeat of real time.
    void Timer1Tick();

    // Real and fixed time, GMT and local, and the entry of a date and time.
    void MnuRealTimeClick();
    void SwitchToFixedTime();
    void NewTime();
    void SetFixedTime();
    void cmdUpdateTimeClick();
    void MnuUseGMTClick();
    void mnuCalendarClick();
    void mnuDateFormatClick();
    void mnuObserverClick();
    bool GetDateFromBox(double& t);
    void GetTimeFromBox(double& t);
    // "hh:mm:ss", or "" after telling the user the time could not be read.
    QString ParseTimeText(const QString& text);
    // The day's activity for the main window, and the activity line on the status line.
    void UpdateTodayActivity();
    void CheckForActivity(bool& found, std::string& names);
    void VisualAlert();
    void MnuPredictionClick();
    void MnuCMIOPlaneMapClick();
    // The ephemeris tables and graphs.
    void MnuEphemerisClick();
    void mnuYearlyRiseSetClick();
    void MnuDeClick();
    void mnuAltAzTableClick();
    // The sky displays: the sky map, the Alt/Az display and the sky image viewer.
    void ConnectSkyWindows();
    void MnuSkyMapClick();
    void MnuAltAzDisplayClick();
    void mnuSkyImageClick();
    template <typename W>
    void OpenSkyView(const char* displayItem, const char* windowEntry);
    // Closes every window but this one, the picture store and the observer window.
    void CloseForms();
    // A view window opened from the display menu: checks its menu item and enables its entry in
    // the Window menu, which brings it back into view.
    void RegisterViewWindow(QWidget* window, QAction* displayItem, QAction* windowEntry);

    // The information server. Socket events arrive here: a "J" sends the block, a "P" puts the
    // station at the instant asked for and then sends it.
    void LoadJISParameters();
    void StartJIS() override;
    void StopJIS() override;
    void SendJISInfo() override;
    bool JISRunning() const override { return jisRunning_; }
    QString JISFailure() const override { return jisFailure_; }
    JisServer& Socket1() const { return *socket1_; }
    // Puts the whole station at instant t (GMT) in fixed time and brings the open views there;
    // with openWindows, a view that is not open is opened.
    void ShowForThisTime(double t, bool openWindows);
    // The last visible top-level window carrying the tag, if any.
    static QWidget* TaggedWindow(const char* tag);
    void mnuJISClick();
    void mnuObserverLogClick();

    const std::string& TitleText() const { return titleText_; }
    const std::string& VersionText() const { return versionText_; }
    int LastDay() const { return lastDay_; }
    std::optional<int> LastMinute() const { return lastMinute_; }
    QTimer* Timer1() const { return timer1_; }

protected:
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void BuildMenus();
    void ConnectCommands();
    void ConnectTablesWindows();
    void SetBoxesEditable(bool editable);
    double ComputerDate() const;
    void BuildButtons(QWidget* row);
    QWidget* BuildTimePanel();
    QWidget* BuildReadoutPanel();
    QAction* AddAction(QMenu* menu, const char* name, const char* caption, bool checkable = false);
    QToolButton* AddPictureButton(QWidget* row, const char* name, const char* tip);

    // Start-up and tick steps that belong to subsystems not in this build yet; each is the
    // call it will be, in its place, and does nothing until its subsystem lands.
    void LoadProbTable();
    void LoadPictureStore();
    void LoadModeFile();
    void ObserverChanged();
    void TellOfSettings(const QStringList& reset);
    void LoadAutomationParameters();
    void AutomationMonitor();

    // The server's and the log's commands, and the views ShowForThisTime serves.
    void ConnectServerAndLog();
    struct TimedView {
        const char* tag;                       // the "tag" property the window carries
        std::function<void(QWidget*)> refresh; // brings an open window to the instant
        std::function<void()> open;            // opens the window at the instant
    };
    std::vector<TimedView> ViewsForThisTime();

    // Scripts and automation.
    void ConnectScriptingWindows();
    void MnuRunScriptClick();
    void mnuStepThroughScriptClick();
    void MnuLoadEditScriptClick();
    void MnuParametersClick();
    void CmdAutomationClick();
    void MnuActivateClick();

    // The next audible window on the status line.
    void ConnectNextWindow(QBoxLayout* status);
    void UpdateNextWindow(bool inputsChanged);
    long long nextMinute_ = -1; // the minute the line was made for
    double nextWindowsDay_ = -1.0; // the GMT day nextWindows_ begin with
    std::vector<NextWindow> nextWindows_;

    Station& st_;
    Core& core_;
    std::unique_ptr<ScriptRunner> scripts_;

    std::string titleText_;
    std::string versionText_;
    int lastDay_ = 0;
    std::optional<int> lastMinute_;
    bool firstFix_ = false;
    double calendarDate_ = 0.0;
    bool calendarCancelled_ = false;

    QTimer* timer1_ = nullptr;
    std::unique_ptr<Form8> form8_;
    QWidget* buttonRow_ = nullptr;
    QWidget* datePanel_ = nullptr;
    JisServer* socket1_ = nullptr;
    bool jisRunning_ = false;
    QString jisFailure_;
    FormObserverLog* observerLog_ = nullptr; // hidden, not closed, by its Hide command

public:
    // Controls, named as their objectNames.
    QLineEdit *txtY = nullptr, *txtM = nullptr, *txtD = nullptr, *txtH = nullptr, *txtN = nullptr,
              *txtS = nullptr;
    QLabel *Label3 = nullptr, *LBLOB = nullptr, *LBLQ = nullptr, *LBLDate = nullptr, *LBLDateFormat = nullptr;
    QLabel* LBLNext = nullptr;
    QLabel *LbLJupRA = nullptr, *LbLJupDec = nullptr, *LBlCMIII = nullptr, *LbLSGC = nullptr;
    QLabel *LBLJupAlt = nullptr, *LBLJupAz = nullptr, *LbLJupRise = nullptr, *LbLJupSet = nullptr;
    QLabel *LBLJupHA = nullptr, *LbLSunRA = nullptr, *LbLSunDec = nullptr, *LBLSunAlt = nullptr;
    QLabel *LBLSunAz = nullptr, *LbLSunRise = nullptr, *LbLSunSet = nullptr, *LBLSunHA = nullptr;
    QPushButton *cmdCal = nullptr, *cmdUpdateTime = nullptr, *cmdReal = nullptr, *cmdGMT = nullptr;
    QToolButton *cmdObserver = nullptr, *CmdPredict = nullptr, *cmdCMLiOPlane = nullptr, *cmdSkyMap = nullptr;
    QToolButton *cmdAltAz = nullptr, *cmdEphemeris = nullptr, *cmdDsubE = nullptr, *cmdVisibility = nullptr;
    QToolButton *cmdObserverlog = nullptr, *CmdAutomation = nullptr, *cmdRunAutomation = nullptr;
    QToolButton* cmdStopAutomation = nullptr;
    QAction *MnuRealTime = nullptr, *MnuUseGMT = nullptr, *MnuFileExit = nullptr;
    QAction *mnuCalendar = nullptr, *mnuDateFormat = nullptr, *mnuObserver = nullptr;
    QAction *mnuHTMLHelp = nullptr, *mnuOnLineHelp = nullptr, *mnuAbout = nullptr;
    QAction *MnuPrediction = nullptr, *MnuWindowPredict = nullptr;
    QAction *MnuCMIOPlaneMap = nullptr, *MnuWindowCMIOPlane = nullptr;
    QAction *mnuJIS = nullptr, *mnuObserverLog = nullptr;
    QAction *MnuLoadModeFile = nullptr, *MnuSaveModeFile = nullptr, *MnuEditModeFile = nullptr;
    QLabel* PicJupIcon = nullptr; // shown while a mode is active
    Form8* PictureStore() const { return form8_.get(); }
    ScriptRunner& Scripts() const { return *scripts_; }
};

} // namespace tarvelle
