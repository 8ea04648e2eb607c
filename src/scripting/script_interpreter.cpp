#include "scripting/script_interpreter.h"

#include "core/date_value.h"
#include "core/numeric.h"
#include "core/text_forms.h"
#include "formats/script_file.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <fstream>

namespace tarvelle {

namespace {

constexpr char kInvalidCall[] = "Invalid procedure call or argument";
constexpr char kOverflow[] = "Overflow";
constexpr char kTypeMismatch[] = "Type mismatch";
constexpr int kSecondsPerDay = 86400;

void ReplaceAll(std::string& text, const std::string& word, const std::string& value) {
    for (size_t at = text.find(word); at != std::string::npos; at = text.find(word, at + value.size()))
        text.replace(at, word.size(), value);
}

// The token of a text holding both a date and a time that holds mark (":" or "/").
std::string TokenWith(const std::string& text, char mark) {
    size_t start = 0;
    while (start <= text.size()) {
        size_t end = text.find(' ', start);
        if (end == std::string::npos) end = text.size();
        const std::string token = text.substr(start, end - start);
        if (token.find(mark) != std::string::npos) return token;
        start = end + 1;
    }
    return text;
}

// Whole numbers separated by sep, each of 1 to 4 digits.
std::optional<std::vector<int>> Fields(const std::string& text, char sep) {
    std::vector<int> out;
    size_t start = 0;
    while (true) {
        const size_t end = text.find(sep, start);
        const std::string part = text.substr(start, end == std::string::npos ? std::string::npos : end - start);
        if (part.empty() || part.size() > 4 || part.find_first_not_of("0123456789") != std::string::npos)
            return std::nullopt;
        out.push_back(std::stoi(part));
        if (end == std::string::npos) return out;
        start = end + 1;
    }
}

std::string WholeText(double x) {
    return std::to_string(static_cast<long long>(x));
}

} // namespace

std::optional<int> ScriptTimeOfDay(const std::string& parameter) {
    const auto f = Fields(TokenWith(parameter, ':'), ':');
    if (!f || f->size() < 2 || f->size() > 3) return std::nullopt;
    const int h = (*f)[0], m = (*f)[1], s = f->size() == 3 ? (*f)[2] : 0;
    if (h > 23 || m > 59 || s > 59) return std::nullopt;
    return h * 3600 + m * 60 + s;
}

std::optional<double> ScriptDate(const std::string& parameter) {
    const auto f = Fields(TokenWith(parameter, '/'), '/');
    if (!f || f->size() != 3) return std::nullopt;
    const int y = (*f)[0], m = (*f)[1], d = (*f)[2];
    if (y < kFirstDateYear || y > kLastDateYear || m < 1 || m > 12 || d < 1) return std::nullopt;
    const double date = DateSerial(y, m, d);
    if (FieldsOf(date).day != d) return std::nullopt; // 31 April is no date here
    return date;
}

ScriptInterpreter::ScriptInterpreter(Station& station, ScriptHost& host, ScriptDevices& devices)
    : st_(station), host_(host), dev_(devices) {}

void ScriptInterpreter::LoadScriptFile(const std::string& fileName) {
    auto lines = ReadScriptLines(fileName);
    ScriptLines = ScriptLineArray(lines ? std::move(*lines) : std::vector<std::string>(kScriptStoredLines));
}

bool ScriptInterpreter::LoadScriptFile2(const std::string& fileName) {
    IncludedLines.assign(kScriptStoredLines, std::string());
    auto lines = ReadScriptLines(FindFileAnyCase(fileName));
    if (!lines) {
        host_.SetStatus("File not found in " + fileName);
        return false;
    }
    IncludedLines = std::move(*lines);
    return true;
}

std::optional<int> ScriptInterpreter::RunScript(const std::string& fileName) {
    if (ScriptRunning) {
        host_.SetStatus("Script is already running...");
        return std::nullopt;
    }
    LoadScriptFile(fileName);
    if (ScriptLines.size() == 0 || ScriptLines[0].empty()) {
        host_.SetStatus("Can't Run Script : No Script Loaded or First Line Blank!");
        return std::nullopt;
    }
    StartRun();
    const ScriptLineArray saved = ScriptLines;
    do {
        const std::string raw = ScriptLines[static_cast<size_t>(LineIndex)];
        line_ = UpperAscii(raw);
        ShowScriptLine();
        RunLine(raw);
        ++LineIndex;
        if (StepMode) {
            host_.StepperBox(StepperText(raw));
            host_.DoEvents();
        }
    } while (!(LineIndex > static_cast<int32_t>(ScriptLines.size()) - 1 || (ScriptError > 0 && StopOnError) ||
               !ScriptRunning));
    ScriptRunning = false;
    if (ScriptError == 0 || ScriptError == kScriptExit)
        host_.SetStatus("Script " + fileName + "   Finished");
    else
        host_.SetStatus("Script Error: " + ScriptErrorText + "  Line " + StrForm(static_cast<double>(LineIndex - 1)));
    StepMode = false;
    ScriptLines = saved;
    return ScriptError;
}

void ScriptInterpreter::StartRun() {
    ScriptRunning = true;
    LineIndex = 0;
    A = 0;
    ScriptPort = ScriptComPort = ScriptError = 0;
    ScriptErrorText.clear();
    StopOnError = true;
    FormatLeadingZeros = false;
    OutputTimeout = 120;
    DdeTopic.clear();
    DdeApp.clear();
    DdeItem.clear();
    line_.clear();
    parameter_.clear();
}

std::string ScriptInterpreter::StepperText(const std::string& raw) const {
    const std::string sep = "\n\r\n";
    return "Script Line Number: " + StrForm(static_cast<double>(LineIndex - 1)) + sep + "Command: " + raw + sep +
           "Port: " + StrForm(static_cast<double>(ScriptPort)) + sep + "A: " + StrForm(static_cast<double>(A)) +
           sep + "Com: " + StrForm(static_cast<double>(ScriptComPort));
}

bool ScriptInterpreter::Has(const char* word) const {
    return line_.find(word) != std::string::npos;
}

bool ScriptInterpreter::HasEither(const char* spaced, const char* tight) const {
    return Has(spaced) || Has(tight);
}

// The command table, tested in its order; the first keyword that fits acts.
void ScriptInterpreter::RunLine(const std::string& raw) {
    if (Has("SENDKEYS")) {
        line_ = raw; // keys keep their case
        GetScriptParameter(raw);
        if (ScriptError != 0) return;
        const size_t open = raw.find('(');
        const bool wait = raw.find("NOWAIT", open) == std::string::npos;
        Log(dev_.SendKeys(parameter_, wait));
        return;
    }
    if (Has("DDE_") && RunDdeLine()) return;
    if (RunOptionLine() || RunWaitLine() || RunSerialLine() || RunRegisterLine() || RunPortLine()) return;
    if (Has("EXIT")) ScriptError = kScriptExit;
}

bool ScriptInterpreter::RunDdeLine() {
    std::string* target = Has("TOPIC") ? &DdeTopic : Has("APP") ? &DdeApp : Has("ITEM") ? &DdeItem : nullptr;
    if (target != nullptr) {
        GetScriptParameter(line_);
        *target = parameter_;
        return true;
    }
    if (!Has("SEND")) return false;
    GetScriptParameter(line_);
    if (DdeTopic.empty() || DdeApp.empty() || DdeItem.empty()) {
        ScriptError = kScriptDeviceIncomplete;
        ScriptErrorText = "All DDE parameters not specified.";
        return true;
    }
    Log(dev_.DdePoke(DdeApp, DdeTopic, DdeItem, parameter_));
    return true;
}

bool ScriptInterpreter::RunOptionLine() {
    if (Has("NOFORMATLEADINGZEROS")) FormatLeadingZeros = false;
    else if (Has("FORMATLEADINGZEROS")) FormatLeadingZeros = true;
    else if (Has("NOSTOPONERR")) StopOnError = false;
    else if (Has("STOPONERROR")) StopOnError = true;
    else return false;
    return true;
}

bool ScriptInterpreter::RunWaitLine() {
    if (Has("EXECUTE_SCRIPT (")) {
        ExecuteScript();
    } else if (Has("WAIT UNTIL (")) {
        if (ScriptError == 0) WaitUntil();
    } else if (Has("PAUSE (")) {
        Pause();
    } else if (Has("RUN (")) {
        GetScriptParameter(line_);
        if (ScriptError == 0) Log(dev_.Shell(parameter_, kShellWithFocus));
    } else if (Has("ACTIVATE")) {
        ActivateWindow();
    } else {
        return false;
    }
    return true;
}

bool ScriptInterpreter::RunSerialLine() {
    if (HasEither("COM_COMPORT =", "COM_COMPORT=")) {
        GetScriptParameter(line_);
        if (ScriptError != 0) return true;
        if (const auto v = IntegerPart(-32768, 32767)) ScriptComPort = static_cast<int16_t>(*v);
        dev_.SetSerialPortNumber(ScriptComPort);
        if (!dev_.SerialIsOpen()) Log(dev_.OpenSerial());
    } else if (Has("COM_SET COM")) {
        GetScriptParameter(line_);
        if (ScriptError != 0) return true;
        if (dev_.SerialIsOpen()) dev_.CloseSerial();
        Log(dev_.OpenSerial());
        if (!dev_.SerialIsOpen()) {
            ScriptError = kScriptDeviceIncomplete;
            return true;
        }
        Log(dev_.SetSerialSettings(parameter_));
        dev_.CloseSerial();
    } else if (Has("COM_CLOSE")) {
        if (dev_.SerialIsOpen()) dev_.CloseSerial();
    } else if (Has("COM_DIAL")) {
        GetScriptParameter(line_);
        if (ScriptError == 0) SendSerial("ATDT" + parameter_ + "\r", false);
    } else if (Has("COM_SEND STRING")) {
        GetScriptParameter(line_);
        if (ScriptError == 0) SendSerial(parameter_, true);
    } else if (Has("COM_SEND BYTE")) {
        GetScriptParameter(line_);
        if (ScriptError != 0) return true;
        const double code = RoundHalfEven(ValueOfText(parameter_));
        if (code < 0 || code > 255) {
            LogScriptError(kFailureInvalidCall, kInvalidCall);
            SendSerial({}, false);
        } else {
            SendSerial(std::string(1, static_cast<char>(static_cast<unsigned char>(code))), false);
        }
    } else {
        return false;
    }
    return true;
}

bool ScriptInterpreter::RunRegisterLine() {
    if (HasEither("A =", "A=") && !Has("IF")) {
        GetScriptParameter(line_);
        if (ScriptError != 0) return true;
        if (const auto v = IntegerPart(INT32_MIN, INT32_MAX)) A = *v;
    } else if (HasEither("IO_PORT =", "IO_PORT=")) {
        GetScriptParameter(line_);
        if (ScriptError != 0) return true;
        if (const auto v = IntegerPart(-32768, 32767)) ScriptPort = static_cast<int16_t>(*v);
        if (ScriptPort == 0) ScriptError = kScriptPortZero;
    } else {
        return false;
    }
    return true;
}

bool ScriptInterpreter::RunPortLine() {
    if (Has("IO_OUT") && !Has("W")) {
        if (ScriptPort == 0) ScriptError = kScriptPortZero;
        else Log(dev_.SetPortVal(static_cast<uint16_t>(ScriptPort), A));
        return true;
    }
    if (Has("IO_INP")) {
        if (ScriptPort == 0) {
            ScriptError = kScriptPortZero;
        } else {
            ReadPort();
            ShowPortReading();
        }
        return true;
    }
    const std::pair<const char*, const char*> compares[] = {{"IF A =", "IF A="}, {"IF A >", "IF A>"}, {"IF A <", "IF A<"}};
    for (size_t k = 0; k < std::size(compares); ++k) {
        if (!HasEither(compares[k].first, compares[k].second)) continue;
        GetScriptParameter(line_);
        if (ScriptError != 0) return true;
        const double v = ValueOfText(parameter_), a = static_cast<double>(A);
        const bool holds = k == 0 ? a == v : k == 1 ? a > v : a < v;
        if (!holds) ++LineIndex;
        return true;
    }
    if (Has("IO_WHILE") && Has("INP") && (Has("HIGH") || Has("LOW"))) {
        IoWhile();
        return true;
    }
    const std::pair<const char*, char> bits[] = {{"AND A WITH", '&'}, {"XOR A WITH", '^'}, {"OR A WITH", '|'}};
    for (const auto& [word, op] : bits) {
        if (!Has(word)) continue;
        BitOperation(op);
        return true;
    }
    return false;
}

// The built-in words are capitals, so a SENDKEYS parameter, which keeps its case, has only
// its capital words replaced.
void ScriptInterpreter::GetScriptParameter(const std::string& source) {
    parameter_.clear();
    const size_t open = source.find('(');
    const size_t close = source.rfind(')');
    if (open == std::string::npos || close == std::string::npos || close + 1 < 3) {
        ScriptError = kScriptNoParameter;
        return;
    }
    if (close < open) {
        LogScriptError(kFailureInvalidCall, kInvalidCall);
        return;
    }
    parameter_ = ExpandVariables(TrimSpaces(source.substr(open + 1, close - open - 1)));
}

std::string ScriptInterpreter::ExpandVariables(std::string text) {
    const Core& c = st_.core;
    auto whole = [this](double x) {
        const double f = std::floor(x);
        return FormatLeadingZeros ? FormatNumberMask(f, "000") : WholeText(f);
    };
    const std::pair<const char*, double> angles[] = {
        {"JUPAZ", c.JupAz}, {"JUPALT", c.JupAlt}, {"SUNAZ", c.SunAz}, {"SUNALT", c.SunAlt}};
    for (const auto& [word, value] : angles)
        if (text.find(word) != std::string::npos) ReplaceAll(text, word, whole(value));
    if (text.find("GMTTIME") != std::string::npos)
        ReplaceAll(text, "GMTTIME", FormatDateMask(LocalNow() - c.ObsTZ / 24.0, "hhnn"));
    if (text.find("GMTLOCAL") != std::string::npos) ReplaceAll(text, "GMTLOCAL", FormatDateMask(LocalNow(), "hhnn"));
    if (text.find("CML3") != std::string::npos)
        ReplaceAll(text, "CML3", FormatNumberMask(static_cast<double>(c.CMLIII), "000.0"));
    if (text.find("IOPHASE") != std::string::npos)
        ReplaceAll(text, "IOPHASE", FormatNumberMask(static_cast<double>(c.IoPhase), "000.0"));
    if (text.find("LMSTTIME") != std::string::npos) ReplaceAll(text, "LMSTTIME", host_.Label3Text());
    if (text.find("ACTIVEMODE") != std::string::npos) {
        const std::string names = host_.ActiveModeNames();
        ReplaceAll(text, "ACTIVEMODE", names.empty() ? "NONE" : names);
    }
    return text;
}

void ScriptInterpreter::ShowScriptLine() {
    const std::string raw = static_cast<size_t>(LineIndex) < ScriptLines.size()
                                ? ScriptLines[static_cast<size_t>(LineIndex)]
                                : std::string();
    host_.SetStatus("Script [" + StrForm(static_cast<double>(LineIndex)) + "] " + raw + "  [A=" +
                    StrForm(static_cast<double>(A)) + "]");
}

void ScriptInterpreter::ShowPortReading() {
    host_.SetStatus("Script Returned " + StrForm(static_cast<double>(A)) + " from Port " +
                    StrForm(static_cast<double>(ScriptPort)));
    host_.DoEvents();
}

void ScriptInterpreter::LogScriptError(int number, const std::string& description) {
    const std::string raw = static_cast<size_t>(LineIndex) < ScriptLines.size()
                                ? ScriptLines[static_cast<size_t>(LineIndex)]
                                : std::string();
    const std::string record[] = {
        FormatDateMask(LocalNow(), "yyyy-mm-dd hh:nn:ss") + "   Script Error #" + StrForm(static_cast<double>(number)),
        description,
        "Script Line: " + StrForm(static_cast<double>(LineIndex)) + "  " + raw,
        "Last command Parsed: " + line_,
        "Last parameter parsed: " + parameter_,
        "",
    };
    {
        std::ofstream log(st_.programDir.toStdString() + "ScriptErrLog.txt", std::ios::binary | std::ios::app);
        for (const std::string& l : record) log << l << "\r\n";
    }
    for (const std::string& l : record) host_.ErrLogLine(l);
    host_.SetStatus("Script Error Logged " + description);
    ScriptError = static_cast<int16_t>(number > 32767 ? 32767 : number);
    ScriptErrorText = description;
    host_.Redraw();
}

void ScriptInterpreter::Log(const DeviceResult& r) {
    if (r) LogScriptError(r->number, r->description);
}

std::optional<int32_t> ScriptInterpreter::IntegerPart(double low, double high) {
    const double v = std::floor(ValueOfText(parameter_));
    if (v < low || v > high) {
        LogScriptError(kFailureOverflow, kOverflow);
        return std::nullopt;
    }
    return static_cast<int32_t>(v);
}

void ScriptInterpreter::ExecuteScript() {
    GetScriptParameter(line_);
    if (ScriptError != 0) return;
    if (!LoadScriptFile2(parameter_)) return;
    if (ScriptLines.size() + IncludedLines.size() > kMaxScriptLines) {
        host_.SetStatus("EXECUTE_SCRIPT skipped: the script would grow past " + std::to_string(kMaxScriptLines) +
                        " lines");
        return;
    }
    ScriptLines.Insert(LineIndex + 1, IncludedLines);
}

void ScriptInterpreter::WaitUntil() {
    const auto wait = [this](const std::string& shown, std::optional<double> until) {
        if (host_.Status() != "Script Waiting for " + shown) host_.SetStatus("Script Waiting for " + shown);
        host_.WaitForEvents(until);
    };
    if (Has(":")) {
        GetScriptParameter(line_);
        if (ScriptError != 0) return;
        const auto target = ScriptTimeOfDay(parameter_);
        if (!target) {
            LogScriptError(kFailureTypeMismatch, kTypeMismatch);
            return;
        }
        while (SecondsOfDay(LocalNow()) < *target)
            wait(parameter_, WholeDay(LocalNow()) + static_cast<double>(*target) / kSecondsPerDay);
        ShowScriptLine();
    }
    if (Has("/")) {
        GetScriptParameter(line_);
        if (ScriptError != 0) return;
        const auto date = ScriptDate(parameter_);
        if (!date) {
            LogScriptError(kFailureTypeMismatch, kTypeMismatch);
            return;
        }
        while (WholeDay(LocalNow()) < *date) {
            wait(parameter_, *date);
            if (!ScriptRunning) return;
        }
        ShowScriptLine();
    }
}

void ScriptInterpreter::Pause() {
    GetScriptParameter(line_);
    if (ScriptError != 0) return;
    const double count = RoundHalfEven(ValueOfText(parameter_));
    if (count < INT32_MIN || count > INT32_MAX) LogScriptError(kFailureOverflow, kOverflow);
    else PauseCount = static_cast<int32_t>(count);
    host_.StopTimer1();
    host_.StartTimerPause();
    while (PauseCount > 0) {
        host_.WaitForEvents(std::nullopt);
        if (!ScriptRunning) {
            host_.StopTimerPause();
            return;
        }
    }
    host_.StopTimerPause();
    ShowScriptLine();
}

void ScriptInterpreter::TimerPauseTick() {
    --PauseCount;
    host_.SetStatus("Pause : " + StrForm(static_cast<double>(PauseCount)));
}

void ScriptInterpreter::SendSerial(const std::string& bytes, bool watchRunning) {
    if (!dev_.SerialIsOpen()) Log(dev_.OpenSerial());
    dev_.ClearSerialOutput();
    if (!bytes.empty()) Log(dev_.WriteSerial(bytes));
    const double start = LocalNow();
    do {
        host_.WaitForEvents(std::nullopt);
        if (std::round((LocalNow() - start) * kSecondsPerDay) > OutputTimeout) ScriptError = kScriptOutputTimeout;
        if (watchRunning && !ScriptRunning) {
            dev_.CloseSerial();
            return;
        }
    } while (dev_.SerialOutputCount() != 0 && ScriptError == 0);
}

void ScriptInterpreter::ActivateWindow() {
    GetScriptParameter(line_);
    if (ScriptError != 0 || parameter_.empty()) return;
    const std::string wanted = UpperAscii(parameter_);
    bool found = false;
    for (const std::string& title : dev_.WindowTitles())
        if (UpperAscii(title).find(wanted) != std::string::npos) {
            found = true;
            break;
        }
    Log(found ? dev_.AppActivate(parameter_) : dev_.Shell(parameter_, kShellWithoutFocus));
}

void ScriptInterpreter::ReadPort() {
    int32_t value = A;
    const DeviceResult r = dev_.GetPortVal(static_cast<uint16_t>(ScriptPort), value);
    if (r) LogScriptError(r->number, r->description);
    else A = value;
}

void ScriptInterpreter::IoWhile() {
    GetScriptParameter(line_);
    if (ScriptError != 0) return;
    const double power = RoundHalfEven(std::pow(2.0, ValueOfText(parameter_)));
    if (!(power <= INT32_MAX)) {
        LogScriptError(kFailureOverflow, kOverflow);
        return;
    }
    const int32_t mask = static_cast<int32_t>(power);
    const bool high = Has("HIGH");
    while (high ? (A & mask) == 0 : (A & mask) != 0) {
        ReadPort();
        ShowPortReading();
        if (ScriptError != 0 || !ScriptRunning) return;
        host_.WaitForEvents(std::nullopt);
    }
}

void ScriptInterpreter::BitOperation(char op) {
    GetScriptParameter(line_);
    if (ScriptError != 0) return;
    const auto v = IntegerPart(INT32_MIN, INT32_MAX);
    if (!v) return;
    A = op == '&' ? (A & *v) : op == '^' ? (A ^ *v) : (A | *v);
}

} // namespace tarvelle
