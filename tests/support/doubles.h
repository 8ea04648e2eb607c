// Doubles of the station's seams for tests: a clock set by hand, a desktop that records what
// was asked of it, and dialogs with scripted answers that record every message.
#pragma once

#include "station/clock_source.h"
#include "station/desktop.h"
#include "station/dialogs.h"

#include <QStringList>

namespace tarvelle {

class FakeClock final : public ClockSource {
public:
    double local = 0.0;
    double biasHours = 0.0;
    double LocalNow() const override { return local; }
    double ClockTimeZoneBias() const override { return biasHours; }
};

class RecordingDesktop final : public Desktop {
public:
    QStringList opened, shown, started;
    int beeps = 0;
    bool succeed = true;
    bool OpenDocument(const QString& p) override {
        opened << p;
        return succeed;
    }
    bool ShowTextFile(const QString& p) override {
        shown << p;
        return succeed;
    }
    bool StartProgram(const QString& program, const QStringList& args) override {
        started << (program + (args.isEmpty() ? QString() : " " + args.join(' ')));
        return succeed;
    }
    void Beep() override { ++beeps; }
};

class ScriptedDialogs final : public Dialogs {
public:
    struct Shown {
        QString text, title;
        MsgButtons buttons;
        MsgIcon icon;
    };
    std::vector<Shown> messages;
    std::vector<MsgAnswer> answers;             // taken in order; OK (or Yes) once they run out
    std::vector<std::optional<QString>> inputs; // taken in order; cancel once they run out
    size_t nextInput = 0;
    QStringList paths; // file and directory answers in order; "" cancels
    // Print dialogs: cancelled when empty, else the pages go to a PDF file at this path.
    QString printToPdf;
    int printDialogs = 0;

    MsgAnswer Message(const QString& text, const QString& title, MsgButtons buttons, MsgIcon icon) override;
    std::optional<QString> Input(const QString& prompt, const QString& title,
                                 const QString& initial) override;
    QString OpenFile(const QString& title, const QString& filter, const QString& start) override;
    QString SaveFile(const QString& title, const QString& filter, const QString& start) override;
    QString ChooseDirectory(const QString& title, const QString& start) override;
    std::unique_ptr<QPagedPaintDevice> ChoosePrinter() override;

private:
    QString NextPath();
};

} // namespace tarvelle
