#include "platform/system_script_devices.h"

#include "platform/key_notation.h"

#include <QProcess>
#include <QSerialPort>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <sstream>

#if defined(__x86_64__) || defined(__i386__)
#include <sys/io.h>
#define TARVELLE_HAS_PORT_IO 1
#endif

extern "C" {
#include <xdo.h>
}

namespace tarvelle {

namespace {

constexpr char kNoDisplay[] = "No X11 display is available to send keys to or to find windows on";

// A connection to the X11 display for one operation.
struct Xdo {
    xdo_t* x = nullptr;
    Xdo() {
        const char* display = std::getenv("DISPLAY");
        if (display != nullptr && *display != '\0') x = xdo_new(nullptr);
    }
    ~Xdo() {
        if (x != nullptr) xdo_free(x);
    }
    Xdo(const Xdo&) = delete;
    Xdo& operator=(const Xdo&) = delete;
};

QSerialPort::Parity ParityOf(char p) {
    switch (p) {
    case 'E': return QSerialPort::EvenParity;
    case 'O': return QSerialPort::OddParity;
    case 'M': return QSerialPort::MarkParity;
    case 'S': return QSerialPort::SpaceParity;
    default: return QSerialPort::NoParity;
    }
}

} // namespace

bool ParseSerialSettings(const std::string& text, SerialLineSettings& out) {
    std::vector<std::string> parts;
    std::stringstream in(text);
    for (std::string part; std::getline(in, part, ',');) parts.push_back(part);
    if (parts.size() != 4 || parts[1].size() != 1) return false;
    char* end = nullptr;
    const long baud = std::strtol(parts[0].c_str(), &end, 10);
    if (*end != '\0' || baud <= 0) return false;
    const char parity = static_cast<char>(std::toupper(static_cast<unsigned char>(parts[1][0])));
    if (std::strchr("NEOMS", parity) == nullptr) return false;
    const long bits = std::strtol(parts[2].c_str(), &end, 10);
    if (*end != '\0' || bits < 5 || bits > 8) return false;
    if (parts[3] != "1" && parts[3] != "1.5" && parts[3] != "2") return false;
    out = {static_cast<int>(baud), parity, static_cast<int>(bits), std::atof(parts[3].c_str())};
    return true;
}

SystemScriptDevices::SystemScriptDevices(SettingsStore& settings)
    : settings_(settings), serial_(std::make_unique<QSerialPort>()) {}

SystemScriptDevices::~SystemScriptDevices() = default;

QString SystemScriptDevices::SerialDevice(int16_t port) const {
    const QString fallback = "/dev/ttyS" + QString::number(port - 1);
    return settings_.get("SerialPorts", "COM" + QString::number(port), fallback);
}

void SystemScriptDevices::SetSerialPortNumber(int16_t port) {
    portNumber_ = port;
}

DeviceResult SystemScriptDevices::SetSerialSettings(const std::string& settings) {
    SerialLineSettings parsed;
    if (!ParseSerialSettings(settings, parsed))
        return ScriptFailure{kFailureBadSettings, "Invalid serial line settings \"" + settings + "\""};
    lineSettings_ = settings;
    return serial_->isOpen() ? ApplySettings() : DeviceResult{};
}

DeviceResult SystemScriptDevices::ApplySettings() {
    SerialLineSettings s;
    ParseSerialSettings(lineSettings_, s);
    const bool ok = serial_->setBaudRate(s.baud) && serial_->setParity(ParityOf(s.parity)) &&
                    serial_->setDataBits(static_cast<QSerialPort::DataBits>(s.dataBits)) &&
                    serial_->setStopBits(s.stopBits == 2 ? QSerialPort::TwoStop
                                         : s.stopBits == 1 ? QSerialPort::OneStop
                                                           : QSerialPort::OneAndHalfStop);
    if (ok) return {};
    return ScriptFailure{kFailureBadSettings,
                         "The serial port refused the line settings \"" + lineSettings_ + "\": " +
                             serial_->errorString().toStdString()};
}

bool SystemScriptDevices::SerialIsOpen() const {
    return serial_->isOpen();
}

DeviceResult SystemScriptDevices::OpenSerial() {
    if (serial_->isOpen()) return {};
    const QString device = SerialDevice(portNumber_);
    serial_->setPortName(device);
    if (!serial_->open(QIODevice::ReadWrite))
        return ScriptFailure{kFailurePortOpen, "Serial port " + std::to_string(portNumber_) + " (" +
                                                   device.toStdString() +
                                                   ") could not be opened: " + serial_->errorString().toStdString()};
    if (DeviceResult r = ApplySettings()) {
        serial_->close();
        return r;
    }
    return {};
}

void SystemScriptDevices::CloseSerial() {
    serial_->close();
}

void SystemScriptDevices::ClearSerialOutput() {
    if (serial_->isOpen()) serial_->clear(QSerialPort::Output);
}

DeviceResult SystemScriptDevices::WriteSerial(const std::string& bytes) {
    if (!serial_->isOpen()) return ScriptFailure{kFailurePortClosed, "The serial port is not open"};
    if (serial_->write(bytes.data(), static_cast<qint64>(bytes.size())) < 0)
        return ScriptFailure{kFailurePortClosed, "Writing to the serial port failed: " +
                                                     serial_->errorString().toStdString()};
    return {};
}

int SystemScriptDevices::SerialOutputCount() const {
    return serial_->isOpen() ? static_cast<int>(serial_->bytesToWrite()) : 0;
}

#ifdef TARVELLE_HAS_PORT_IO
namespace {
DeviceResult PortAccess(uint16_t address) {
    if (ioperm(address, 2, 1) == 0) return {};
    return ScriptFailure{kFailurePermission, "No access to hardware port " + std::to_string(address) + ": " +
                                                 std::strerror(errno) +
                                                 " (port access needs root or the CAP_SYS_RAWIO capability)"};
}
} // namespace

DeviceResult SystemScriptDevices::SetPortVal(uint16_t address, int32_t value) {
    if (DeviceResult r = PortAccess(address)) return r;
    outw(static_cast<unsigned short>(value), address);
    return {};
}

DeviceResult SystemScriptDevices::GetPortVal(uint16_t address, int32_t& value) {
    if (DeviceResult r = PortAccess(address)) return r;
    value = inw(address);
    return {};
}
#else
DeviceResult SystemScriptDevices::SetPortVal(uint16_t, int32_t) {
    return ScriptFailure{kFailurePermission, "Hardware ports cannot be reached on this kind of computer"};
}
DeviceResult SystemScriptDevices::GetPortVal(uint16_t, int32_t&) {
    return ScriptFailure{kFailurePermission, "Hardware ports cannot be reached on this kind of computer"};
}
#endif

DeviceResult SystemScriptDevices::DdePoke(const std::string&, const std::string&, const std::string&,
                                          const std::string&) {
    return ScriptFailure{kFailureDde, kDdeUnavailable};
}

DeviceResult SystemScriptDevices::SendKeys(const std::string& keys, bool wait) {
    const auto steps = TranslateKeys(keys);
    if (!steps) return ScriptFailure{kFailureInvalidCall, "The keys \"" + keys + "\" are not in the key notation"};
    Xdo xdo;
    if (xdo.x == nullptr) return ScriptFailure{kFailureInvalidCall, kNoDisplay};
    constexpr useconds_t kKeyDelayUs = 12000;
    for (const KeyStep& step : *steps) {
        const int failed = step.typed ? xdo_enter_text_window(xdo.x, CURRENTWINDOW, step.keys.c_str(), kKeyDelayUs)
                                      : xdo_send_keysequence_window(xdo.x, CURRENTWINDOW, step.keys.c_str(), kKeyDelayUs);
        if (failed != 0) return ScriptFailure{kFailureInvalidCall, "The key \"" + step.keys + "\" could not be sent"};
    }
    (void)wait; // keys go out through the X server before the call returns
    return {};
}

DeviceResult SystemScriptDevices::Shell(const std::string& commandLine, int windowStyle) {
    (void)windowStyle; // the window manager decides the focus of a new program
    QStringList parts = QProcess::splitCommand(QString::fromStdString(commandLine));
    if (parts.isEmpty()) return ScriptFailure{kFailureFileNotFound, "No program given to start"};
    const QString program = parts.takeFirst();
    if (!QProcess::startDetached(program, parts))
        return ScriptFailure{kFailureFileNotFound, "The program \"" + program.toStdString() + "\" could not be started"};
    return {};
}

namespace {
std::vector<std::pair<Window, std::string>> TopWindows(const Xdo& xdo) {
    std::vector<std::pair<Window, std::string>> out;
    xdo_search_t search{};
    search.winname = ".";
    search.searchmask = SEARCH_NAME;
    search.max_depth = -1;
    search.require = xdo_search_t::SEARCH_ANY;
    Window* list = nullptr;
    unsigned int count = 0;
    if (xdo_search_windows(xdo.x, &search, &list, &count) != 0 || list == nullptr) return out;
    for (unsigned int k = 0; k < count; ++k) {
        unsigned char* name = nullptr;
        int length = 0, type = 0;
        if (xdo_get_window_name(xdo.x, list[k], &name, &length, &type) == 0 && name != nullptr) {
            out.emplace_back(list[k], std::string(reinterpret_cast<char*>(name), static_cast<size_t>(std::min(length, 255))));
            std::free(name);
        }
    }
    std::free(list);
    return out;
}
} // namespace

DeviceResult SystemScriptDevices::AppActivate(const std::string& title) {
    Xdo xdo;
    if (xdo.x == nullptr) return ScriptFailure{kFailureInvalidCall, kNoDisplay};
    for (const auto& [window, name] : TopWindows(xdo))
        if (name.rfind(title, 0) == 0 || name == title) {
            if (xdo_activate_window(xdo.x, window) == 0) return {};
            return ScriptFailure{kFailureInvalidCall, "The window \"" + name + "\" could not be activated"};
        }
    return ScriptFailure{kFailureInvalidCall, "No window has the title \"" + title + "\""};
}

std::vector<std::string> SystemScriptDevices::WindowTitles() {
    Xdo xdo;
    std::vector<std::string> titles;
    if (xdo.x == nullptr) return titles;
    for (auto& entry : TopWindows(xdo)) titles.push_back(std::move(entry.second));
    return titles;
}

} // namespace tarvelle
