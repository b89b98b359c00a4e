#include "foundation/data_pairs.h"

#include <utility>

#include "foundation/text.h"

namespace zelkova {

DataPairs::DataPairs(std::string key, std::int32_t value) : DataPairs(std::move(key), numberToText(value)) {}

void DataPairs::set(std::string key, std::string value) {
    key_ = std::move(key);
    value_ = std::move(value);
}

void DataPairs::clear() {
    key_.clear();
    value_.clear();
}

std::string DataPairs::toString(const std::string&) const {
    return key_ + "=[" + value_ + "]";
}

void DataPairsList::add(std::string key, std::string value) {
    pairs_.emplace_back(std::move(key), std::move(value));
}

void DataPairsList::add(std::string key, std::int32_t value) {
    pairs_.emplace_back(std::move(key), value);
}

void DataPairsList::remove(std::string_view key) {
    if (const auto index = indexOf(key); index >= 0) pairs_.erase(pairs_.begin() + index);
}

void DataPairsList::clear() {
    pairs_.clear();
}

DataPairs DataPairsList::get(std::int32_t index) const {
    return index >= 0 && index < size() ? pairs_[static_cast<std::size_t>(index)] : DataPairs();
}

DataPairs DataPairsList::get(std::string_view key) const {
    return get(indexOf(key));
}

std::string DataPairsList::getValue(std::string_view key) const {
    const DataPairs* pair = find(key);
    return pair ? pair->getValue() : std::string();
}

std::int32_t DataPairsList::indexOf(std::string_view key) const {
    const std::string folded = toUpperSjis(key);
    for (std::size_t i = 0; i < pairs_.size(); ++i)
        if (toUpperSjis(pairs_[i].getKey()) == folded) return static_cast<std::int32_t>(i);
    return -1;
}

const DataPairs* DataPairsList::find(std::string_view key) const {
    const auto index = indexOf(key);
    return index < 0 ? nullptr : &pairs_[static_cast<std::size_t>(index)];
}

std::string DataPairsList::toString(const std::string& separator) const {
    std::string out = "{";
    for (std::size_t i = 0; i < pairs_.size(); ++i) {
        if (i > 0) out += separator;
        out += pairs_[i].toString(separator);
    }
    return out + "}";
}

std::string formatWithPairs(std::string_view text, DataPairsList pairs, std::string_view marker,
                            bool appendRest) {
    const auto tokens = split(text, marker);
    std::string out;
    bool pendingMarker = false;
    for (std::size_t i = 0; i < tokens.size(); ++i) {
        if (tokens[i].empty()) {
            // Two markers side by side: the second one turns the first into a literal.
            if (i == 0) continue;
            if (pendingMarker) out += marker;
            pendingMarker = !pendingMarker;
            continue;
        }
        if (pendingMarker) out += marker;
        pendingMarker = false;
        if (i % 2 == 0) {
            out += tokens[i];
        } else {
            out += pairs.getValue(tokens[i]);
            pairs.remove(tokens[i]);
        }
    }
    if (appendRest)
        for (std::int32_t i = 0; i < pairs.size(); ++i)
            out += (i > 0 ? ", " : " ") + pairs.get(i).toString("");
    return out;
}

} // namespace zelkova
