// The entries of the station's small text files (antennas, horizons): a comma ends an entry
// just as a line end does.
//
//   - CR LF, LF and a lone CR end a line; an empty line is one empty entry; a line end at the
//     very end of the text adds none.
//   - Spaces round an entry are dropped.
//   - An entry that starts with a double quote runs to the next quote, and what follows it up
//     to the next comma or line end is dropped: "a, b" x,c gives a, b and c.
#pragma once

#include <cstddef>
#include <limits>
#include <string>
#include <vector>

namespace tarvelle {

// The entries of text, at most maxEntries of them (the rest is not read).
std::vector<std::string> SplitEntries(const std::string& text,
                                      size_t maxEntries = std::numeric_limits<size_t>::max());

// The whole file as bytes; false with the system's description of the failure in *error.
bool ReadWholeFile(const std::string& path, std::string& text, std::string* error);

} // namespace tarvelle
