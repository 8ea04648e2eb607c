// Reading a date and a time from the six boxes of the station window, with the rules by
// which bad entries fall back or are clamped. The boxes are texts; these functions change
// them where the rules say the boxes show something else.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

namespace tarvelle {

struct DateTimeBoxes {
    std::string Y, M, D, H, N, S;
};

// Fills the date or the time boxes from a date value.
void PutDateInBoxes(DateTimeBoxes& boxes, double t);
void PutTimeInBoxes(DateTimeBoxes& boxes, double t);

// The date of the boxes. Messages to show go to `messages` in order; where a rule falls back
// on today (`today` is the computer's date), the boxes are set to it.
double DateFromBoxes(DateTimeBoxes& boxes, double today, std::vector<std::string>& messages);

// The time of the boxes as a fraction of a day; out-of-range values are clamped in the boxes.
double TimeFromBoxes(DateTimeBoxes& boxes);

// "hh:mm:ss" from a typed time, or nothing when it cannot be read.
std::optional<std::string> NormaliseTimeText(const std::string& text);

// Where the year, month and day fields stand by DateFormatChoice, and the heading above them.
struct DateFieldOrder {
    enum Field { Year, Month, Day };
    std::array<Field, 3> order{Year, Month, Day}; // left to right
    std::string heading;                          // empty for an unknown choice
};
DateFieldOrder DateFieldsFor(int dateFormatChoice);

// The three fields of a window in that order.
template <typename Field> std::array<Field, 3> InDateOrder(int dateFormatChoice, Field year, Field month, Field day) {
    const Field fields[3] = {year, month, day};
    const DateFieldOrder o = DateFieldsFor(dateFormatChoice);
    return {fields[o.order[0]], fields[o.order[1]], fields[o.order[2]]};
}

// Said when a step from a valid date would pass the last year a date may have.
inline constexpr const char* kDatesAfterLastYear = "Dates After 9999 are not permitted.";

inline constexpr const char* kTimeFormatErrorTitle = "Time Format Error";
inline constexpr const char* kTimeFormatErrorText =
    "You entered a time that could not be interpreted. Please re-enter.";

} // namespace tarvelle
