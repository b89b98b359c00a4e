#include "platform/files.h"

#include <fstream>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/shell.h"
#include "platform/text.h"
#include "support/full_disk.h"
#include "support/temporary_folder.h"

namespace {

using test_support::TemporaryFolder;

TEST(Files, ReplaceWholeOrNotAtAll) {
    const TemporaryFolder folder;
    const std::string file = folder.file("表 ポ.xml");
    EXPECT_FALSE(platform::readFile(file));
    ASSERT_TRUE(platform::replaceFile(file, "old"));
    ASSERT_EQ(::chmod(platform::nativePath(file).c_str(), 0640), 0);
    const std::string bytes("new\0\r\n\x95\x5C", 8);
    ASSERT_TRUE(platform::replaceFile(file, bytes));
    EXPECT_EQ(platform::readFile(file), bytes);
    struct stat status {};
    ASSERT_EQ(::stat(platform::nativePath(file).c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0640u) << "who may read it stays as it was";

    EXPECT_FALSE(test_support::onFullDisk(
        1000, [&] { return platform::replaceFile(file, std::string(100000, 'x')); }));
    EXPECT_EQ(platform::readFile(file), bytes);
    EXPECT_EQ(platform::listFolder(folder.path().string()).size(), 1u) << "no half-written neighbour stays";

    EXPECT_FALSE(platform::replaceFile(folder.file("none/x"), "x")) << "no such folder";
    EXPECT_FALSE(platform::replaceFile(folder.path().string(), "x")) << "a folder";
    EXPECT_FALSE(platform::replaceFile("", "x"));
}

// By the mode, so that it holds for the superuser too.
TEST(Files, AreNotReplacedWhileWriteProtected) {
    const TemporaryFolder folder;
    const std::string file = folder.file("Config.xml");
    ASSERT_TRUE(platform::replaceFile(file, "old"));
    std::filesystem::create_symlink("Config.xml", folder.path() / "link.xml");
    ASSERT_EQ(::chmod(file.c_str(), 0444), 0);
    EXPECT_FALSE(platform::replaceFile(file, "new"));
    EXPECT_FALSE(platform::replaceFile(folder.file("link.xml"), "new"));
    EXPECT_EQ(platform::readFile(file), "old");
    EXPECT_EQ(platform::listFolder(folder.path().string()).size(), 2u);
    ASSERT_EQ(::chmod(file.c_str(), 0644), 0);
    EXPECT_TRUE(platform::replaceFile(file, "new"));
}

TEST(Files, KeepLinks) {
    const TemporaryFolder folder;
    ASSERT_TRUE(platform::replaceFile(folder.file("real.xml"), "old"));
    std::filesystem::create_symlink("real.xml", folder.path() / "link.xml");
    ASSERT_TRUE(platform::replaceFile(folder.file("link.xml"), "new"));
    EXPECT_TRUE(std::filesystem::is_symlink(folder.path() / "link.xml"));
    EXPECT_EQ(platform::readFile(folder.file("real.xml")), "new");
}

TEST(Files, AreFoundWithoutRegardToCase) {
    const TemporaryFolder folder;
    std::filesystem::create_directories(folder.path() / "Music");
    ASSERT_TRUE(platform::replaceFile(folder.file("Music/Ｓong.MP3"), "x"));
    for (const char* name :
         {"\\music\\ｓONG.mp3", "/MUSIC/Ｓong.mp3", "/Music/./Ｓong.MP3", "//Music//Ｓong.MP3"})
        EXPECT_TRUE(platform::pathExists(folder.path().string() + name)) << name;
    EXPECT_TRUE(platform::pathExists(folder.file("MUSIC")));
    EXPECT_FALSE(platform::pathExists(folder.file("music/other.mp3")));
    EXPECT_FALSE(platform::pathExists(""));
    // A new file lands in the folder that is there.
    ASSERT_TRUE(platform::replaceFile(folder.file("MUSIC/new.mp3"), "y"));
    EXPECT_EQ(platform::listFolder(folder.file("music")).size(), 2u);
}

TEST(Files, AreFoundInAFolderThatChangedSinceTheLastQuestion) {
    const TemporaryFolder folder;
    namespace fs = std::filesystem;
    const auto longAgo = fs::file_time_type::clock::now() - std::chrono::hours(1);
    fs::last_write_time(folder.path(), longAgo); // nobody doubts what is read of it now
    EXPECT_FALSE(platform::pathExists(folder.file("SONG.MP3")));
    EXPECT_FALSE(platform::pathExists(folder.file("other.mp3")));
    std::ofstream(folder.path() / "Song.mp3") << "x";
    EXPECT_TRUE(platform::pathExists(folder.file("SONG.MP3")));
    std::ofstream(folder.path() / "Other.mp3") << "x";
    fs::last_write_time(folder.path(), longAgo);
    EXPECT_TRUE(platform::pathExists(folder.file("other.mp3")));
    fs::remove(folder.path() / "Other.mp3");
    EXPECT_FALSE(platform::pathExists(folder.file("other.mp3")));
}

TEST(Files, CountFromTheProgramsFolder) {
    const std::string program = platform::moduleFileName();
    const std::string above = program.substr(0, program.rfind('/', program.rfind('/') - 1));
    EXPECT_EQ(platform::fullPath("../cnf/Config.xml"), above + "/cnf/Config.xml");
    EXPECT_EQ(platform::fullPath("..\\cnf\\表\\..\\Config.xml"), above + "/cnf/Config.xml");
    EXPECT_EQ(platform::fullPath("/a/../../b"), "/b");
    EXPECT_EQ(platform::fullPath(""), "");
    EXPECT_TRUE(platform::pathExists(program.substr(program.rfind('/') + 1)));
}

TEST(Files, ListByNameAndSkipWhatCannotBeNamed) {
    const TemporaryFolder folder;
    std::filesystem::create_directories(folder.path() / "B");
    std::ofstream(folder.path() / "a") << "123";
    std::ofstream(folder.path() / "C") << "x";
    std::ofstream(folder.path() / "c") << "x";
    std::ofstream(folder.path() / "\xE1\x84\x80") << "a letter outside the code page";
    std::ofstream(folder.path() / "\xFF") << "no UTF-8 at all";
    std::ofstream(folder.path() / platform::sjisToUtf8("①")) << "x";
    const auto entries = platform::listFolder(folder.path().string());
    std::vector<std::string> names;
    for (const auto& entry : entries)
        names.push_back(entry.name);
    ASSERT_EQ(names, (std::vector<std::string>{"a", "B", "C", "c", "①"}));
    EXPECT_EQ(entries[0].size, 3u);
    EXPECT_TRUE(entries[1].folder);
    EXPECT_TRUE(platform::listFolder(folder.file("none")).empty());
    EXPECT_FALSE(platform::programPath("\xE1\x84\x80"));
}

TEST(Files, FoldersAreMadeWithTheirParents) {
    const TemporaryFolder folder;
    EXPECT_TRUE(platform::makeFolder(folder.file("a/b")));
    EXPECT_TRUE(platform::makeFolder(folder.file("A\\B\\c")));
    EXPECT_TRUE(std::filesystem::is_directory(folder.path() / "a/b/c"));
    ASSERT_TRUE(platform::replaceFile(folder.file("file"), ""));
    EXPECT_FALSE(platform::makeFolder(folder.file("file/x")));
    EXPECT_FALSE(platform::readFile(folder.file("a"))) << "a folder has no bytes";
}

TEST(Files, WhatIsNoFileOrHasNoEndIsNotRead) {
    const TemporaryFolder folder;
    const std::string pipe = folder.file("pipe");
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    // With a writer at its other end a read would wait for bytes, not for the open.
    const int writer = ::open(pipe.c_str(), O_RDWR | O_NONBLOCK | O_CLOEXEC);
    ASSERT_GE(writer, 0);
    ASSERT_EQ(::write(writer, "x", 1), 1);
    for (const std::string& path : {pipe, std::string("/dev/zero"), folder.path().string(), std::string()}) {
        EXPECT_FALSE(platform::isFile(path)) << path;
        EXPECT_FALSE(platform::readFile(path)) << path;
    }
    ::close(writer);

    const std::string large = folder.file("large");
    ASSERT_TRUE(platform::replaceFile(large, "x"));
    std::filesystem::resize_file(large, platform::largestFile + 1); // takes no room on the disk
    EXPECT_TRUE(platform::isFile(large));
    EXPECT_FALSE(platform::readFile(large));
}

} // namespace
