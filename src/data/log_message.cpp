#include "data/log_message.h"

#include <algorithm>
#include <array>

#include "foundation/text.h"

namespace {

constexpr std::array<const char*, 6> levels = {"TRACE", "DEBUG", "INFO ", "WARN ", "ERROR", "FATAL"};
constexpr std::array<const char*, 5> actions = {"NONE", "RETRY", "ABORT", "STOP", "SKIP"};

template <std::size_t Size>
const char* entry(const std::array<const char*, Size>& table, std::int32_t index) {
    return index >= 0 && index < static_cast<std::int32_t>(Size) ? table[static_cast<std::size_t>(index)]
                                                                 : table[0];
}

} // namespace

std::string levelText(std::int32_t level) {
    return entry(levels, level);
}

std::int32_t levelFromText(std::string_view text) {
    const std::string wanted = zelkova::trim(text);
    const auto found = std::find_if(levels.begin(), levels.end(),
                                    [&](const char* level) { return zelkova::trim(level) == wanted; });
    return found == levels.end() ? 0 : static_cast<std::int32_t>(found - levels.begin());
}

std::int32_t actionFromText(std::string_view text) {
    const auto found = std::find(actions.begin(), actions.end(), zelkova::toUpperSjis(text));
    return found == actions.end() ? 0 : static_cast<std::int32_t>(found - actions.begin());
}

std::span<const record::Field<DataLogMessage>> DataLogMessage::fields() {
    static const record::Field<DataLogMessage> table[] = {
        {"code", "@code", &DataLogMessage::mCode},
        {"logging", "logging", &DataLogMessage::mLogging},
        {"contents", "contents", &DataLogMessage::mContents},
        {"restore", "restore", &DataLogMessage::mRestore},
        {"action", "", &DataLogMessage::mAction}, // a word in the file
    };
    return table;
}

std::string DataLogMessage::toString(const std::string& separator) const {
    return record::dump(*this, fields(), separator);
}

const DataLogMessage* DataLogMessageList::find(std::int32_t code) const {
    const auto found = std::find_if(messages_.begin(), messages_.end(),
                                    [&](const DataLogMessage& message) { return message.getCode() == code; });
    return found == messages_.end() ? nullptr : &*found;
}

DataLogMessage DataLogMessageList::getMessage(std::int32_t code) const {
    const DataLogMessage* found = find(code);
    return found ? *found : DataLogMessage();
}
