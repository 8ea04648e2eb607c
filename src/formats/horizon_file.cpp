#include "formats/horizon_file.h"

#include "core/text_forms.h"
#include "formats/entries.h"

#include <cmath>
#include <sys/stat.h>

namespace tarvelle {

namespace {

constexpr const char* kTooFew = "There were not enough legitimate values in the horizon file.";

bool HasValue(const HorizonTable& h, int i) { return h[static_cast<size_t>(i)] != kNoHorizonValue; }
double& At(HorizonTable& h, int i) { return h[static_cast<size_t>(i)]; }

bool Exists(const std::string& path) {
    struct stat info {};
    return ::stat(path.c_str(), &info) == 0;
}

void ReadPoint(const std::string& entry, HorizonTable& h) {
    if (entry.size() < 3 || entry.find('#') != std::string::npos) return;
    const size_t blank = entry.find(' ', 1);
    if (blank == std::string::npos) return;
    const double az = ValueOfText(std::string_view(entry).substr(0, blank));
    const double alt = ValueOfText(std::string_view(entry).substr(blank + 1));
    if (az < 0.0 || az >= 360.0 || alt < 0.0 || alt > 89.0) return;
    At(h, static_cast<int>(std::floor(az))) = alt;
}

// Straight values from the last one before north across to the first one after it. False when
// there are too few values to do it.
bool BridgeNorth(HorizonTable& h) {
    int last = 359;
    while (last >= 1 && !HasValue(h, last)) --last;
    if (last <= 1) return false; // nothing, or only degree 1
    int first = 1;
    while (first <= last - 1 && !HasValue(h, first)) ++first;
    if (first > last - 1) first = last;
    if (first == last - 1) return false;
    const double slope = (At(h, first) - At(h, last)) / (360 - last + first);
    for (int i = last + 1; i <= 359; ++i) At(h, i) = At(h, i - 1) + slope;
    At(h, 0) = At(h, 359) + slope;
    for (int i = 1; i <= first - 1; ++i) At(h, i) = At(h, i - 1) + slope;
    return true;
}

// Each run of degrees without a value takes the straight line between its neighbours; a run
// at the top end closes towards degree 0.
void FillGaps(HorizonTable& h) {
    int v = 0;
    do {
        while (v < 360 && HasValue(h, v)) ++v;
        const int prev = v - 1;
        if (v == 359) At(h, 359) = (At(h, 358) + At(h, 0)) / 2.0;
        if (v < 359) {
            while (v < 360 && !HasValue(h, v)) ++v;
            const int next = v;
            const double slope = next < 360 ? (At(h, next) - At(h, prev)) / (next - prev)
                                            : (At(h, 0) - At(h, prev)) / (next - prev);
            for (int i = prev + 1; i <= next - 1; ++i) At(h, i) = At(h, i - 1) + slope;
        }
    } while (v < 359);
}

std::string FileNameOf(const std::string& path) {
    const size_t slash = path.find_last_of("/\\");
    return slash == std::string::npos ? path : path.substr(slash + 1);
}

} // namespace

HorizonLoad LoadHorizonFile(const std::string& path, HorizonTable& HorizonAlt) {
    HorizonLoad result;
    if (path.empty()) {
        HorizonAlt.fill(0.0);
        result.changed = true;
        return result;
    }
    if (!Exists(path)) {
        result.message = "Horizon File: " + path + "\r\nNot Found.";
        return result;
    }
    std::string text, failure;
    if (!ReadWholeFile(path, text, &failure)) {
        result.message = "Error Loading Horizon File:\r\n" + failure;
        return result;
    }
    result.changed = true;
    HorizonAlt.fill(kNoHorizonValue);
    for (const std::string& entry : SplitEntries(text)) ReadPoint(entry, HorizonAlt);
    bool any = false;
    for (int i = 0; i < 360; ++i) any = any || HasValue(HorizonAlt, i);
    if (!any) {
        HorizonAlt.fill(0.0);
        result.message = kTooFew;
        return result;
    }
    if (!HasValue(HorizonAlt, 0) && !BridgeNorth(HorizonAlt)) {
        result.message = kTooFew;
        return result;
    }
    FillGaps(HorizonAlt);
    result.toolTip = "Horizon File: " + FileNameOf(path);
    return result;
}

} // namespace tarvelle
