#include "station/time_entry.h"

#include "core/date_value.h"
#include "core/numeric.h"
#include "core/text_forms.h"

#include <cmath>

namespace tarvelle {

namespace {

// A box read as a whole number.
double WholeValue(const std::string& box) { return RoundHalfEven(ValueOfText(box)); }

} // namespace

void PutDateInBoxes(DateTimeBoxes& boxes, double t) {
    boxes.Y = FormatDateMask(t, "yyyy");
    boxes.M = FormatDateMask(t, "mm");
    boxes.D = FormatDateMask(t, "dd");
}

void PutTimeInBoxes(DateTimeBoxes& boxes, double t) {
    boxes.H = FormatDateMask(t, "hh");
    boxes.N = FormatDateMask(t, "nn");
    boxes.S = FormatDateMask(t, "ss");
}

double DateFromBoxes(DateTimeBoxes& boxes, double today, std::vector<std::string>& messages) {
    if (ValueOfText(boxes.M) < 1.0 || ValueOfText(boxes.D) < 1.0) {
        messages.emplace_back("Invalid Day or Month - Using Todays Date Instead.");
        PutDateInBoxes(boxes, today);
    }
    const double year = ValueOfText(boxes.Y);
    if (year < 1900.0 || year > 3000.0) {
        messages.emplace_back("Invalid Year {1900-3000} - Using Todays Date Instead.");
        PutDateInBoxes(boxes, today);
    }
    if (const auto t = CheckedDateSerial(ValueOfText(boxes.Y), ValueOfText(boxes.M), ValueOfText(boxes.D))) {
        PutDateInBoxes(boxes, *t); // 13/32 shows as the date it became
        return *t;
    }
    messages.emplace_back("Date Error: \nInvalid procedure call or argument\nUsing todays date instead.");
    PutDateInBoxes(boxes, today);
    return today;
}

double TimeFromBoxes(DateTimeBoxes& boxes) {
    auto clamp = [](std::string& box, double high, const char* highText) {
        const double v = ValueOfText(box);
        if (v < 0.0) box = "00";
        else if (v > high) box = highText;
    };
    clamp(boxes.H, 23.0, "23");
    clamp(boxes.N, 59.0, "59");
    clamp(boxes.S, 59.0, "59");
    return TimeSerial(WholeValue(boxes.H), WholeValue(boxes.N), WholeValue(boxes.S));
}

std::optional<std::string> NormaliseTimeText(const std::string& text) {
    const std::string t = Trim(text);
    if (t.size() < 4) return std::nullopt;
    if (t.find_first_not_of("0123456789:.") != std::string::npos) return std::nullopt;
    const size_t first = t.find(':');
    const size_t second = first == std::string::npos ? std::string::npos : t.find(':', first + 1);
    // Positions count from 1: the first ":" at 2 or later, the second at 4 or later.
    if (first == std::string::npos || first + 1 < 2 || second == std::string::npos || second + 1 < 4)
        return std::nullopt;
    std::string parts[3] = {t.substr(0, first), t.substr(first + 1, second - first - 1), t.substr(second + 1)};
    for (std::string& p : parts)
        while (p.size() < 2) p.insert(p.begin(), '0');
    const double limits[3] = {23.0, 59.0, 59.0};
    for (int i = 0; i < 3; ++i) {
        const std::string& p = parts[i];
        // Each part must read as a number in its range; hours and minutes are whole, and a
        // ":" left in the seconds makes the time unreadable.
        if (p.find(':') != std::string::npos || p.find('.') != p.rfind('.')) return std::nullopt;
        if (i < 2 && p.find('.') != std::string::npos) return std::nullopt;
        const double v = ValueOfText(p);
        if (v < 0.0 || v > limits[i]) return std::nullopt;
    }
    return parts[0] + ":" + parts[1] + ":" + parts[2];
}

DateFieldOrder DateFieldsFor(int dateFormatChoice) {
    using F = DateFieldOrder::Field;
    switch (dateFormatChoice) {
    case 0: return {{F::Year, F::Month, F::Day}, "YYYY  MM  DD"};
    case 1: return {{F::Month, F::Day, F::Year}, "MM  DD  YYYY"};
    case 2: return {{F::Day, F::Month, F::Year}, "DD  MM  YYYY"};
    default: return {};
    }
}

} // namespace tarvelle
