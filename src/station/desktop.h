// The desktop around the program: opening documents and addresses, showing a text file,
// starting programs, and the beep.
#pragma once

#include <QString>
#include <QStringList>

namespace tarvelle {

class Desktop {
public:
    virtual ~Desktop() = default;
    // Opens a path or an address with the system's default handler; false if nothing did.
    virtual bool OpenDocument(const QString& pathOrAddress) = 0;
    // Shows a text file in the system's text viewer.
    virtual bool ShowTextFile(const QString& path) = 0;
    // Starts a program detached; false if it could not be started.
    virtual bool StartProgram(const QString& program, const QStringList& arguments) = 0;
    virtual void Beep() = 0;
};

} // namespace tarvelle
