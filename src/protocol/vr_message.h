#pragma once
// One message of VRP: a start line, an empty line, lines "name:value", and a line with a dot. Text in the
// program's code page; nothing is escaped, so a value must not hold a CRLF.

#include <cstdint>
#include <string>
#include <string_view>

#include "foundation/data_pairs.h"

class VRMessage {
public:
    VRMessage() { VRMessage::clear(); }
    // A request or reply that has no class of its own.
    explicit VRMessage(std::string_view method) : method_(method) { VRMessage::clear(); }
    VRMessage(const VRMessage&) = default;
    VRMessage& operator=(const VRMessage&) = default;

    // Version 1.0, no lines; method and target stay.
    virtual void clear();
    virtual ~VRMessage() = default;

    std::string getMethod() const { return method_; }
    const zelkova::DataPairsList& getPairs() const { return pairs_; }
    // Of the first line with that name in any case; "" and 0 without one.
    std::string getText(std::string_view name) const { return pairs_.getValue(name); }
    std::int32_t getNumber(std::string_view name) const;

    void setTarget(std::string_view target) { target_ = target; }
    void setFrom(std::string_view address) { add("From", address); }
    void setTo(std::string_view address) { add("To", address); }
    void add(std::string_view name, std::string_view value);
    void add(std::string_view name, std::int32_t value);

    // The whole message as bytes. With `setLength` its length is worked out first, as every sent message
    // needs; else it is that of the last build or parse, and a received one need not be true.
    std::string build(bool setLength);
    std::string toString() { return build(true); }

    // False, and nothing changed, when the text does not start like a message. Lines that are neither
    // "name:value" nor a dot are passed over; what stands behind the dot line is ignored, and so are version
    // and length.
    bool parse(std::string_view text);

protected:
    void setMethod(std::string_view method) { method_ = method; }

private:
    std::string method_, target_;
    std::int32_t majorVersion_, minorVersion_, length_;
    zelkova::DataPairsList pairs_;
    std::string startLine_, body_;
};
