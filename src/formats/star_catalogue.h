// star.dat: the bright stars of the sky map, fixed records of 120 bytes without a header,
// little-endian:
//
//   offset 0   single  right ascension, hours (equinox J2000)
//   offset 4   single  declination, degrees
//   offset 8   8 bytes not read (zero)
//   offset 16  single  visual magnitude
//   offset 20  100 bytes of name text, blank-padded; read and not drawn
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace tarvelle {

inline constexpr size_t kStarRecordSize = 120;

struct StarRecord {
    float ra = 0.0f;  // hours
    float dec = 0.0f; // degrees
    float magnitude = 0.0f;
    std::string name;
};

// Every whole record of the file, in order; nothing for a file that isn't there.
std::vector<StarRecord> ReadStarFile(const std::string& path);

// Calls visit(ra, dec, magnitude) for each record, reading the file record by record.
template <typename Visit>
void ForEachStar(const std::string& path, Visit visit);

// One record from its 120 bytes, and back.
StarRecord DecodeStarRecord(const unsigned char* bytes);
void EncodeStarRecord(const StarRecord& star, unsigned char* bytes);

} // namespace tarvelle

#include <cstdio>

namespace tarvelle {

template <typename Visit>
void ForEachStar(const std::string& path, Visit visit) {
    std::FILE* file = std::fopen(path.c_str(), "rb");
    if (!file) return;
    unsigned char record[kStarRecordSize];
    while (std::fread(record, 1, kStarRecordSize, file) == kStarRecordSize) {
        const StarRecord star = DecodeStarRecord(record);
        visit(star.ra, star.dec, star.magnitude);
    }
    std::fclose(file);
}

} // namespace tarvelle
