// The ephemeris of one GMT date: the day's labels and a grid of Jupiter's and the Sun's local
// positions, CML III and Io phase, one row a step of minutes.
//
// Usage: fill EphemerisInput with the texts of the date fields and of the interval, call
// ComputeEphemeris with the core (observer set). A refusal comes back as `message`; otherwise
// the labels in the order they are set and the grid rows. The core's CurrentUT is saved and put
// back; `yield` runs once a row, before the row is filled, to let other events in.
#pragma once

#include "core/astro_core.h"

#include <array>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace tarvelle {

inline constexpr int kEphemerisColumns = 11;
using EphemerisRow = std::array<std::string, kEphemerisColumns>;

// Row 0 of the grid.
const EphemerisRow& EphemerisHeadings();

struct EphemerisInput {
    std::string year, month, day; // txtY, txtM, txtD
    std::string interval = "30";  // Text2, minutes
};

struct EphemerisResult {
    std::string message;     // a refusal, word for word; empty when computed
    bool exclamation = false; // the refusal carries the exclamation icon
    std::vector<std::pair<std::string, std::string>> labels; // control name, caption
    int gridRows = 0;                  // rows of the grid, the empty last one included
    std::vector<EphemerisRow> rows;    // rows 0 (headings) to the last filled
    double firstUT = 0.0;              // CurrentUT of row 1, for the printout's title
};

EphemerisResult ComputeEphemeris(Core& core, const EphemerisInput& input,
                                 const std::function<void()>& yield = {});

// One row of the grid for the core's present instant; hour angles are those of the window.
EphemerisRow EphemerisRowNow(Core& core);

} // namespace tarvelle
