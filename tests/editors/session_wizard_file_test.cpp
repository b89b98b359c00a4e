// What the session wizard reads and writes, and when it asks.

#include <filesystem>

#include "editors/wizard_desk.h"

namespace {

using namespace editors_tests;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

TEST_F(SessionWizard, StaysWithAFileThatCannotBeRead) {
    const std::string broken = folder.file("broken.xml");
    platform::replaceFile(broken, "<session>");
    run([&] {
        browse(broken, true);
        page().type(idName, "夏");
        expectBox(unreadable);
        next();
        EXPECT_EQ(title(), "はじめに(1/4)");
        cancel();
    });
    EXPECT_EQ(platform::readFile(broken), "<session>");
}

TEST_F(SessionWizard, MakesANewSessionStageByStage) {
    run([&] {
        begin(" 新しい ", "natsu"); // a file of the session folder
        add("一回戦", "2");
        next();
        fill(0);
        next();
        EXPECT_THAT(page().texts({idFolderName, idFileName}),
                    ElementsAre(folder.path().string(), "natsu.xml"));
        finish();
    });
    const SessionPlan plan = read(folder.file("natsu.xml"));
    EXPECT_EQ(plan.name, "新しい");
    ASSERT_EQ(plan.stages.size(), 1u);
    EXPECT_THAT(plan.stages[0].getResources(), testing::UnorderedElementsAre(1, 2));
}

TEST_F(SessionWizard, AsksBeforeAnotherFileTakesThePlaceOfChangedStages) {
    const std::string path = write("old.xml", {stage({.name = "A", .songs = "1"})});
    run([&] {
        begin("夏", folder.file("new.xml"));
        add("一回戦", "2");
        back();
        expectBox(loseStages, no);
        begin("夏", path);
        EXPECT_EQ(title(), "はじめに(1/4)");
        begin("夏", folder.file("new.xml"));
        EXPECT_THAT(names(), ElementsAre("一回戦"));
        back();
        expectBox(loseStages, yes);
        begin("夏", path);
        EXPECT_THAT(names(), ElementsAre("A"));
        cancel();
    });
}

TEST_F(SessionWizard, ReplacesAFileThatSomebodyElseWroteOnlyWhenTheHostSaysSo) {
    const std::string old = write("old.xml", {stage({.name = "A", .songs = "1"})});
    for (const std::string& path : {old, folder.file("new.xml")}) {
        run([&] {
            begin("夏", path);
            if (path != old) add("B", "1");
            next();
            fill(0);
            write(path.substr(path.rfind('/') + 1), {stage({.name = "他人"})});
            const auto theirs = platform::readFile(path);
            script.expectDialog(message_box::form, [&](Form box) {
                EXPECT_EQ(title(), "完了(4/4)") << "the page that the box speaks of is up";
                EXPECT_EQ(box.text(message_box::idCode), "C" + std::to_string(replaceFile));
                box.click(message_box::idAnswer1 + 1);
            });
            next();
            EXPECT_EQ(title(), "完了(4/4)");
            EXPECT_EQ(offered(), "BFC");
            EXPECT_EQ(platform::readFile(path), theirs);
            expectBox(replaceFile, yes);
            finish();
        });
        ASSERT_EQ(read(path).stages.size(), 1u);
        EXPECT_EQ(read(path).stages[0].getName(), path == old ? "A" : "B");
    }
}

TEST_F(SessionWizard, WritesTheFileOnItsLastPageWhichOnlyCloses) {
    const DataSession a = stage({.name = "A", .songs = "1"}),
                      b = stage({.name = "B", .quests = 2, .songs = "2,1"});
    const std::string path = write("old.xml", {a, b});
    run([&] {
        begin("夏の大会", path);
        page().select(idStages, 1);
        page().click(idUp);
        next();
        EXPECT_EQ(read(path).stages[0].getName(), "A") << "nothing is written yet";
        next();
        EXPECT_EQ(title(), "完了(4/4)");
        EXPECT_THAT(page().texts({idOutcome, idFolderName, idFileName}),
                    ElementsAre(HasSubstr("作成しました"), folder.path().string(), "old.xml"));
        EXPECT_EQ(offered(), "F");
        dialog.key("Escape");
        dialog.close();
        EXPECT_THAT(dialog.cut(), IsEmpty());
        finish();
    });
    const SessionPlan plan = read(path);
    EXPECT_EQ(plan.name, "夏の大会");
    EXPECT_EQ(plan.sessionVoice + plan.mcVoice, "s.wavm.wav");
    EXPECT_EQ(plan.total, 3);
    EXPECT_EQ(plan.maxPart, 2);
    ASSERT_EQ(plan.stages.size(), 2u);
    EXPECT_EQ(plan.stages[0].toString(","), b.toString(","));
    EXPECT_EQ(plan.stages[1].toString(","), a.toString(","));
    ASSERT_TRUE(accesser.open(path));
    EXPECT_EQ(accesser.getDay(), record::toText(platform::getLocalTime()));
}

TEST_F(SessionWizard, KeepsEverythingWhenTheDiskRefuses) {
    // There is room for the file's name, but not for that of the neighbour it would be written as.
    const std::string path = folder.file(std::string(250, 'n') + ".xml");
    std::filesystem::rename(write("old.xml", {stage({.name = "A", .songs = "1"})}), path);
    const auto before = platform::readFile(path);
    run([&] {
        begin("夏", path);
        next();
        expectBox(notWritten);
        next();
        EXPECT_EQ(title(), "完了(4/4)") << "shown all the same";
        EXPECT_THAT(page().text(idOutcome), HasSubstr("保存できませんでした"));
        EXPECT_EQ(offered(), "BFC");
        expectBox(notWritten);
        finish();
        EXPECT_EQ(platform::readFile(path), before);
        back();
        back();
        EXPECT_THAT(names(), ElementsAre("A"));
        back();
        begin("夏", folder.file("other.xml"));
        next();
        next();
        EXPECT_EQ(offered(), "F");
        finish();
    });
    EXPECT_EQ(platform::readFile(path), before);
    EXPECT_EQ(platform::listFolder(folder.path().string()).size(), 4u) << "nothing is left lying about";
    EXPECT_EQ(read(folder.file("other.xml")).sessionVoice, "s.wav");
}

TEST_F(SessionWizard, ACancelOnAnyPageLeavesTheFile) {
    const std::string path = write("old.xml", {stage({.name = "A", .songs = "1"})});
    const auto before = platform::readFile(path);
    for (int pages = 1; pages <= 3; ++pages) {
        run([&] {
            if (pages > 1) begin("夏", path);
            if (pages > 2) next();
            cancel();
        });
        EXPECT_EQ(platform::readFile(path), before) << pages;
    }
}

} // namespace
