// The key notation of scripts, as the X11 key names that libxdo sends: "+" shift, "^" control,
// "%" alt for the next key or the keys of a "(...)" group, "~" Enter, "{NAME}" or "{NAME n}" a
// named key (n times), "{+}" and the like the character itself.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace tarvelle {

// One step: text to type as it stands, or one key sequence such as "ctrl+shift+a".
struct KeyStep {
    bool typed = false;
    std::string keys;
    bool operator==(const KeyStep&) const = default;
};

// nullopt for an unknown {NAME} or an unclosed brace or group.
std::optional<std::vector<KeyStep>> TranslateKeys(const std::string& notation);

} // namespace tarvelle
