#include <cstdlib>
#include <ctime>
#include <fstream>
#include <map>
#include <random>

#include <gmock/gmock.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "documents/encode_zip.h"
#include "documents/zip_entries.h"
#include "documents/zipfile.h"
#include "documents/zipfileheader.h"
#include "platform/files.h"
#include "platform/text.h"
#include "support/temporary_folder.h"
#include "support/zip_reader.h"

namespace {

namespace fs = std::filesystem;
using test_support::readArchive;
using test_support::ReadEntry;
using testing::ElementsAre;
using ZIPFileHeader::ZIPHeadEnc;

class Zip : public testing::Test {
protected:
    std::string work() const { return folder_.file("work"); }
    std::string archive() const { return folder_.file("out.odt"); }

    // The name is Shift-JIS, the folder is made.
    void put(const std::string& name, const std::string& content) {
        const fs::path path = platform::nativePath(work() + "/" + name);
        fs::create_directories(path.parent_path());
        std::ofstream(path, std::ios::binary) << content;
    }
    std::vector<ReadEntry> packed() {
        EXPECT_TRUE(encodeZip(work(), archive(), work()));
        return readArchive(platform::readFile(archive()).value_or(""));
    }
    static std::vector<std::string> names(const std::vector<ReadEntry>& entries) {
        std::vector<std::string> result;
        for (const ReadEntry& entry : entries)
            result.push_back(entry.name);
        return result;
    }

