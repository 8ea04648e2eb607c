// The emission probability table: whole percentages by Io phase and CML, compiled in as
// packed text rows and expanded once at start-up; read by the CML-Io phase plane.
#pragma once

#include "station/prediction_state.h"

#include <string>
#include <vector>

namespace tarvelle {

// Expands packed rows into the table, which is resized to 361 rows and cleared first. The rows
// are joined and cut at each "X"; within a row the tokens u, y, z and w become their runs of
// 8, 12, 20 and 11, the first 359 "_"-ended fields go to CML 1 to 359 (0 once no "_" is left)
// and what remains goes to CML 360. Row r of the result is the r-th "X"-ended piece, up to 360.
void ExpandProbRows(const std::vector<std::string>& rows, ProbabilityTable& table);

// Expands the built-in rows. On failure (only an exhausted resource can cause one) returns false
// with a description in failure; the table is then left as far as it got.
bool LoadProbTable(ProbabilityTable& table, std::string& failure);

// The table at Io phase io and CML cml, both rounded to whole degrees; 0 outside 0 to 360.
double ProbabilityAt(const ProbabilityTable& table, double io, double cml);

} // namespace tarvelle
