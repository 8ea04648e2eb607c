#include "station/file_messages.h"

#include "formats/error_text.h"

#include "formats/observer_record.h"
#include "core/text_forms.h"

namespace tarvelle {

bool LoadObserverFile(Core& core, Dialogs& dialogs) {
    int errorNumber = 0;
    const auto contents = ReadObserverFile(core.ObFileName, errorNumber);
    if (!contents) {
        dialogs.Message("Error " + QString::number(errorNumber) + "\n Occurred Loading " +
                            QString::fromStdString(core.ObFileName),
                        "FILE ERROR!", MsgButtons::OK, MsgIcon::Exclamation);
        return false;
    }
    std::string latText = contents->latitudeText, lngText = contents->longitudeText;
    const double latitude = ParseLatitude(latText);
    const double longitude = ParseLongitude(lngText);
    // A record whose place is refused leaves the observer as it was, and says which field.
    const std::string refusal = latitude == kRejected    ? LatitudeRefusal(contents->latitudeText)
                                : longitude == kRejected ? LongitudeRefusal(contents->longitudeText)
                                                         : std::string();
    if (!refusal.empty()) {
        dialogs.Message(QString::fromStdString(refusal) + "\n(" + QString::fromStdString(core.ObFileName) + ")",
                        "FILE ERROR!", MsgButtons::OK, MsgIcon::Exclamation);
        return false;
    }
    core.ObLatText = contents->latitudeText;
    core.ObLngText = contents->longitudeText;
    core.ObsTZ = ValueOfText(contents->timeZoneText);
    core.ObsLatitude = static_cast<float>(latitude);
    core.ObsLongitude = static_cast<float>(longitude);
    return true;
}

namespace {

constexpr const char* kLineEnd = "\r\n";

QString Q(const std::string& s) {
    return QString::fromStdString(s);
}

} // namespace

void LoadModeFile(ModeTableState& modes, int& status, Dialogs& dialogs) {
    const int error = ReadModeFile(modes);
    if (error == 0) return;
    dialogs.Message("Error " + QString::number(error) + " Occurred Loading " + Q(modes.ModeFileName) + "." +
                        kLineEnd + Q(ErrorText(error)),
                    "FILE ERROR!", MsgButtons::OK, MsgIcon::Exclamation);
    status = error;
}

void SaveModeFile(const ModeTableState& modes, const std::string& path, int& status, Dialogs& dialogs) {
    const FileFailure failure = WriteModeFile(modes, path);
    if (failure.number == 0) return;
    // The message names the current mode file even when path is another.
    dialogs.Message("Error " + QString::number(failure.number) + " Occurred Saving " + Q(modes.ModeFileName) +
                        "." + kLineEnd + Q(failure.description),
                    "FILE ERROR!", MsgButtons::OK, MsgIcon::Exclamation);
    status = 1;
}

} // namespace tarvelle
