#include "scripting/script_lines.h"

#include <algorithm>

namespace tarvelle {

void ScriptLineArray::SplitAt(size_t at) {
    while (head_.size() > at) {
        tail_.push_back(std::move(head_.back()));
        head_.pop_back();
    }
    while (head_.size() < at) {
        head_.push_back(std::move(tail_.back()));
        tail_.pop_back();
    }
}

void ScriptLineArray::Insert(int position, const std::vector<std::string>& source) {
    SplitAt(static_cast<size_t>(std::clamp(position, 0, static_cast<int>(size()))));
    head_.insert(head_.end(), source.begin(), source.end());
}

std::vector<std::string> ScriptLineArray::Lines() const {
    std::vector<std::string> all = head_;
    all.insert(all.end(), tail_.rbegin(), tail_.rend());
    return all;
}

} // namespace tarvelle
