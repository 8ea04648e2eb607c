// What the server's options window asks of the station that runs the server (the main
// window), so that the window needs to know nothing above it.
#pragma once

#include <QString>

namespace tarvelle {

class JisControl {
public:
    virtual ~JisControl() = default;
    virtual void StartJIS() = 0;
    virtual void StopJIS() = 0;
    virtual void SendJISInfo() = 0;
    virtual bool JISRunning() const = 0;
    // Why the last start failed, in plain words; empty after a start that worked.
    virtual QString JISFailure() const = 0;
};

} // namespace tarvelle
