// The Help menu's commands and the web link of the About window. Each hands a path or an
// address to the system's default handler and, if the system refuses, says so in the
// "Browser Error" message box.
#pragma once

#include <QString>

namespace tarvelle {

class Desktop;
struct Station;

// Hands a path or web address to the system's default handler; true if the system refused.
bool OpenDocument(Desktop& desktop, const QString& target);

// The maker's web address, a build setting.
QString MakerWebAddress();

// OpenDocument of the target; a refusal shows the "Browser Error" message. True if refused.
bool OpenInBrowser(Station& station, const QString& target);

// mnuHTMLHelp: the help page, ("Settings", "HelpFilePath"), by default gethelp.htm of the
// program directory.
void ShowHtmlHelp(Station& station);

// mnuOnLineHelp: the maker's web site.
void ShowOnlineHelp(Station& station);

// The path ShowHtmlHelp opens.
QString HelpFilePath(const Station& station);

} // namespace tarvelle
