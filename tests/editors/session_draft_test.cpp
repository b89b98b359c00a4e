#include "editors/session_draft.h"

#include <filesystem>

#include <gmock/gmock.h>

#include "foundation/path.h"
#include "host/state/host_state.h"
#include "host/state/session_folder.h"
#include "platform/files.h"
#include "support/stage.h"
#include "support/temporary_folder.h"

namespace {

using test_support::stage;
using testing::ElementsAre;

class Draft : public testing::Test {
protected:
    // A session file with both voices.
    std::string existing(const std::string& name, const std::vector<DataSession>& stages) {
        const std::string path = folder.file(name);
        SessionPlan plan{.name = name, .sessionVoice = "s.wav", .mcVoice = "m.wav", .stages = stages};
        EXPECT_TRUE(writePlan(accesser, path, plan, {2020, 1, 0, 2, 0, 0, 0, 0}));
        return path;
    }
    std::vector<std::string> names() const {
        std::vector<std::string> found;
        for (const DataSession& each : draft.stages)
            found.push_back(each.getName());
        return found;
    }

    test_support::TemporaryFolder folder;
    AccesserSession accesser;
    SessionDraft draft;
};

TEST_F(Draft, IsOfferedTheFirstFreeFile) {
    const std::string root = folder.path().string();
    for (const int taken : {0, 1, 3})
        platform::replaceFile(folder.file("SessionFile_" + std::to_string(taken) + ".xml"), "x");
    EXPECT_EQ(firstFreeSessionFile(root), root + "\\SessionFile_2.xml");
    EXPECT_EQ(firstFreeSessionFile(root + "/"), root + "\\SessionFile_2.xml");
    EXPECT_EQ(firstFreeSessionFile(root + "/none\\"), root + "/none\\SessionFile_0.xml");
}

TEST_F(Draft, TakesTheStagesOfAFileOnce) {
    const std::string first =
        existing("first.xml", {stage({.name = "A", .quests = 2, .songs = "1,2"}), stage({.name = "B"})});
    const std::string second = existing("second.xml", {stage({.name = "C"})});
    ASSERT_TRUE(draft.choose("名", first, accesser));
    EXPECT_THAT(names(), ElementsAre("A", "B"));
    EXPECT_EQ(draft.sessionName, "名") << "what was typed, not what the file says";
    EXPECT_EQ(draft.total(), 3);

    draft.stages.erase(draft.stages.begin());
    ASSERT_TRUE(draft.choose("名", folder.file("./first.xml"), accesser));
    EXPECT_THAT(names(), ElementsAre("B")) << "the same file is not read again over the changes";
    ASSERT_TRUE(draft.choose("名", folder.file("new.xml"), accesser));
    EXPECT_THAT(names(), ElementsAre("B")) << "saved under another name";
    ASSERT_TRUE(draft.choose("名", second, accesser));
    EXPECT_THAT(names(), ElementsAre("C"));
}

TEST_F(Draft, TakesEveryStageOfAFileThatMiscounts) {
    const std::string path = folder.file("old.xml");
    platform::replaceFile(path,
                          "<session><maxPart>1</maxPart><part id='1'><name>A</name></part>"
                          "<part id='1'><name>B</name></part><part id='7'><name>C</name></part></session>");
    ASSERT_TRUE(draft.choose("名", path, accesser));
    EXPECT_THAT(names(), ElementsAre("A", "B", "C"));
    ASSERT_TRUE(draft.write(accesser, {}));
    EXPECT_EQ(readPlan(accesser, path).value_or(SessionPlan()).stages.size(), 3u);
}

TEST_F(Draft, KnowsItsFileUnderAnotherNameAndByALink) {
    const std::string path = existing("first.xml", {stage({.name = "A", .quests = 2})});
    std::filesystem::create_symlink(path, folder.file("soft.xml"));
    std::filesystem::create_hard_link(path, folder.file("hard.xml"));
    ASSERT_TRUE(draft.choose("名", path, accesser));
    draft.stages.push_back(stage({.name = "追加"}));
    for (const char* name : {"FIRST.xml", "./First.XML", "soft.xml", "hard.xml"}) {
        EXPECT_FALSE(draft.wouldLoseStages(folder.file(name))) << name;
        ASSERT_TRUE(draft.choose("名", folder.file(name), accesser));
        EXPECT_THAT(names(), ElementsAre("A", "追加")) << name;
    }
}

TEST_F(Draft, SaysWhenAnotherFileWouldTakeItsStages) {
    const std::string first =
        existing("first.xml", {stage({.name = "A", .quests = 2}), stage({.name = "B"})});
    const std::string second = existing("second.xml", {stage({.name = "C"})});
    EXPECT_FALSE(draft.wouldLoseStages(second)) << "nothing to lose";
    draft.stages = {stage({.name = "新"})};
    EXPECT_TRUE(draft.wouldLoseStages(second)) << "added to a new session";
    EXPECT_FALSE(draft.wouldLoseStages(folder.file("new.xml"))) << "they go along";
    ASSERT_TRUE(draft.choose("名", first, accesser));
    EXPECT_FALSE(draft.wouldLoseStages(second)) << "as the file has them";
    draft.move(0, 1);
    EXPECT_TRUE(draft.wouldLoseStages(second));
    draft.move(0, 1);
    draft.stages[0].setResources({7});
    EXPECT_TRUE(draft.wouldLoseStages(second)) << "other songs";
}

TEST_F(Draft, NoticesAFileThatSomebodyElseWrote) {
    const std::string path = existing("first.xml", {stage({.name = "A", .quests = 2})});
    const std::string fresh = folder.file("new.xml");
    ASSERT_TRUE(draft.choose("名", fresh, accesser));
    EXPECT_FALSE(draft.isChangedOnDisk());
    existing("new.xml", {stage({.name = "他人"})});
    EXPECT_TRUE(draft.isChangedOnDisk()) << "came after it was chosen";

    ASSERT_TRUE(draft.choose("名", path, accesser));
    EXPECT_FALSE(draft.isChangedOnDisk());
    existing("first.xml", {stage({.name = "他人"})});
    EXPECT_TRUE(draft.isChangedOnDisk());
    ASSERT_TRUE(draft.choose("名", path, accesser));
    EXPECT_TRUE(draft.isChangedOnDisk()) << "chosen again, but not read again";
    std::filesystem::remove(path);
    EXPECT_FALSE(draft.isChangedOnDisk()) << "nothing there to be lost";
    ASSERT_TRUE(draft.choose("名", fresh, accesser));
    EXPECT_FALSE(draft.isChangedOnDisk()) << "read when it was chosen";
}

TEST(TypedSessionFile, IsAFullPathOfASessionFile) {
    const struct {
        const char *typed, *path;
    } rows[] = {
        {"", ""},
        {" \t", ""},
        {" natsu ", "/s/natsu.xml"},
        {"夏", "/s/夏.xml"},
        {"sub\\第1.5回大会", "/s/sub/第1.5回大会.xml"},
        {"NATSU.XML", "/s/NATSU.XML"},
        {"/proc/self/status", "/proc/self/status"}, // a file that is there
        {"../natsu.xml", "/natsu.xml"},
        {"/other/./natsu", "/other/natsu.xml"},
        {"\\other\\natsu.xml", "/other/natsu.xml"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(typedSessionFile(row.typed, "/s"), row.path) << row.typed;
}

TEST(TypedSessionFile, IsInTheSessionFolderWhereItWasProposed) {
    resetHost();
    for (const char* folder : {"../cnf", "../cnf/quiz/", "/quiz"}) {
        host().dataApplication.setSessionFileName(folder);
        const std::string proposed = firstFreeSessionFile(sessionFolder());
        EXPECT_EQ(zelkova::getFolder(typedSessionFile(proposed, sessionFolder())),
                  zelkova::removeBackslash(zelkova::normalizePath(folder)));
    }
    resetHost();
}

TEST_F(Draft, IsLeftAsItWasByAFileThatCannotBeRead) {
    draft.stages = {stage({.name = "A"})};
    draft.filePath = "old";
    platform::replaceFile(folder.file("broken.xml"), "<session><part>");
    platform::replaceFile(folder.file("other.xml"), "<?xml version=\"1.0\"?><doc/>");
    for (const std::string& path :
         {folder.file("broken.xml"), folder.file("other.xml"), folder.path().string()}) {
        EXPECT_FALSE(draft.choose("名", path, accesser)) << path;
        EXPECT_NE(accesser.loadError(), "") << path;
    }
    EXPECT_THAT(names(), ElementsAre("A"));
    EXPECT_EQ(draft.filePath, "old");
    EXPECT_EQ(draft.sessionName, "");
}

TEST_F(Draft, StagesMoveInsideTheList) {
    draft.stages = {stage({.name = "A"}), stage({.name = "B"}), stage({.name = "C"})};
    EXPECT_FALSE(draft.move(0, -1));
    EXPECT_FALSE(draft.move(2, 1));
    EXPECT_FALSE(draft.move(-1, 1)) << "none is selected";
    EXPECT_THAT(names(), ElementsAre("A", "B", "C"));
    EXPECT_TRUE(draft.move(0, 1));
    EXPECT_TRUE(draft.move(2, -1));
    EXPECT_THAT(names(), ElementsAre("B", "C", "A"));
}

} // namespace