    test_support::TemporaryFolder folder_;
};

std::string noise(std::size_t size) {
    std::mt19937 random(1);
    std::string result;
    while (result.size() < size)
        result.push_back(static_cast<char>(random()));
    return result;
}

TEST_F(Zip, HoldsEveryFileInOrderOfTheNames) {
    const std::map<std::string, std::string> files = {
        {"META-INF/manifest.xml", std::string(3000, 'm')},
        {"Thumbnails/thumb.png", noise(70000)},
        {"content.xml", "<a>" + std::string(100000, ' ') + "</a>"},
        {"mimetype", "application/vnd.oasis.opendocument.text"},
        {"empty.txt", ""},
        {"表\\ソ/画像 能.txt", "ソ"}, // trail bytes that look like separators, and a separator
    };
    for (const auto& [name, content] : files)
        put(name, content);
    fs::create_directories(work() + "/Configurations2/images");

    const std::vector<ReadEntry> entries = packed();
    EXPECT_THAT(names(entries),
                ElementsAre("Configurations2/images/", "META-INF/manifest.xml", "Thumbnails/thumb.png",
                            "content.xml", "empty.txt", "mimetype", "表/ソ/画像 能.txt"));
    for (const ReadEntry& entry : entries) {
        if (entry.name.ends_with("/")) {
            EXPECT_EQ(entry.versionNeeded, 10);
            EXPECT_EQ(entry.method, 0);
            EXPECT_EQ(entry.content, "");
            continue;
        }
        const std::string name = entry.name.starts_with("表") ? "表\\ソ/画像 能.txt" : entry.name;
        EXPECT_TRUE(entry.content == files.at(name)) << entry.name;
        EXPECT_EQ(entry.versionNeeded, 20);
        const bool small = entry.name == "content.xml" || entry.name == "META-INF/manifest.xml";
        EXPECT_EQ(entry.method, small ? 8 : 0) << entry.name;
    }
}

TEST_F(Zip, IsTheSameHoweverThePathsAreWritten) {
    put("a/b.txt", "b");
    put("c.txt", "c");
    packed();
    const auto wanted = platform::readFile(archive());
    const std::string other = folder_.file("other.odt");
    for (const auto& [input, base] : std::vector<std::pair<std::string, std::string>>{
             {work() + "/", work()},
             {work() + "\\", work() + "/"},
             {folder_.path().string() + "\\work", work()},
             {folder_.path().string() + "/a/../work", folder_.path().string() + "\\work\\"}}) {
        ASSERT_TRUE(encodeZip(input, other, base)) << input;
        EXPECT_EQ(platform::readFile(other), wanted) << input << " " << base;
    }
    ASSERT_TRUE(encodeZip(work(), other, folder_.path().string()));
    EXPECT_THAT(names(readArchive(*platform::readFile(other))), ElementsAre("work/a/b.txt", "work/c.txt"));
    ASSERT_TRUE(encodeZip(work() + "/c.txt", other, work()));
    EXPECT_THAT(names(readArchive(*platform::readFile(other))), ElementsAre("c.txt"));
}

TEST_F(Zip, TellsLocalTimesInWholePairsOfSeconds) {
    setenv("TZ", "Asia/Tokyo", 1);
    tzset();
    put("a.txt", "a");
    put("old.txt", "b");
    const auto setTime = [&](const char* name, std::time_t seconds) {
        const timespec times[2] = {{seconds, 0}, {seconds, 999999999}};
        ASSERT_EQ(utimensat(AT_FDCWD, (work() + "/" + name).c_str(), times, 0), 0);
    };
    setTime("a.txt", 1767225599); // 2026-01-01 08:59:59 in Tokyo
    setTime("old.txt", 0);        // 1970-01-01 09:00:00
    const auto entries = packed();
    EXPECT_EQ(entries[0].dosDateTime, 46u << 25 | 1 << 21 | 1 << 16 | 8 << 11 | 59 << 5 | 29);
    EXPECT_EQ(entries[1].dosDateTime, 0u << 25 | 1 << 21 | 1 << 16 | 9 << 11);
    unsetenv("TZ");
    tzset();
}

TEST_F(Zip, LeavesOutItselfAndWhatIsNoFile) {
    put("a.txt", "a");
    ASSERT_EQ(symlink(".", (work() + "/loop").c_str()), 0);
    ASSERT_EQ(symlink("a.txt", (work() + "/link.txt").c_str()), 0);
    ASSERT_EQ(symlink("nowhere", (work() + "/broken").c_str()), 0);
    ASSERT_EQ(mkfifo((work() + "/pipe").c_str(), 0600), 0);
    const std::string inside = work() + "/self.odt";
    for (int round = 0; round < 2; ++round) {
        ASSERT_TRUE(encodeZip(work(), inside, work()));
        EXPECT_THAT(names(readArchive(*platform::readFile(inside))), ElementsAre("a.txt", "link.txt"));
    }
}

// Their names have no place in the archive, which does not make their folder an empty one.
TEST_F(Zip, LeavesOutNamesBeyondTheCodePage) {
    put("a.txt", "a");
    const fs::path folder = fs::path(work()) / "only";
    fs::create_directories(folder / "\xF0\x9F\x8E\xB5");
    std::ofstream(folder / "\xE2\x99\xAB.txt") << "b";
    EXPECT_THAT(names(packed()), ElementsAre("a.txt"));
}

TEST_F(Zip, KeepsTheEarlierArchiveWhenItCannotWrite) {
    put("a.txt", "a");
    // A folder in the way, and a folder that is not there.
    fs::create_directories(archive() + "/x");
    for (const std::string& output : {archive(), folder_.file("no/out.odt")}) {
        testing::internal::CaptureStdout();
        EXPECT_FALSE(encodeZip(work(), output, work()));
        EXPECT_EQ(testing::internal::GetCapturedStdout(), "program error.\nencode: file is not open.\n");
    }
    EXPECT_TRUE(fs::is_directory(archive() + "/x"));
    EXPECT_FALSE(fs::exists(folder_.file("no")));
}

TEST_F(Zip, WritesNothingWhenThereIsNothing) {
    std::ofstream(archive()) << "earlier";
    EXPECT_FALSE(encodeZip(work(), archive(), work())); // not there
    fs::create_directories(work());
    EXPECT_FALSE(encodeZip(work(), archive(), work())); // empty
    EXPECT_EQ(platform::readFile(archive()), "earlier");
}

// A file that changes between being listed and being read: it has grown, has become shorter, has gone.
struct ChangingFile : std::ifstream {
    ChangingFile(const fs::path& path, std::ios::openmode mode) {
        if (path.filename() == "gone")
            fs::remove(path);
        else
            std::ofstream(path) << (path.filename() == "longer" ? std::string(5000, 'l') : "s");
        open(path, mode);
    }
};

TEST_F(Zip, IsSoundWhenFilesChangeMeanwhile) {
    for (const char* name : {"gone", "longer", "shorter"})
        put(name, "as it was listed");
    auto entries = ZIPFile::collectEntries(work(), archive());
    for (auto& entry : entries)
        entry.basePath = work();
    ASSERT_TRUE(ZIPFile::ZIPFileEnc<ChangingFile>().encode(entries, archive()));
    const auto read = readArchive(*platform::readFile(archive()));
    EXPECT_THAT(names(read), ElementsAre("longer", "shorter"));
    EXPECT_EQ(read[0].content, std::string(5000, 'l'));
    EXPECT_EQ(read[1].content, "s");
}

// A file that is there and cannot be opened, whoever runs this.
struct LockedFile : std::ifstream {
    LockedFile(const fs::path&, std::ios::openmode) { setstate(std::ios::failbit); }
};
// One that breaks off.
struct BadFile : std::ifstream {
    BadFile(const fs::path&, std::ios::openmode mode) { open("/proc/self/mem", mode); }
};
struct HugeFile : std::ifstream {
    HugeFile(const fs::path&, std::ios::openmode) { throw std::bad_alloc(); }
};
struct EndlessFile : std::ifstream {
    EndlessFile(const fs::path&, std::ios::openmode) { throw std::length_error("too long"); }
};

TEST_F(Zip, IsNotMadeWithoutAFileThatIsThere) {
    put("a.txt", "a");
    std::ofstream(archive()) << "earlier";
    const auto entries = ZIPFile::collectEntries(work(), archive());
    const auto thrown = [&](auto encoder) -> std::string {
        try {
            encoder.encode(entries, archive());
        } catch (const char* message) {
            return message;
        }
        return "";
    };
    EXPECT_EQ(thrown(ZIPFile::ZIPFileEnc<LockedFile>()), "encode: file is not open.");
    EXPECT_EQ(thrown(ZIPFile::ZIPFileEnc<BadFile>()), "encode: file is not open.");
    EXPECT_EQ(thrown(ZIPFile::ZIPFileEnc<HugeFile>()), "encode: archive is too large.");
    EXPECT_EQ(thrown(ZIPFile::ZIPFileEnc<EndlessFile>()), "encode: archive is too large.");
    EXPECT_EQ(platform::readFile(archive()), "earlier");
}

TEST_F(Zip, LeavesOutWhatAKilledProgramLeftBehind) {
    for (const char* name : {"content.xml", "content.xml.aB3dE9", "content.xml.backups", "other.aB3dE9"})
        put(name, "x");
    EXPECT_THAT(names(packed()), ElementsAre("content.xml", "content.xml.backups", "other.aB3dE9"));
}

TEST_F(Zip, RefusesWhatTheFormatCannotTell) {
    const auto thrown = [](auto call) -> std::string {
        try {
            call();
        } catch (const char* message) {
            return message;
        }
        return "";
    };
    std::vector<unsigned char> bytes;
    ZIPHeadEnc::ZipHeader header;
    header.compressedSize = header.uncompressedSize = 0;
    EXPECT_EQ(thrown([&] { ZIPHeadEnc::centralHeader(header, 0, bytes); }), "program error.");
    EXPECT_EQ(thrown([&] { ZIPHeadEnc::localHeader(header, bytes); }), "");
    header.signature = ZIPHeadEnc::centralSignature;
    EXPECT_EQ(thrown([&] { ZIPHeadEnc::localHeader(header, bytes); }), "program error.");
    EXPECT_EQ(thrown([&] { ZIPHeadEnc::centralHeader(header, 0xFFFFFFFF, bytes); }), "");
    const std::string large = "encode: archive is too large.";
    EXPECT_EQ(thrown([&] { ZIPHeadEnc::centralHeader(header, 0x100000000, bytes); }), large);
    EXPECT_EQ(thrown([&] { ZIPHeadEnc::endRecord(65535, 0, 0, bytes); }), "");
    EXPECT_EQ(thrown([&] { ZIPHeadEnc::endRecord(65536, 0, 0, bytes); }), large);
    header.name.assign(65536, 'n');
    EXPECT_EQ(thrown([&] { ZIPHeadEnc::centralHeader(header, 0, bytes); }), large);

    put("a.txt", "a");
    auto entries = ZIPFile::collectEntries(work(), archive());
    entries[0].uncompressedSize = 0x100000000;
    EXPECT_EQ(thrown([&] { ZIPFile::ZIPFileEnc<std::ifstream>().encode(entries, archive()); }), large);
    EXPECT_FALSE(fs::exists(archive()));
}

// Tools of other makers, where they are installed.
TEST_F(Zip, OpensInOtherTools) {
    put("content.xml", std::string(200000, 'x') + noise(100000));
    put("mimetype", "application/vnd.oasis.opendocument.text");
    put("Pictures/a.png", noise(1000));
    fs::create_directories(work() + "/empty");
    packed();
    const char* const commands[] = {"unzip -tqq '%s' > /dev/null",
                                    "python3 -c 'import sys, zipfile; "
                                    "sys.exit(zipfile.ZipFile(sys.argv[1]).testzip() is not None)' '%s'"};
    int ran = 0;
    for (std::string command : commands) {
        if (std::system(("command -v " + command.substr(0, command.find(' ')) + " > /dev/null").c_str()) != 0)
            continue;
        command.replace(command.find("%s"), 2, archive());
        EXPECT_EQ(std::system(command.c_str()), 0) << command;
        ++ran;
    }
    if (ran == 0) GTEST_SKIP() << "neither unzip nor python3 is installed";
}

} // namespace
