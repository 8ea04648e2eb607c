#include "ui/scripting/script_runner.h"

#include "prediction/prediction.h"

#include <QLabel>
#include <QTimer>
#include <QWidget>

namespace tarvelle {

ScriptRunner::ScriptRunner(Station& station, QLabel& status, QLabel& label3, QTimer& timer1, QWidget& window)
    : st_(station), status_(status), label3_(label3), timer1_(timer1), window_(window), devices_(station.settings),
      waits_([this] { interpreter_.TimerPauseTick(); }), interpreter_(station, *this, devices_),
      task_(station, interpreter_) {}

void ScriptRunner::SetStatus(const std::string& text) {
    status_.setText(QString::fromStdString(text));
}

std::string ScriptRunner::Status() const {
    return status_.text().toStdString();
}

void ScriptRunner::WaitForEvents(std::optional<double> until) {
    waits_.WaitForEvents(until, st_.clock.LocalNow());
}

void ScriptRunner::StopTimer1() {
    timer1_.stop();
}

void ScriptRunner::StepperBox(const std::string& text) {
    st_.dialogs.Message(QString::fromStdString(text), "Script Stepper");
}

void ScriptRunner::Redraw() {
    window_.repaint();
}

std::string ScriptRunner::Label3Text() {
    return label3_.text().toStdString();
}

std::string ScriptRunner::ActiveModeNames() {
    bool found = false;
    std::string names;
    CheckForActivity(st_.core, st_.modes, st_.activity, found, names);
    return names;
}

} // namespace tarvelle
