// Text masters with placeholders, and texts that go into one that is XML.

#include "documents/template_text.h"

#include <filesystem>
#include <fstream>

#include <gmock/gmock.h>

#include "data/xml_dom.h"
#include "foundation/text.h"
#include "platform/files.h"
#include "platform/text.h"
#include "support/office.h"

namespace {

using namespace test_support;

constexpr const char* shippedKeys[] = {"UserName",     "Order", "Competition",      "Year",
                                       "Month",        "Day",   "PublisherCompany", "PublisherPost",
                                       "PublisherName"};

class Template : public testing::Test {
protected:
    void expectFault(const std::optional<DocumentFault>& fault, int code, const std::string& file,
                     bool earlierShown) const {
        ASSERT_TRUE(fault);
        EXPECT_EQ(fault->code, code);
        EXPECT_EQ(fault->pairs.getValue("FILE"), file);
        EXPECT_EQ(fault->earlierShown, earlierShown);
    }
    Office office;
    const std::string master = office.file("master"), output = office.file("output");
};

TEST_F(Template, IsFilledLineByLine) {
    zelkova::DataPairsList pairs;
    pairs.add("Name", "山田%Year%");
    pairs.add("Year", "");
    platform::replaceFile(master, "<%Name%>%Year%\r\n\n100%% %name% %Other%\x83\x5C%Name%");
    ASSERT_FALSE(expandTemplate(master, output, pairs));
    EXPECT_EQ(platform::readFile(output), "<山田%Year%>\r\n\n100% 山田%Year% \x83\x5C\n");
}

TEST_F(Template, NamesThePlaceholderThatItsMasterLacks) {
    zelkova::DataPairsList pairs;
    for (const char* key : shippedKeys)
        pairs.add(key, "値");
    const std::string shipped = platform::readFile(office.file("tmp/Certificate_master.xml")).value();
    for (const std::string key : shippedKeys) {
        // Gone, spelt otherwise, or broken over two lines.
        for (const std::string& instead : {std::string(), "%" + key + "s%", "%" + key + "\n%"}) {
            std::string text = zelkova::replaceAll(shipped, "%" + key + "%", instead);
            platform::replaceFile(master, text);
            const auto fault = expandTemplate(master, output, pairs);
            expectFault(fault, 4000014, master, false);
            EXPECT_EQ(fault->pairs.getValue("ELEMENT"), "%" + key + "%");
            EXPECT_FALSE(platform::pathExists(output));
        }
    }
    platform::replaceFile(master, shipped);
    EXPECT_FALSE(expandTemplate(master, output, pairs));
}

TEST_F(Template, LeavesTheEarlierOutputWhenItCannotBeMade) {
    platform::replaceFile(master, "new");
    platform::replaceFile(output, "old");
    expectFault(expandTemplate(office.file("none"), output, {}), 4000016, office.file("none"), true);
    expectFault(expandTemplate(master, office.file("no/folder"), {}), 4000015, office.file("no/folder"),
                true);
    std::ofstream(office.file(".~lock.output#")) << ",host,desk";
    expectFault(expandTemplate(master, output, {}), 3000022, output, true);
    EXPECT_EQ(platform::readFile(output), "old");
}

TEST_F(Template, TheShippedOneHasEachPlaceholderOnce) {
    const std::string text = platform::readFile(office.file("tmp/Certificate_master.xml")).value();
    const auto pieces = zelkova::split(text, "%");
    std::vector<std::string> keys;
    for (std::size_t i = 1; i < pieces.size(); i += 2)
        keys.push_back(pieces[i]);
    EXPECT_THAT(keys, testing::UnorderedElementsAreArray(shippedKeys));
    EXPECT_EQ(pieces.size(), 2 * std::size(shippedKeys) + 1) << "no other marker";
}

// Readers differ in what they take Shift_JIS for: in the rows that makers have added, in "\" and "~", in the
// half-width letters. What is ASCII in all of them remains.
TEST_F(Template, ATextIsEscapedForEveryReader) {
    const std::pair<const char*, const char*> rows[] = {
        {"<A&B>\"\n'", "&lt;A&amp;B&gt;&quot; '"},
        {"表①髙", "&#34920;&#9312;&#39641;"},
        {"ｱ\\~", "&#65393;&#92;&#126;"},
        {"\x83", "&#12307;"},                   // half a character: 〓
        {"\xFC\xFCz\xA0", "&#12307;z&#12307;"}, // a place without one
        {"a\x7F\x01z", "a  z"},
    };
    for (const auto& [text, escaped] : rows)
        EXPECT_EQ(xmlEscaped(text), escaped);

    // Every character of the code page comes back, by the reader's own code for nothing but ASCII.
    std::string all;
    for (unsigned code = 0x20; code <= 0xFCFC; ++code) {
        const char16_t unit = zelkova::sjisToUnicode(static_cast<std::uint16_t>(code));
        if (unit == 0 || unit == u'\x7F' || zelkova::unicodeToSjis(unit) != code) continue;
        if (code > 0xFF) all += static_cast<char>(code >> 8);
        all += static_cast<char>(code);
    }
    ASSERT_GT(all.size(), 14000u);
    const std::string written = xmlEscaped(all);
    EXPECT_TRUE(
        std::ranges::all_of(written, [](char byte) { return byte >= ' ' && byte < '~' && byte != '\\'; }));
    for (const char* encoding : {"Shift_JIS", "US-ASCII", "UTF-8"}) {
        platform::replaceFile(output, std::string("<?xml version=\"1.0\" encoding=\"") + encoding +
                                          "\"?><t>" + written + "</t>");
        XmlDom reader;
        ASSERT_EQ(reader.parse(output), 0) << reader.loadError();
        EXPECT_EQ(XmlDom::getTextContent(reader.select("t")), all) << encoding;
    }
}

} // namespace
