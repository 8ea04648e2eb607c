#include "station/help_commands.h"

#include "station/station.h"
#include "station/version.h"

namespace tarvelle {

namespace {

// Two parts joined directly, so that two blanks stand before "your".
const QString kBrowserErrorText =
    QStringLiteral("There was a problem launching your default Web Browser, please check "
                   " your Web Browser and try again");

} // namespace

bool OpenDocument(Desktop& desktop, const QString& target) {
    return !desktop.OpenDocument(target);
}

QString MakerWebAddress() {
    return QString::fromUtf8(kWebAddress);
}

bool OpenInBrowser(Station& station, const QString& target) {
    const bool refused = OpenDocument(station.desktop, target);
    if (refused)
        station.dialogs.Message(kBrowserErrorText, "Browser Error", MsgButtons::OK, MsgIcon::Critical);
    return refused;
}

QString HelpFilePath(const Station& station) {
    return station.settings.get("Settings", "HelpFilePath", station.programDir + "gethelp.htm");
}

void ShowHtmlHelp(Station& station) {
    OpenInBrowser(station, HelpFilePath(station));
}

void ShowOnlineHelp(Station& station) {
    OpenInBrowser(station, MakerWebAddress());
}

} // namespace tarvelle
