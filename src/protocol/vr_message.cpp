#include "protocol/vr_message.h"

#include "foundation/text.h"
#include "protocol/define_vrp.h"
#include "protocol/pattern.h"

namespace {

constexpr std::string_view lineEnd = "\r\n";
constexpr std::string_view messageEnd = "\r\n.\r\n";

const std::string& messagePattern() {
    static const std::string pattern = "%s %s " + std::string(DefineVrp::PROTOCOL) + "/%d.%d %d\r\n\r\n%s";
    return pattern;
}

} // namespace

void VRMessage::clear() {
    majorVersion_ = 1;
    minorVersion_ = 0;
    length_ = 0;
    startLine_.clear();
    body_.clear();
    pairs_.clear();
}

std::int32_t VRMessage::getNumber(std::string_view name) const {
    return zelkova::stringToInt(getText(name));
}

void VRMessage::add(std::string_view name, std::string_view value) {
    pairs_.add(std::string(name), std::string(value));
}

void VRMessage::add(std::string_view name, std::int32_t value) {
    pairs_.add(std::string(name), value);
}

std::string VRMessage::build(bool setLength) {
    body_.clear();
    for (std::int32_t i = 0; i < pairs_.size(); ++i) {
        const zelkova::DataPairs pair = pairs_.get(i);
        if (i > 0) body_ += lineEnd;
        body_.append(pair.getKey()).append(":").append(pair.getValue());
    }
    if (setLength) length_ = static_cast<std::int32_t>(body_.size() + messageEnd.size());
    const auto number = [](std::int32_t value) { return zelkova::numberToText(value); };
    startLine_ = method_ + " " + target_ + " " + std::string(DefineVrp::PROTOCOL) + "/" +
                 number(majorVersion_) + "." + number(minorVersion_) + " " + number(length_) +
                 std::string(lineEnd);
    return startLine_ + std::string(lineEnd) + body_ + std::string(messageEnd);
}

bool VRMessage::parse(std::string_view text) {
    const auto fields = matchPattern(messagePattern(), text);
    if (!fields) return false;
    pairs_.clear();
    method_ = (*fields)[0];
    target_ = (*fields)[1];
    majorVersion_ = zelkova::stringToInt((*fields)[2]);
    minorVersion_ = zelkova::stringToInt((*fields)[3]);
    length_ = zelkova::stringToInt((*fields)[4]);
    body_ = (*fields)[5];
    for (const std::string& line : zelkova::split(body_, lineEnd)) {
        if (const auto pair = matchPattern("%s:%s", line))
            add((*pair)[0], (*pair)[1]);
        else if (line == ".")
            break;
    }
    return true;
}
