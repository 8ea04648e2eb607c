#include "cli/cli_script_host.h"

#include "core/date_value.h"
#include "prediction/prediction.h"
#include "station/readout.h"

#include <cmath>
#include <cstdio>

namespace tarvelle {

MsgAnswer CliDialogs::Message(const QString& text, const QString& title, MsgButtons buttons, MsgIcon) {
    out_ << "message: " << (title.isEmpty() ? "" : title.toStdString() + ": ") << text.toStdString() << '\n';
    return buttons == MsgButtons::YesNo || buttons == MsgButtons::YesNoCancel ? MsgAnswer::Yes : MsgAnswer::OK;
}

CliScriptHost::CliScriptHost(Station& station, std::ostream& out, SimulatedClock* simulated)
    : st_(station), out_(out), simulated_(simulated) {
    if (simulated_ == nullptr) waits_ = std::make_unique<EventLoopWaits>([this] { PauseTick(); });
}

void CliScriptHost::RefreshLive() {
    const double now = st_.clock.LocalNow();
    if (now == liveAt_) return;
    liveAt_ = now;
    Core& core = st_.core;
    core.CurrentUT = core.GMTFromClock(now);
    const double gmtDate = std::floor(core.CurrentUT);
    if (gmtDate != activityDate_ && st_.modes.ModesLoaded) {
        UpdateTodayActivity(core, st_.modes, st_.minutes, st_.activity, now);
        activityDate_ = gmtDate;
        core.CurrentUT = core.GMTFromClock(now); // the refresh leaves its own instant behind
    }
    core.UpdateSiderealTime();
    core.UpdatePositions();
}

void CliScriptHost::SetStatus(const std::string& text) {
    status_ = text;
    out_ << "status: " << text << '\n';
}

void CliScriptHost::DoEvents() {
    if (waits_) EventLoopWaits::DoEvents();
    RefreshLive();
}

void CliScriptHost::WaitForEvents(std::optional<double> until) {
    if (waits_) {
        waits_->WaitForEvents(until, st_.clock.LocalNow());
    } else if (pauseOn_) {
        simulated_->local += 1.0 / 86400.0;
        RefreshLive();
        PauseTick();
    } else if (until && *until > simulated_->local) {
        simulated_->local = *until;
    }
    RefreshLive();
}

void CliScriptHost::PauseTick() {
    if (interpreter_ != nullptr) interpreter_->TimerPauseTick();
}

void CliScriptHost::StartTimerPause() {
    pauseOn_ = true;
    if (waits_) waits_->StartTimerPause();
}

void CliScriptHost::StopTimerPause() {
    pauseOn_ = false;
    if (waits_) waits_->StopTimerPause();
}

void CliScriptHost::StepperBox(const std::string& text) {
    out_ << "message: Script Stepper: " << text << '\n';
}

std::string CliScriptHost::Label3Text() {
    RefreshLive();
    return BuildTimeTexts(st_.core, st_.fixed, st_.clock.LocalNow()).Label3;
}

std::string CliScriptHost::ActiveModeNames() {
    RefreshLive();
    bool found = false;
    std::string names;
    CheckForActivity(st_.core, st_.modes, st_.activity, found, names);
    return names;
}

std::string CEscaped(const std::string& bytes) {
    std::string out;
    for (const char ch : bytes) {
        const auto c = static_cast<unsigned char>(ch);
        if (c >= 32 && c <= 126) {
            out += ch;
            continue;
        }
        switch (c) {
        case '\a': out += "\\a"; break;
        case '\b': out += "\\b"; break;
        case '\t': out += "\\t"; break;
        case '\n': out += "\\n"; break;
        case '\v': out += "\\v"; break;
        case '\f': out += "\\f"; break;
        case '\r': out += "\\r"; break;
        default: {
            char octal[8];
            std::snprintf(octal, sizeof octal, "\\%03o", c);
            out += octal;
        }
        }
    }
    return out;
}

void TracingDevices::SetSerialPortNumber(int16_t port) {
    out_ << "serial port " << port << '\n';
    in_.SetSerialPortNumber(port);
}

DeviceResult TracingDevices::SetSerialSettings(const std::string& settings) {
    out_ << "serial settings " << settings << '\n';
    return in_.SetSerialSettings(settings);
}

DeviceResult TracingDevices::OpenSerial() {
    out_ << "serial open\n";
    return in_.OpenSerial();
}

void TracingDevices::CloseSerial() {
    out_ << "serial close\n";
    in_.CloseSerial();
}

void TracingDevices::ClearSerialOutput() {
    out_ << "serial clear\n";
    in_.ClearSerialOutput();
}

DeviceResult TracingDevices::WriteSerial(const std::string& bytes) {
    out_ << "serial write " << CEscaped(bytes) << '\n';
    return in_.WriteSerial(bytes);
}

DeviceResult TracingDevices::SetPortVal(uint16_t address, int32_t value) {
    out_ << "port out " << address << ' ' << value << '\n';
    return in_.SetPortVal(address, value);
}

DeviceResult TracingDevices::GetPortVal(uint16_t address, int32_t& value) {
    DeviceResult r = in_.GetPortVal(address, value);
    if (!r) out_ << "port in " << address << " -> " << value << '\n';
    return r;
}

DeviceResult TracingDevices::DdePoke(const std::string& app, const std::string& topic, const std::string& item,
                                     const std::string& data) {
    out_ << "dde poke " << app << '|' << topic << ' ' << item << ' ' << data << '\n';
    return in_.DdePoke(app, topic, item, data);
}

DeviceResult TracingDevices::SendKeys(const std::string& keys, bool wait) {
    out_ << "keys " << keys << (wait ? " wait" : " nowait") << '\n';
    return in_.SendKeys(keys, wait);
}

DeviceResult TracingDevices::Shell(const std::string& commandLine, int windowStyle) {
    out_ << "shell " << commandLine << ' ' << windowStyle << '\n';
    return in_.Shell(commandLine, windowStyle);
}

DeviceResult TracingDevices::AppActivate(const std::string& title) {
    out_ << "activate " << title << '\n';
    return in_.AppActivate(title);
}

DeviceResult DryDevices::GetPortVal(uint16_t, int32_t& value) {
    value = 0;
    if (!portIn_.empty()) {
        value = portIn_.front();
        portIn_.pop_front();
    }
    return {};
}

} // namespace tarvelle
