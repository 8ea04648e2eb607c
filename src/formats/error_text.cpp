#include "formats/error_text.h"

#include "core/text_forms.h"

#include <algorithm>
#include <iterator>

namespace tarvelle {

namespace {

struct NumberedText {
    int n;
    const char* text;
};

constexpr NumberedText kErrorTexts[] = {
    {6, "OverFlow"},
    {7, "Out of Memory"},
    {11, "Division by Zero"},
    {14, "Out of String Space"},
    {28, "Out of Stack Space"},
    {48, "Error Loading DLL"},
    {52, "Bad File Name or Number"},
    {53, "File Not Found"},
    {54, "Bad File Mode"},
    {55, "File Already Open"},
    {57, "Device I/O Error"},
    {58, "File Already Exists"},
    {59, "Bad Record Length"},
    {61, "Disk Full"},
    {62, "Input Past End of File"},
    {63, "Bad Record Number"},
    {64, "Bad File Name"},
    {67, "Too Many Files"},
    {68, "Device Unavailable"},
    {70, "Permission Denied"},
    {71, "Disk Not Ready"},
    {74, "Can't Rename with Different Drive"},
    {75, "Path File Access Error"},
    {76, "Path Not Found"},
    // Three lines parted by a carriage return alone, not a line end pair.
    {380, "If this error occurs when accessing\ra Comm Port, a bad Comm paramter\rshould be suspected."},
    {453, "Specified DLL Function Can't Be Found"},
    {482, "Printer Error"},
};

} // namespace

std::string ErrorText(int n) {
    const auto* found = std::find_if(std::begin(kErrorTexts), std::end(kErrorTexts),
                                     [n](const NumberedText& e) { return e.n == n; });
    if (found != std::end(kErrorTexts)) return found->text;
    return "Error #" + StrForm(static_cast<double>(n));
}

} // namespace tarvelle
