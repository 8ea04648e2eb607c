#include "formats/star_catalogue.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace tarvelle {

namespace {

float SingleAt(const unsigned char* p) {
    const uint32_t bits = static_cast<uint32_t>(p[0]) | (static_cast<uint32_t>(p[1]) << 8) |
                          (static_cast<uint32_t>(p[2]) << 16) | (static_cast<uint32_t>(p[3]) << 24);
    float v = 0.0f;
    std::memcpy(&v, &bits, sizeof v);
    return v;
}

void PutSingle(float v, unsigned char* p) {
    uint32_t bits = 0;
    std::memcpy(&bits, &v, sizeof v);
    for (int i = 0; i < 4; ++i) p[i] = static_cast<unsigned char>(bits >> (8 * i));
}

constexpr size_t kNameOffset = 20;
constexpr size_t kNameSize = kStarRecordSize - kNameOffset;

} // namespace

StarRecord DecodeStarRecord(const unsigned char* bytes) {
    StarRecord star;
    star.ra = SingleAt(bytes);
    star.dec = SingleAt(bytes + 4);
    star.magnitude = SingleAt(bytes + 16);
    star.name.assign(reinterpret_cast<const char*>(bytes + kNameOffset), kNameSize);
    const size_t end = star.name.find_last_not_of(" \0", std::string::npos, 2);
    star.name.resize(end == std::string::npos ? 0 : end + 1);
    return star;
}

void EncodeStarRecord(const StarRecord& star, unsigned char* bytes) {
    std::memset(bytes, 0, kStarRecordSize);
    PutSingle(star.ra, bytes);
    PutSingle(star.dec, bytes + 4);
    PutSingle(star.magnitude, bytes + 16);
    std::memset(bytes + kNameOffset, ' ', kNameSize);
    std::memcpy(bytes + kNameOffset, star.name.data(), std::min(star.name.size(), kNameSize));
}

std::vector<StarRecord> ReadStarFile(const std::string& path) {
    std::vector<StarRecord> stars;
    std::FILE* file = std::fopen(path.c_str(), "rb");
    if (!file) return stars;
    unsigned char record[kStarRecordSize];
    while (std::fread(record, 1, kStarRecordSize, file) == kStarRecordSize) stars.push_back(DecodeStarRecord(record));
    std::fclose(file);
    return stars;
}

} // namespace tarvelle
