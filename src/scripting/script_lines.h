// The lines of a running script. EXECUTE_SCRIPT splices a file in behind the line that runs,
// and the line that runs only moves forward, so the array is kept as a gap buffer split at
// the last splice: a script that includes itself grows in linear time, not quadratic.
#pragma once

#include <string>
#include <vector>

namespace tarvelle {

class ScriptLineArray {
public:
    ScriptLineArray() = default;
    explicit ScriptLineArray(std::vector<std::string> lines) : head_(std::move(lines)) {}

    size_t size() const { return head_.size() + tail_.size(); }
    const std::string& operator[](size_t i) const {
        return i < head_.size() ? head_[i] : tail_[tail_.size() - 1 - (i - head_.size())];
    }
    // InsertScriptLines: the entries below position, all of source, then the rest; a position
    // outside the array is taken as its nearest end.
    void Insert(int position, const std::vector<std::string>& source);
    std::vector<std::string> Lines() const;

private:
    void SplitAt(size_t at);

    std::vector<std::string> head_;
    std::vector<std::string> tail_; // the entries behind the split, last first
};

} // namespace tarvelle
