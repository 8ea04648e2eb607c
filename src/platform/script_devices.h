// What the script language drives outside the program: one serial port, hardware ports, DDE,
// keys sent to other programs, other programs' windows, and starting programs.
//
// An operation that fails gives a ScriptFailure (a run-time failure number and a sentence);
// the interpreter logs it and goes on with the next step of the command. Texts are bytes, as
// the script wrote them.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tarvelle {

struct ScriptFailure {
    int number = 0;
    std::string description;
};
using DeviceResult = std::optional<ScriptFailure>; // empty on success

// Run-time failure numbers the devices use.
inline constexpr int kFailureInvalidCall = 5;      // "Invalid procedure call or argument"
inline constexpr int kFailureFileNotFound = 53;
inline constexpr int kFailurePermission = 70;
inline constexpr int kFailureDde = 282;
inline constexpr int kFailureBadSettings = 380;
inline constexpr int kFailurePortOpen = 8002;
inline constexpr int kFailurePortClosed = 8018;

inline constexpr char kDdeUnavailable[] = "DDE is not available on this system";

// Window styles of Shell: 1 normal with focus, 4 normal without focus.
inline constexpr int kShellWithFocus = 1;
inline constexpr int kShellWithoutFocus = 4;

class ScriptDevices {
public:
    virtual ~ScriptDevices() = default;

    // The serial port. It stays open or closed between commands and between runs.
    virtual void SetSerialPortNumber(int16_t port) = 0;
    // "9600,N,8,1": baud, parity letter, data bits, stop bits; for this and later opens.
    virtual DeviceResult SetSerialSettings(const std::string& settings) = 0;
    virtual bool SerialIsOpen() const = 0;
    virtual DeviceResult OpenSerial() = 0; // a port that fails reads as not open afterwards
    virtual void CloseSerial() = 0;
    virtual void ClearSerialOutput() = 0;
    virtual DeviceResult WriteSerial(const std::string& bytes) = 0; // queues; returns at once
    virtual int SerialOutputCount() const = 0;                     // bytes still queued

    // Hardware ports, two bytes wide.
    virtual DeviceResult SetPortVal(uint16_t address, int32_t value) = 0;
    virtual DeviceResult GetPortVal(uint16_t address, int32_t& value) = 0;

    virtual DeviceResult DdePoke(const std::string& app, const std::string& topic, const std::string& item,
                                 const std::string& data) = 0;
    // Keys in the notation of the script language ("{ENTER}", "+a", "%f", "^c", "~").
    virtual DeviceResult SendKeys(const std::string& keys, bool wait) = 0;
    virtual DeviceResult Shell(const std::string& commandLine, int windowStyle) = 0;
    virtual DeviceResult AppActivate(const std::string& title) = 0;
    // The titles of the top-level windows; empty where there is no window list.
    virtual std::vector<std::string> WindowTitles() = 0;
};

} // namespace tarvelle
