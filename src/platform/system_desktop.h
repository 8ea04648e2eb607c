// The real desktop: the system's handlers for documents and addresses, detached programs.
#pragma once

#include "station/desktop.h"

#include <functional>

namespace tarvelle {

class SystemDesktop final : public Desktop {
public:
    // beeper sounds the bell; the windowed program passes QApplication::beep, a headless one
    // may leave it empty.
    explicit SystemDesktop(std::function<void()> beeper = {}) : beeper_(std::move(beeper)) {}
    bool OpenDocument(const QString& pathOrAddress) override;
    bool ShowTextFile(const QString& path) override;
    bool StartProgram(const QString& program, const QStringList& arguments) override;
    void Beep() override;

private:
    std::function<void()> beeper_;
};

} // namespace tarvelle
