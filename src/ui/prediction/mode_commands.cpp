#include "ui/prediction/mode_commands.h"

#include "ui/prediction/mode_editor_window.h"
#include "formats/mode_file.h"
#include "station/file_messages.h"

#include <QFileInfo>

namespace tarvelle {

namespace {

constexpr const char* kModeFilter = "Mode File|*.jmf|Any|*.*";

QString Q(const std::string& s) {
    return QString::fromStdString(s);
}

} // namespace

void TellOfUnpredictedModes(const ModeTableState& modes, Dialogs& dialogs) {
    if (modes.NumModes <= kPredictedModes) return;
    dialogs.Message("The mode file " + Q(modes.ModeFileName) + " holds " + QString::number(modes.NumModes) +
                        " modes.\nOnly the first six are predicted, shown in reports and used by automation.",
                    "Mode File", MsgButtons::OK, MsgIcon::Information);
}

void MnuLoadModeFileClick(Station& station) {
    ModeTableState& modes = station.modes;
    const QString path = station.dialogs.OpenFile("Load Mode File", kModeFilter, Q(modes.ModeFileName));
    if (path.isEmpty()) return;
    // The file is remembered only once it has loaded; a failure keeps the table and its name.
    const std::string previous = modes.ModeFileName;
    modes.ModeFileName = path.toStdString();
    int status = 0;
    LoadModeFile(modes, status, station.dialogs);
    if (status != 0) {
        modes.ModeFileName = previous;
        return;
    }
    station.settings.save("Startup", "ModeFileName", path);
    TellOfUnpredictedModes(modes, station.dialogs);
    station.model.ModesChanged();
}

void MnuSaveModeFileClick(Station& station) {
    const ModeTableState& modes = station.modes;
    // The dialog starts in the program directory unless the current name carries a folder of its own.
    const QString name = Q(modes.ModeFileName);
    const QString start = QFileInfo(name).isAbsolute() ? name : station.programDir + name;
    const QString path = station.dialogs.SaveFile("Save Mode File", kModeFilter, start);
    if (path.isEmpty()) return;
    int status = 0;
    SaveModeFile(modes, path.toStdString(), status, station.dialogs);
}

void MnuEditModeFileClick(Station& station, QWidget* parent) {
    Form4 form(station, parent);
    form.exec();
}

} // namespace tarvelle
