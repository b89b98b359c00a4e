// The examples for authors of terminals are the bytes that the program sends and reads.
#include <fstream>
#include <iterator>

#include <gmock/gmock.h>

#include "foundation/text.h"
#include "platform/text.h"
#include "protocol/vr_message.h"
#include "terminal/script.h"

namespace {

TEST(ProtocolDocument, ExamplesAreExact) {
    std::ifstream file(PROTOCOL_DOCUMENT, std::ios::binary);
    const std::string document = platform::utf8ToSjis(std::string(std::istreambuf_iterator<char>(file), {}));
    int examples = 0;
    bool inExample = false;
    for (const std::string& line : zelkova::split(document, "\n")) {
        if (line.starts_with("```")) {
            inExample = line == "```vrp";
        } else if (inExample) {
            ++examples;
            const std::string bytes = terminal::unescape(line);
            VRMessage message;
            EXPECT_TRUE(message.parse(bytes)) << line;
            EXPECT_EQ(message.build(true), bytes);
        }
    }
    EXPECT_GE(examples, 12);
}

} // namespace
