#include "platform/system_desktop.h"

#include <QDesktopServices>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>

namespace tarvelle {

bool SystemDesktop::OpenDocument(const QString& pathOrAddress) {
    const QUrl url = QFileInfo::exists(pathOrAddress) ? QUrl::fromLocalFile(pathOrAddress)
                                                      : QUrl::fromUserInput(pathOrAddress);
    return QDesktopServices::openUrl(url);
}

// A text viewer the user is likely to have; the system's default handler otherwise.
bool SystemDesktop::ShowTextFile(const QString& path) {
    for (const char* viewer : {"gnome-text-editor", "gedit", "kate", "mousepad", "xed", "pluma"}) {
        const QString program = QStandardPaths::findExecutable(viewer);
        if (!program.isEmpty()) return QProcess::startDetached(program, {path});
    }
    return OpenDocument(path);
}

bool SystemDesktop::StartProgram(const QString& program, const QStringList& arguments) {
    return QProcess::startDetached(program, arguments);
}

void SystemDesktop::Beep() {
    if (beeper_) beeper_();
}

} // namespace tarvelle
