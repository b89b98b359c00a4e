#pragma once
// The ordered key/value record that carries the variable parts of messages and the dumps of records.

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "foundation/object.h"

namespace zelkova {

class DataPairs : public DataObject {
public:
    DataPairs() = default;
    DataPairs(std::string key, std::string value) : key_(std::move(key)), value_(std::move(value)) {}
    DataPairs(std::string key, std::int32_t value);

    const std::string& getKey() const { return key_; }
    const std::string& getValue() const { return value_; }
    void set(std::string key, std::string value);

    void clear() override;
    using DataObject::toString;
    // "key=[value]"
    std::string toString(const std::string& separator) const override;

private:
    std::string key_, value_;
};

// In order of insertion; a key may stand more than once. Every look-up by key folds ASCII case and answers
// with the first match.
class DataPairsList : public DataObject {
public:
    DataPairsList() = default;
    DataPairsList(std::initializer_list<DataPairs> pairs) : pairs_(pairs) {}

    void add(std::string key, std::string value);
    void add(std::string key, std::int32_t value);
    // Takes away the first match; nothing happens without one.
    void remove(std::string_view key);
    void clear() override;

    std::int32_t size() const { return static_cast<std::int32_t>(pairs_.size()); }
    // An empty pair when there is none.
    DataPairs get(std::int32_t index) const;
    DataPairs get(std::string_view key) const;
    std::string getValue(std::string_view key) const;
    std::int32_t indexOf(std::string_view key) const; // -1 when there is none
    // Null when there is none; good until the list changes.
    const DataPairs* find(std::string_view key) const;

    using DataObject::toString;
    // "{", the pairs joined by the separator, "}"
    std::string toString(const std::string& separator) const override;

private:
    std::vector<DataPairs> pairs_;
};

// Expands a template: what stands between two markers is a key, replaced by its value ("" when unknown) and
// used up; a doubled marker is one literal marker. With `appendRest` the unused pairs follow behind a blank,
// joined by ", ", each as "key=[value]".
std::string formatWithPairs(std::string_view text, DataPairsList pairs, std::string_view marker,
                            bool appendRest);

} // namespace zelkova
