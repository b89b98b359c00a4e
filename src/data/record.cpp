#include "data/record.h"

#include "foundation/text.h"
#include "foundation/text_format.h"

namespace record {

using zelkova::DateTime;

std::string toText(std::int32_t value) {
    return zelkova::numberToText(value);
}
std::string toText(const std::string& value) {
    return value;
}
std::string toText(bool value) {
    return value ? "TRUE" : "FALSE";
}
std::string toText(const platform::SystemTime& value) {
    return DateTime(value).toString(DateTime::dateOnly);
}
std::string toText(const Moment& value) {
    return DateTime(value).toString(DateTime::withTime);
}
std::string toText(const Version& value) {
    return toText(value.majorNumber) + "." + toText(value.minorNumber) + "." + toText(value.patchNumber);
}

void fromText(std::string_view text, std::int32_t& value) {
    value = zelkova::stringToInt(text);
}
void fromText(std::string_view text, std::string& value) {
    value = text;
}
void fromText(std::string_view text, bool& value) {
    value = zelkova::toUpperSjis(text) == "TRUE";
}
void fromText(std::string_view text, platform::SystemTime& value) {
    value = DateTime(text).toSystemTime();
}
void fromText(std::string_view text, Moment& value) {
    value = DateTime(text).toSystemTime();
}
void fromText(std::string_view text, Version& value) {
    std::vector<std::string> numbers;
    value = {};
    if (!zelkova::scanFormat("%d.%d.%d", text, numbers)) return;
    fromText(numbers[0], value.majorNumber);
    fromText(numbers[1], value.minorNumber);
    fromText(numbers[2], value.patchNumber);
}

} // namespace record
