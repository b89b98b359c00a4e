#include "foundation/data_pairs.h"

#include <gtest/gtest.h>

namespace zelkova {
namespace {

TEST(DataPairsList, LooksUpBlindToCase) {
    DataPairsList list;
    EXPECT_EQ(list.toString(","), "{}");
    list.add("Quest", 7);
    list.add("quest", "second");
    list.add("アa", "double");
    EXPECT_EQ(list.getValue("QUEST"), "7");
    EXPECT_EQ(list.getValue("アA"), "double");
    EXPECT_EQ(list.getValue("ヂA"), "") << "bytes of double-byte characters are not folded";
    EXPECT_EQ(list.indexOf("none"), -1);
    EXPECT_EQ(list.find("none"), nullptr);
    EXPECT_EQ(list.toString(", "), "{Quest=[7], quest=[second], アa=[double]}");
    list.remove("qUEST");
    EXPECT_EQ(list.getValue("Quest"), "second");
    EXPECT_EQ(list.get(-1).toString(","), "=[]");
    EXPECT_EQ(list.get(list.size()).toString(","), "=[]");
}

TEST(DataPairsList, ExpandsTemplates) {
    const DataPairsList pairs{{"X", "1"}, {"Y", 2}, {"Z", "3"}};
    const struct {
        const char *text, *all, *withoutRest;
    } cases[] = {
        {"A %X% B", "A 1 B Y=[2], Z=[3]", "A 1 B"}, {"%x%-%y%-%z%", "1-2-3", "1-2-3"},
        {"%X% %X%", "1  Y=[2], Z=[3]", "1 "},       {"100%%", "100% X=[1], Y=[2], Z=[3]", "100%"},
        {"%%%X%%%", "%1% Y=[2], Z=[3]", "%1%"},     {"[%NONE%]", "[] X=[1], Y=[2], Z=[3]", "[]"},
        {"", " X=[1], Y=[2], Z=[3]", ""},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(formatWithPairs(c.text, pairs, "%", true), c.all) << c.text;
        EXPECT_EQ(formatWithPairs(c.text, pairs, "%", false), c.withoutRest) << c.text;
    }
    EXPECT_EQ(formatWithPairs("ソ|X|", pairs, "|", false), "ソ1") << "a trail byte is no marker";
    EXPECT_EQ(formatWithPairs("text", DataPairsList(), "%", true), "text");
}

TEST(Object, NamesItsClass) {
    DataObject record;
    EXPECT_EQ(record.getClassName(), "zelkova::DataObject");
    EXPECT_EQ(record.toString(","), "zelkova::DataObject");
    DataPairs pair;
    EXPECT_EQ(pair.Object::toString("", "", "", ""), "zelkova::DataPairs::toString()");
}

} // namespace
} // namespace zelkova
