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
    // Lines that are not numbers in the observer file's forms are refused, naming the line.
    const std::string* lines[] = {&contents->latitudeText, &contents->longitudeText, &contents->timeZoneText};
    for (int i = 0; i < 3; ++i) {
        if (IsObserverNumberForm(*lines[i], i < 2)) continue;
        dialogs.Message("Line " + QString::number(i + 1) + " of " + QString::fromStdString(core.ObFileName) +
                            ", \"" + QString::fromStdString(lines[i]->substr(0, 40)) +
                            "\", is not a number in the form of an observer file.",
                        "FILE ERROR!", MsgButtons::OK, MsgIcon::Exclamation);
        return false;
    }
    const double zone = ValueOfText(contents->timeZoneText);
    if (zone < -24.0 || zone > 24.0) {
        dialogs.Message(QString(kTimeZoneErrorText) + "\n(" + QString::fromStdString(core.ObFileName) + ", line 3)",
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
    int line = 0;
    const int error = ReadModeFile(modes, &line);
    if (error == 0) return;
    const QString where = line > 0 ? QString(kLineEnd) + "Line " + QString::number(line) + "." : QString();
    dialogs.Message("Error " + QString::number(error) + " Occurred Loading " + Q(modes.ModeFileName) + "." +
                        kLineEnd + Q(ErrorText(error)) + where,
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
