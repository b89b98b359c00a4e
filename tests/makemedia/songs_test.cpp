// The demonstration songs and quizzes as they stand in the tree.

#include "makemedia/catalogue.h"
#include "makemedia/id3v1.h"
#include "makemedia/sessions.h"
#include "makemedia/studio.h"
#include "platform/sound.h"
#include "short_song.h"
#include "support/temporary_folder.h"

#include <cmath>
#include <fstream>
#include <iterator>
#include <map>
#include <set>

#include <gst/gst.h>

using namespace makemedia;

namespace {

const std::vector<Song>& songs() {
    static const auto all = [] {
        std::string error;
        auto loaded = loadSongs(std::filesystem::path(MAKEMEDIA_SOURCES) / "scores", error);
        EXPECT_EQ(error, "");
        return loaded;
    }();
    return all;
}

std::string readFile(const std::string& path) {
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

} // namespace

TEST(Songs, BelongToEverybody) {
    ASSERT_GE(songs().size(), 20U);
    for (const auto& [score, arrangement, fileName, loudness] : songs()) {
        EXPECT_FALSE(score.title.empty() || score.artist.empty() || score.artistKana.empty()) << fileName;
        if (score.died)
            EXPECT_LE(*score.died, 1925) << fileName;
        else
            EXPECT_FALSE(score.origin.empty()) << fileName;
    }
}

TEST(Songs, HaveSpansThatAQuizCanPlay) {
    for (const auto& song : songs()) {
        const auto& [intro, chorus, answer] =
            std::tie(song.arrangement.intro, song.arrangement.chorus, song.arrangement.answer);
        SCOPED_TRACE(song.fileName);
        EXPECT_GE(song.arrangement.length, 30000);
        EXPECT_LE(song.arrangement.length, 75000);
        EXPECT_GE(intro.end, 3000);
        EXPECT_LT(intro.end, chorus.start);
        EXPECT_GE(chorus.end - chorus.start, 4000);
        EXPECT_LE(answer.start, chorus.start);
        EXPECT_GE(answer.end, chorus.end);
        EXPECT_TRUE(answer.end - answer.start >= 8000 && answer.end - answer.start <= 15000)
            << answer.end - answer.start;
        EXPECT_LT(answer.end, song.arrangement.length);
        // Positions are stored in tenths of a second, so bars are whole tenths too.
        EXPECT_EQ(std::lround(song.score.barTicks() * song.arrangement.secondsPerTick * 1e6) % 100000, 0);
    }
}

TEST(Songs, ComeInEveryFormat) {
    std::map<Encoding, int> count;
    for (const auto& song : songs())
        ++count[song.score.encoding];
    EXPECT_GE(count[Encoding::Mp3Constant] + count[Encoding::Mp3ConstantXing] + count[Encoding::Mp3Variable] +
                  count[Encoding::Mp3VariableXing],
              12);
    for (const auto encoding : {Encoding::Mp3Constant, Encoding::Mp3ConstantXing, Encoding::Mp3Variable,
                                Encoding::Mp3VariableXing, Encoding::Wma, Encoding::Wav, Encoding::Midi})
        EXPECT_GE(count[encoding], 2) << static_cast<int>(encoding);
}

TEST(Songs, AreFoundAsLongAsTheCatalogueSays) {
    gst_init(nullptr, nullptr);
    test_support::TemporaryFolder folder;
    const auto device = platform::makeGstreamerDevice(platform::SoundOutput::Clocked);
    for (const char* encoding :
         {"mp3-constant", "mp3-constant-xing", "mp3-variable", "mp3-variable-xing", "wma", "wav", "midi"}) {
        const std::map<std::string_view, std::string> extensions = {
            {"wma", ".wma"}, {"wav", ".wav"}, {"midi", ".mid"}};
        const auto known = extensions.find(encoding);
        const auto fileName = std::string(encoding) + (known == extensions.end() ? ".mp3" : known->second);
        Song song{short_song::score(encoding), short_song::arrangement(), fileName, {}};
        std::string error;
        ASSERT_TRUE(recordSong(song, folder.path(), error)) << error;
        const auto bytes = readFile(folder.file(fileName));
        if (fileName.ends_with("mp3")) {
            EXPECT_EQ(bytes.substr(0, 400).find("Xing") != std::string::npos ||
                          bytes.substr(0, 400).find("Info") != std::string::npos,
                      fileName.find("xing") != std::string::npos)
                << fileName;
            EXPECT_EQ(bytes.substr(bytes.size() - 128, 7), "TAGTest") << fileName;
        }
        ASSERT_TRUE(recordSong(song, folder.path(), error)) << error;
        EXPECT_EQ(bytes, readFile(folder.file(fileName))) << fileName << " differs from one run to the next";

        const auto player = device->createPlayer();
        ASSERT_TRUE(player->open(folder.file(fileName)));
        EXPECT_EQ(player->end() / 100, describe(song).getLength()) << fileName << ": " << player->end();
    }
}

TEST(Songs, CarryTagsThatHoldWholeCharacters) {
    auto score = short_song::score();
    // UTF-8, as scores are; in Shift-JIS the last character would be cut in two.
    const std::u8string title = u8"あいうえおかきくけこさしすせaそ";
    score.title.assign(title.begin(), title.end());
    const auto tag = id3v1Tag(score);
    ASSERT_EQ(tag.size(), 128U);
    EXPECT_EQ(tag.substr(31, 2), std::string("a\0", 2));
    EXPECT_EQ(tag.substr(93, 4), "1900");
    EXPECT_EQ(tag[127], 16); // Classic
}

TEST(Quizzes, HaveTheSongsThatTheirRulesNeed) {
    std::string error;
    const auto quizzes = planQuizzes(songs(), error);
    ASSERT_EQ(quizzes.size(), 2U) << error;
    std::set<int> ranges, handsTypes, speeds, songsAtOnce, steals;
    for (const auto& quiz : quizzes) {
        int quests = 0;
        for (const auto& stage : quiz.stages) {
            const auto& numbers = stage.getResources();
            EXPECT_EQ(static_cast<int>(numbers.size()), stage.getQuestNum() * stage.getMulti());
            DataSession fromText;
            fromText.setResourceId(stage.getResourceId());
            EXPECT_EQ(fromText.getResources(), numbers);
            for (const int number : numbers) {
                const auto entry = describe(songs()[static_cast<std::size_t>(number - 1)]);
                EXPECT_EQ(entry.getNo(), number);
                if (stage.getSpeed() != 0) {
                    EXPECT_EQ(entry.getFileType(), 0) << "only MP3 changes its speed";
                }
            }
            quests += stage.getQuestNum();
            ranges.insert(stage.getRange());
            handsTypes.insert(stage.getHandsType());
            speeds.insert(stage.getSpeed());
            songsAtOnce.insert(stage.getMulti());
            steals.insert(stage.getSteal());
        }
        EXPECT_EQ(quests, &quiz == &quizzes.front() ? 12 : 5);
    }
    EXPECT_TRUE(ranges.contains(0) && ranges.contains(1) && ranges.contains(2));
    EXPECT_EQ(handsTypes, (std::set{-1, 0, 1, 2}));
    EXPECT_EQ(speeds, (std::set{0, 1}));
    EXPECT_EQ(songsAtOnce, (std::set{1, 3}));
    EXPECT_EQ(steals, (std::set{-1, 0}));
}
