#include "platform/key_notation.h"

#include <cctype>
#include <map>

namespace tarvelle {

namespace {

const std::map<std::string, std::string>& NamedKeys() {
    static const std::map<std::string, std::string> keys = {
        {"BACKSPACE", "BackSpace"}, {"BS", "BackSpace"},  {"BKSP", "BackSpace"}, {"BREAK", "Break"},
        {"CAPSLOCK", "Caps_Lock"},  {"DELETE", "Delete"}, {"DEL", "Delete"},     {"DOWN", "Down"},
        {"END", "End"},             {"ENTER", "Return"},  {"ESC", "Escape"},     {"HELP", "Help"},
        {"HOME", "Home"},           {"INSERT", "Insert"}, {"INS", "Insert"},     {"LEFT", "Left"},
        {"NUMLOCK", "Num_Lock"},    {"PGDN", "Next"},     {"PGUP", "Prior"},     {"PRTSC", "Print"},
        {"RIGHT", "Right"},         {"SCROLLLOCK", "Scroll_Lock"}, {"TAB", "Tab"}, {"UP", "Up"},
    };
    return keys;
}

// The X11 name of one character typed as a key of a sequence.
std::string KeyOfChar(char c) {
    static const std::map<char, std::string> names = {
        {' ', "space"}, {'+', "plus"}, {'^', "asciicircum"}, {'%', "percent"}, {'~', "asciitilde"},
        {'(', "parenleft"}, {')', "parenright"}, {'{', "braceleft"}, {'}', "braceright"}, {'[', "bracketleft"},
        {']', "bracketright"}};
    if (const auto it = names.find(c); it != names.end()) return it->second;
    return std::string(1, c);
}

std::string Upper(std::string s) {
    for (char& c : s) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    return s;
}

class Translator {
public:
    explicit Translator(const std::string& text) : s_(text) {}

    std::optional<std::vector<KeyStep>> Run() {
        while (i_ < s_.size())
            if (!Step()) return std::nullopt;
        return steps_;
    }

private:
    // One key or group with the modifiers before it.
    bool Step() {
        std::string mods;
        while (i_ < s_.size() && (s_[i_] == '+' || s_[i_] == '^' || s_[i_] == '%')) {
            mods += s_[i_] == '+' ? "shift+" : s_[i_] == '^' ? "ctrl+" : "alt+";
            ++i_;
        }
        if (i_ >= s_.size()) return mods.empty();
        if (s_[i_] == '(' && !mods.empty()) {
            const size_t close = s_.find(')', i_);
            if (close == std::string::npos) return false;
            for (size_t k = i_ + 1; k < close; ++k) Key(mods + KeyOfChar(s_[k]));
            i_ = close + 1;
            return true;
        }
        if (s_[i_] == '{') return Braced(mods);
        if (s_[i_] == '~') {
            ++i_;
            Key(mods + "Return");
            return true;
        }
        if (mods.empty()) Typed(s_[i_]);
        else Key(mods + KeyOfChar(s_[i_]));
        ++i_;
        return true;
    }

    bool Braced(const std::string& mods) {
        // "{}}" and the like hold a brace itself.
        size_t close = s_.find('}', i_ + 2);
        if (close == std::string::npos) return false;
        std::string inside = s_.substr(i_ + 1, close - i_ - 1);
        i_ = close + 1;
        int times = 1;
        if (const size_t blank = inside.find(' '); blank != std::string::npos) {
            times = std::atoi(inside.c_str() + blank + 1);
            inside = inside.substr(0, blank);
        }
        std::string key;
        if (inside.size() == 1) key = KeyOfChar(inside[0]);
        else if (const auto it = NamedKeys().find(Upper(inside)); it != NamedKeys().end()) key = it->second;
        else if (inside.size() >= 2 && (inside[0] == 'F' || inside[0] == 'f') && std::isdigit(static_cast<unsigned char>(inside[1])))
            key = "F" + inside.substr(1);
        else return false;
        for (int k = 0; k < times; ++k) Key(mods + key);
        return true;
    }

    void Typed(char c) {
        if (steps_.empty() || !steps_.back().typed) steps_.push_back({true, {}});
        steps_.back().keys += c;
    }
    void Key(const std::string& k) { steps_.push_back({false, k}); }

    const std::string& s_;
    size_t i_ = 0;
    std::vector<KeyStep> steps_;
};

} // namespace

std::optional<std::vector<KeyStep>> TranslateKeys(const std::string& notation) {
    return Translator(notation).Run();
}

} // namespace tarvelle
