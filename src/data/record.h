#pragma once
// How the records of this folder are declared. A field is declared once, with its accessors, and stands once
// in its record's table; reading, writing, updating and dumping a record all walk that table. Records are
// values: nothing derives from them, and the lists that hold them move them.

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <variant>
#include <vector>

#include "foundation/data_pairs.h"
#include "foundation/datetime.h"

// A field `m##Name` with get##Name and set##Name. Numbers and flags go by value, the rest by reference.
#define KDL_FIELD(FieldType, Name, ...)                                                                      \
public:                                                                                                      \
    record::Passed<FieldType> get##Name() const {                                                            \
        return m##Name;                                                                                      \
    }                                                                                                        \
    void set##Name(record::Passed<FieldType> value) {                                                        \
        m##Name = value;                                                                                     \
    }                                                                                                        \
                                                                                                             \
private:                                                                                                     \
    FieldType m##Name {                                                                                      \
        __VA_ARGS__                                                                                          \
    }

struct Version {
    std::int32_t majorNumber = 0, minorNumber = 0, patchNumber = 0;
    friend bool operator==(const Version&, const Version&) = default;
};

namespace record {

template <typename FieldType>
using Passed = std::conditional_t<std::is_arithmetic_v<FieldType>, FieldType, const FieldType&>;

// A moment that is stored with its time of day; a plain SystemTime is stored as a date.
struct Moment : platform::SystemTime {
    Moment() = default;
    Moment(const platform::SystemTime& time) : platform::SystemTime(time) {}
};

// The forms that fields take in files and dumps.
std::string toText(std::int32_t value);
std::string toText(const std::string& value);
std::string toText(bool value); // "TRUE", "FALSE"
std::string toText(const platform::SystemTime& value);
std::string toText(const Moment& value);
std::string toText(const Version& value); // "1.2.3"
void fromText(std::string_view text, std::int32_t& value);
void fromText(std::string_view text, std::string& value);
void fromText(std::string_view text, bool& value); // "true" in any case sets, all else clears
void fromText(std::string_view text, platform::SystemTime& value);
void fromText(std::string_view text, Moment& value);
void fromText(std::string_view text, Version& value);

template <typename Record>
struct Field {
    using Member = std::variant<std::int32_t Record::*, std::string Record::*, bool Record::*,
                                platform::SystemTime Record::*, Moment Record::*, Version Record::*>;

    const char* key; // its name in dumps; "" when they leave it out
    // Its place in the file, as "a", "a/b", "@attribute", "a/@attribute", or "a[2]" for the "a" with the
    // attribute userId 2; "" when it has none.
    const char* element;
    Member member;
    // Tables stand in the order of the dump; in the file this one follows the element named here.
    const char* behind = "";
};

template <typename Record>
std::string textOf(const Record& from, const Field<Record>& field) {
    return std::visit([&](auto member) { return toText(from.*member); }, field.member);
}

template <typename Record>
void setText(Record& into, const Field<Record>& field, std::string_view text) {
    std::visit([&](auto member) { fromText(text, into.*member); }, field.member);
}

// Adds every field that dumps show, in the table's order.
template <typename Record>
void addPairs(zelkova::DataPairsList& pairs, const Record& from, std::span<const Field<Record>> fields) {
    static_assert(std::is_nothrow_move_constructible_v<Record> && std::is_nothrow_move_assignable_v<Record>);
    for (const Field<Record>& field : fields)
        if (*field.key) pairs.add(field.key, textOf(from, field));
}

template <typename Record>
std::string dump(const Record& from, std::span<const Field<Record>> fields, const std::string& separator) {
    zelkova::DataPairsList pairs;
    addPairs(pairs, from, fields);
    return pairs.toString(separator);
}

// The fields that the file has, in the file's order.
template <typename Record>
std::vector<const Field<Record>*> inFileOrder(std::span<const Field<Record>> fields) {
    std::vector<const Field<Record>*> order;
    for (const Field<Record>& field : fields)
        if (*field.element && !*field.behind) order.push_back(&field);
    for (const Field<Record>& field : fields) {
        if (!*field.behind) continue;
        auto place = order.begin();
        while (place != order.end() && std::string_view((*place)->element) != field.behind)
            ++place;
        order.insert(place == order.end() ? place : place + 1, &field);
    }
    return order;
}

} // namespace record
