// Lengths against files whose length is known, and heads that are no sound.
#include <gtest/gtest.h>

#include "platform/sound/file_kind.h"
#include "support/temporary_folder.h"
#include "support/test_sounds.h"

namespace {

using namespace platform::sound;
using namespace test_support;

struct Encoding {
    const char* name;
    const char* elements;
    FileKind kind;
};

const Encoding encodings[] = {
    {"constant rate with index", "lamemp3enc target=bitrate cbr=true bitrate=128 ! xingmux", FileKind::Mp3},
    {"constant rate", "lamemp3enc target=bitrate cbr=true bitrate=64", FileKind::Mp3},
    {"variable rate", "lamemp3enc target=quality quality=4", FileKind::Mp3},
    {"variable rate, 24 kHz", "audioresample ! audio/x-raw,rate=24000 ! lamemp3enc target=quality quality=4",
     FileKind::Mp3},
    {"variable rate behind a tag",
     "lamemp3enc target=quality quality=4 ! taginject tags=\"title=x\" ! id3v2mux", FileKind::Mp3},
    {"windows media", "avenc_wmav2 ! asfmux", FileKind::Wma},
};

TEST(SoundLength, IsRightToATenthOfASecondHoweverItIsEncoded) {
    const TemporaryFolder folder;
    // Silence first: whoever guesses from the first bit rate is wrong by far.
    const Samples song = noisyTones({0, 0, 0, 440, 550, 660, 770});
    for (const Encoding& encoding : encodings) {
        const auto path = folder.path() / "song";
        ASSERT_TRUE(encode(path, song, encoding.elements)) << encoding.name;
        FileWindow file(path);
        EXPECT_EQ(fileKind(file), encoding.kind) << encoding.name;
        EXPECT_NEAR(fileLength(file), 7000, 100) << encoding.name;
    }
    writeWav(folder.path() / "song.wav", song);
    FileWindow wav(folder.path() / "song.wav");
    EXPECT_EQ(fileLength(wav), 7000);
}

TEST(SoundLength, FollowsTheTemposOfAMidiFile) {
    const TemporaryFolder folder;
    const auto path = folder.path() / "song.mid";
    writeMidi(path, {60, 62, 64, 65}, 500'000, 750'000);
    FileWindow file(path);
    EXPECT_EQ(fileKind(file), FileKind::Midi);
    EXPECT_EQ(fileLength(file), 2 * 500 + 2 * 750);
}

TEST(SoundLength, SurvivesHeadersThatLie) {
    const TemporaryFolder folder;
    const auto path = folder.path() / "file";
    const std::string riff = std::string("RIFF\xFF\xFF\xFF\xFFWAVE", 12);
    const std::string format("fmt \x10\0\0\0\x01\0\x01\0\x40\x1F\0\0\x80\x3E\0\0\x02\0\x10\0", 24);
    const struct {
        const char* what;
        std::string bytes;
        FileKind kind;
        int length;
    } files[] = {
        {"empty", "", FileKind::None, 0},
        {"text", std::string(5000, 'a'), FileKind::None, 0},
        {"zeros", std::string(5000, '\0'), FileKind::None, 0},
        {"all bits", std::string(200'000, '\xFF'), FileKind::None, 0},
        {"a tag that claims more than the file", "ID3\x04" + std::string(2, '\0') + "\x7F\x7F\x7F\x7F",
         FileKind::None, 0},
        {"one frame's head and then text", "\xFF\xFB\x90\x04" + std::string(5000, 'a'), FileKind::None, 0},
        {"wave without chunks", riff, FileKind::Wav, 0},
        {"wave with a chunk of all bits", riff + "junk\xFF\xFF\xFF\xFF", FileKind::Wav, 0},
        {"wave cut off in the sound", riff + format + "data\xFF\xFF\xFF\xFF" + std::string(16'000, '\0'),
         FileKind::Wav, 1000},
        {"wave whose size was never filled in",
         riff + format + std::string("data\0\0\0\0", 8) + std::string(8'000, '\0'), FileKind::Wav, 500},
        {"wave of no bytes a second",
         riff + "fmt " + std::string("\x10\0\0\0", 4) + std::string(16, '\0') + "data1234xx", FileKind::Wav,
         0},
        {"midi of nothing", "MThd", FileKind::Midi, 0},
        {"midi without division", std::string("MThd\0\0\0\6\0\0\0\1\0\0MTrk\0\0\0\4\x60\xFF\x2F\0", 26),
         FileKind::Midi, 0},
        {"midi with a track that never ends",
         std::string("MThd\0\0\0\6\0\0\0\1\0\x60MTrk\xFF\xFF\xFF\xFF\x60\x90\x40", 25), FileKind::Midi, 500},
    };
    for (const auto& [what, bytes, kind, length] : files) {
        writeBytes(path, bytes);
        FileWindow file(path);
        EXPECT_EQ(fileKind(file), kind) << what;
        EXPECT_EQ(fileLength(file), length) << what;
    }
}

} // namespace
