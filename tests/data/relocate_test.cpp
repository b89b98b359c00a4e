#include "data/relocate.h"

#include <filesystem>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/files.h"
#include "support/temporary_folder.h"

namespace {

using test_support::TemporaryFolder;
using testing::ElementsAre;
using testing::IsEmpty;

class Relocated : public testing::Test {
protected:
    void SetUp() override { ASSERT_EQ(catalogue.open(folder.file("ResourceData.xml")), 1); }

    int add(const std::string& file) {
        DataResource song;
        song.setFileName(file);
        song.setTitle("曲");
        song.setLength(1234);
        return catalogue.add(song);
    }
    std::string fileOf(int number) const {
        DataResource song;
        EXPECT_EQ(catalogue.get(number, song), 1);
        EXPECT_EQ(song.getLength(), 1234) << "nothing else changes";
        return song.getFileName();
    }
    std::string make(const std::string& file) const {
        const std::string path = folder.file(file);
        EXPECT_TRUE(platform::makeFolder(path.substr(0, path.rfind('/'))));
        EXPECT_TRUE(platform::replaceFile(path, "sound"));
        return path;
    }

    TemporaryFolder folder;
    AccesserResource catalogue;
};

TEST_F(Relocated, FindsSongsByNameUnderTheFolder) {
    const std::string stays = make("old/here.mp3"), moved = make("music/表/ポ曲.MP3");
    make("music/here.mp3");
    const int here = add(stays), gone = add("C:\\音楽\\表\\ポ曲.mp3"), lost = add("C:\\音楽\\lost.mp3");
    const int nowhere = add("");
    const Relocation result = relocateSongs(catalogue, folder.file("music/"));
    EXPECT_EQ(result.relocated, 1);
    EXPECT_THAT(result.unknown, ElementsAre("C:\\音楽\\lost.mp3"));
    EXPECT_THAT(result.unclear, IsEmpty());
    EXPECT_EQ(fileOf(here), stays);
    EXPECT_EQ(fileOf(gone), moved);
    EXPECT_EQ(fileOf(lost), "C:\\音楽\\lost.mp3");
    EXPECT_EQ(fileOf(nowhere), "");
}

TEST_F(Relocated, PrefersTheFileWhoseFoldersAgree) {
    const std::string first = make("music/One/track.mp3");
    make("music/two/track.mp3");
    const int known = add("D:/albums/one/track.mp3"), unclear = add("D:/albums/three/track.mp3");
    const Relocation result = relocateSongs(catalogue, folder.file("music"));
    EXPECT_EQ(fileOf(known), first);
    EXPECT_EQ(fileOf(unclear), "D:/albums/three/track.mp3");
    EXPECT_EQ(result.relocated, 1);
    EXPECT_THAT(result.unclear, ElementsAre("D:/albums/three/track.mp3"));
}

} // namespace
