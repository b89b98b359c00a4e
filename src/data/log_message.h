#pragma once
// The numbered messages.

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "data/record.h"

// 0 "TRACE", 1 "DEBUG", 2 "INFO ", 3 "WARN ", 4 "ERROR", 5 "FATAL"; an unknown level is TRACE.
std::string levelText(std::int32_t level);
// Blanks around the text do not count. A text that is no level gives 0.
std::int32_t levelFromText(std::string_view text);
// What a user can do: 0 "NONE", 1 "RETRY", 2 "ABORT", 3 "STOP", 4 "SKIP"; an unknown text gives 0.
std::int32_t actionFromText(std::string_view text);

class DataLogMessage final {
public:
    virtual void clear() { *this = DataLogMessage(); }
    virtual std::string toString(const std::string& separator) const;
    static std::span<const record::Field<DataLogMessage>> fields();

    KDL_FIELD(std::int32_t, Code, 0);
    KDL_FIELD(std::int32_t, Logging, 0); // level
    KDL_FIELD(std::string, Contents);    // template with "%KEY%" placeholders
    KDL_FIELD(std::string, Restore);     // how to recover
    KDL_FIELD(std::int32_t, Action, 0);
};

// In the file's order; where a number stands twice the first one answers.
class DataLogMessageList {
public:
    void add(const DataLogMessage& message) { messages_.push_back(message); }
    // Null when there is none; good until the list changes.
    const DataLogMessage* find(std::int32_t code) const;
    // A cleared record when there is none.
    DataLogMessage getMessage(std::int32_t code) const;
    void clear() { messages_.clear(); }
    std::int32_t size() const { return static_cast<std::int32_t>(messages_.size()); }
    auto begin() const { return messages_.begin(); }
    auto end() const { return messages_.end(); }

private:
    std::vector<DataLogMessage> messages_;
};
