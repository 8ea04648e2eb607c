// The real devices of scripts: the serial port on QSerialPort (port n is /dev/ttyS(n-1)
// unless the settings section "SerialPorts" maps "COMn" to a device, such as a USB adapter),
// hardware ports through ioperm and inw/outw on x86 Linux, keys and windows through libxdo on
// X11, programs through QProcess. DDE does not exist here: every poke fails.
#pragma once

#include "platform/script_devices.h"
#include "station/settings_store.h"

#include <memory>

class QSerialPort;

namespace tarvelle {

class SystemScriptDevices final : public ScriptDevices {
public:
    explicit SystemScriptDevices(SettingsStore& settings);
    ~SystemScriptDevices() override;

    void SetSerialPortNumber(int16_t port) override;
    DeviceResult SetSerialSettings(const std::string& settings) override;
    bool SerialIsOpen() const override;
    DeviceResult OpenSerial() override;
    void CloseSerial() override;
    void ClearSerialOutput() override;
    DeviceResult WriteSerial(const std::string& bytes) override;
    int SerialOutputCount() const override;
    DeviceResult SetPortVal(uint16_t address, int32_t value) override;
    DeviceResult GetPortVal(uint16_t address, int32_t& value) override;
    DeviceResult DdePoke(const std::string& app, const std::string& topic, const std::string& item,
                         const std::string& data) override;
    DeviceResult SendKeys(const std::string& keys, bool wait) override;
    DeviceResult Shell(const std::string& commandLine, int windowStyle) override;
    DeviceResult AppActivate(const std::string& title) override;
    std::vector<std::string> WindowTitles() override;

    // The device that port number n opens.
    QString SerialDevice(int16_t port) const;

private:
    DeviceResult ApplySettings();

    SettingsStore& settings_;
    std::unique_ptr<QSerialPort> serial_;
    int16_t portNumber_ = 1;
    std::string lineSettings_ = "9600,N,8,1";
};

// "9600,N,8,1" as its four parts; false when it is no such text.
struct SerialLineSettings {
    int baud = 9600;
    char parity = 'N';
    int dataBits = 8;
    double stopBits = 1;
};
bool ParseSerialSettings(const std::string& text, SerialLineSettings& out);

} // namespace tarvelle
