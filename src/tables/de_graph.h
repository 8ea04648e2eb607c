// The Jovicentric declination of the Earth over whole years, a point a step (1 day for one year,
// else 10 days), with a line at the start of each new year.
//
// Usage: ComputeDeGraph with the texts of the two year fields. A refusal comes back as
// `message` and `title`; otherwise the points, the year lines and the span, and the two texts
// as the fields show them afterwards (swapped when the first year was later). The core's
// CurrentUT is saved and put back; `yield` runs after each step.
#pragma once

#include "core/astro_core.h"

#include <functional>
#include <string>
#include <vector>

namespace tarvelle {

inline constexpr float kDeScaleTop = 3.5f; // degrees; the graph runs from +3.5 to -3.5

struct DePoint {
    double x;  // days from DeStart
    float De;  // degrees
};
struct DeYearLine {
    double x;
    int year;
};

struct DeGraph {
    std::string message, title; // a refusal; empty when computed
    std::string fromText, toText;
    double DeStart = 0.0, DeEnd = 0.0;
    double days = 0.0; // N, the width of the graph
    double step = 0.0;
    std::vector<DePoint> points;
    std::vector<DeYearLine> yearLines;
};

// Whether "1,1," (or "12,31,") followed by the text is a date: the text, blanks trimmed, is
// digits only and from 100 to 9999.
bool IsDeYear(const std::string& text);

DeGraph ComputeDeGraph(Core& core, const std::string& fromYear, const std::string& toYear,
                       const std::function<void()>& yield = {});

// The shortest text that reads back to the single.
std::string ShortestSingle(float v);

} // namespace tarvelle
