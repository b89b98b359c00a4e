#include <gtest/gtest.h>

#include "data/data_session.h"
#include "data/data_training_history.h"
#include "data/data_user_info.h"
#include "data/id3_tag.h"
#include "data/labels.h"
#include "platform/files.h"
#include "support/temporary_folder.h"

namespace {

TEST(Labels, StandAtTheirStoredValues) {
    EXPECT_EQ(playRangeLabels.text(rangeAnswer), "解答");
    EXPECT_EQ(playRangeLabels.text(7), "イントロ") << "as it is played";
    EXPECT_EQ(playTimeLabels.text(-1), "激難(250m)");
    EXPECT_EQ(handsTypeLabels.text(handsRest), "休み");
    EXPECT_EQ(handsTypeLabels.text(3), "");
    EXPECT_EQ(stealLabels.text(0), "指名");
    EXPECT_EQ(penaltyLabels.text(1), handsTypeLabels.text(handsInStage));
    EXPECT_EQ(fileTypeLabels.text(7), "N/A");
    for (const auto& [name, type] : {std::pair("MID", 5), {"", 6}, {"mp3", -1}})
        EXPECT_EQ(fileTypeFromName(name), type) << name;
    EXPECT_EQ(genreFromId3(14), "R&B");
    EXPECT_EQ(genreFromId3(0), "");
    const int factors[] = {0, 100, 100, 100, 1000, 0, 100, 0, 0};
    for (int fileType = -1; fileType < 8; ++fileType)
        EXPECT_EQ(positionFactor(fileType), factors[fileType + 1]) << fileType;
}

TEST(Records, AreEmptyAsTold) {
    EXPECT_EQ(DataSession().toString(","),
              "{name=[],partVoice=[],questNum=[-1],range=[-1],interval=[-1],speed=[-1],multi=[-1],score=[-1],"
              "deduction=[1],"
              "handsType=[-1],hands=[-1],steal=[-1],limit=[-1],resourceId=[],errcode=[-1]}");
    EXPECT_EQ(DataTrainingModeHistory().toString(" "),
              "{question=[0] questionSub=[0] title=[] artist=[] status=[] answerTime=[0]}");
    DataSession stage;
    stage.setResourceId("3,5");
    stage.setScore(7);
    stage.clear();
    EXPECT_EQ(stage.getScore(), -1);
    EXPECT_EQ(stage.getResources(), (std::vector<std::int32_t>{3, 5})) << "the songs stay";
    stage.setResources({1});
    EXPECT_EQ(stage.getResourceId(), "3,5");
    DataResource song;
    song.setNo(4);
    song.clear();
    EXPECT_EQ(song.getNo(), -1);
}

TEST(Id3Tag, StandsInTheLastBytesOfTheFile) {
    const test_support::TemporaryFolder folder;
    const auto field = [](std::string text, std::size_t width) {
        text.resize(width);
        return text;
    };
    const std::string tag =
        "TAG" + field("曲名", 30) + std::string(30, 'a') + field("", 30) + "2011" + field("c", 30) + "\xFA";
    ASSERT_TRUE(platform::replaceFile(folder.file("a.mp3"), "sound" + tag));
    const auto read = readId3Tag(folder.file("a.mp3"));
    ASSERT_TRUE(read);
    EXPECT_EQ(read->title, "曲名");
    EXPECT_EQ(read->artist, std::string(30, 'a'));
    EXPECT_EQ(read->year, "2011");
    EXPECT_EQ(read->comment, "c");
    EXPECT_EQ(genreFromId3(read->genre), "JRock");

    for (const std::string& bytes : {std::string("TAG"), tag + "x", std::string()}) {
        ASSERT_TRUE(platform::replaceFile(folder.file("b.mp3"), bytes));
        EXPECT_FALSE(readId3Tag(folder.file("b.mp3"))) << bytes.size();
    }
    EXPECT_FALSE(readId3Tag(folder.path().string()));
}

TEST(Records, TakeFullWidthSigns) {
    EXPECT_EQ(toFullWidthSigns("a(b)&,表"), "a（b）＆，表");
}

} // namespace
