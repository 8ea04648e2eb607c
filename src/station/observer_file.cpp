#include "station/observer_file.h"

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
    core.ObLatText = contents->latitudeText;
    core.ObLngText = contents->longitudeText;
    core.ObsTZ = ValueOfText(contents->timeZoneText);
    core.ObsLatitude = static_cast<float>(ParseLatitude(core.ObLatText));
    core.ObsLongitude = static_cast<float>(ParseLongitude(core.ObLngText));
    return true;
}

} // namespace tarvelle
