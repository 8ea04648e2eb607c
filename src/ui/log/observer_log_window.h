// FormObserverLog, "Observer Log": a free text notebook with time stamps, position lines and
// nine quick buttons that log a burst with one click, saved to and loaded from text files.
// Not modal. Its Hide command only hides it (the text stays for the next opening); closing
// asks about unsaved text.
#pragma once

#include "ui/common/station_window.h"

#include <QWidget>

#include <array>
#include <functional>

class QAction;
class QGroupBox;
class QMenuBar;
class QPlainTextEdit;
class QPushButton;

namespace tarvelle {

class FormObserverLog : public StationWindow {
    Q_OBJECT
public:
    explicit FormObserverLog(Station& station, QWidget* parent = nullptr);

    QString GetTimeStamp() const;
    // The log as the file holds it, lines ended by CR LF.
    QString LogText() const;

    void mnuNewClick();
    void mnuLoadClick();
    // True when the log was written.
    bool mnuSaveClick();
    void mnuAppendFileClick();
    void mnuDefaultLogDirectoryClick();
    void mnuUseUTClick();
    void mnuQuickLogClick();
    void Insert(const QString& text);

    QString LogFileName;
    bool LogDirty = false;
    double LogStart = 0.0;
    bool UseUT = false;
    QString DefaultLogDir, LastLogDir;
    // Chooses a folder starting from the station's SelectedDir and leaves it there; by default
    // the modal FormDirList.
    std::function<void()> ChooseLogDirectory;

    QPlainTextEdit* txtEntry = nullptr;
    QGroupBox* Frame1 = nullptr;
    std::array<QPushButton*, 3> cmdU{}, cmdL{}, cmdS{};
    QAction *mnuNew = nullptr, *mnuLoad = nullptr, *mnuSave = nullptr, *mnuPrint = nullptr, *mnuHide = nullptr;
    QAction *mnuAppendFile = nullptr, *mnuExit = nullptr;
    QAction *mnuCopy = nullptr, *mnuCut = nullptr, *mnuPaste = nullptr, *mnuSelectAll = nullptr, *mnuDelete = nullptr;
    QAction *mnuUseUT = nullptr, *mnuDefaultLogDirectory = nullptr, *mnuQuickLog = nullptr;
    QAction *mnuTimeStamp = nullptr, *mnuJupAltAz = nullptr, *mnuCMLIoPhase = nullptr;

protected:
    void closeEvent(QCloseEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void BuildMenus(QMenuBar* bar);
    QWidget* BuildQuickPanel();
    void ReadDisplayOptions();
    void StartLog();
    // The question before New and Load; false when the command is to end.
    bool AskToSave();
    void SetLogText(const QString& crlfText);
    bool ChooseAndRead(const QString& title, const QString& start, QString& chosen, QString& text);

    bool shown_ = false;
};

} // namespace tarvelle
