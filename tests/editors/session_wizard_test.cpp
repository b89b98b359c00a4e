#include "editors/session_wizard.h"

#include <filesystem>
#include <fstream>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "data/labels.h"
#include "data/session_plan.h"
#include "host/state/host_state.h"
#include "platform/clock.h"
#include "platform/controls.h"
#include "platform/driver.h"
#include "platform/files.h"
#include "platform/listview.h"
#include "platform/property_sheet.h"
#include "platform/window.h"
#include "support/temporary_folder.h"

namespace {

namespace driver = platform::driver;
using platform::Control;
using platform::WindowHandle;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr char sheetName[] = "IDD_KDL0401_SESSION", stageDialog[] = "IDD_KDL0405_PARTDETAIL",
               songDialog[] = "IDD_KDL0406_RESOURCEDETAIL", boxName[] = "IDD_KDL0001_MESSAGE_BOX";

enum : int {
    idFile = 4103,
    idBrowse = 4104,
    idName = 4105,
    idStages = 4201,
    idAdd = 4202,
    idEdit = 4203,
    idDelete = 4204,
    idUp = 4206,
    idDown = 4207,
    idTotal = 4208,
    idSongs = 4301,
    idAssign = 4302,
    idOutcome = 4401,
    idFolderName = 4402,
    idFileName = 4403,

    idStageName = 4502,
    idQuestNum = 4504,
    idRange = 4505,
    idScore = 4508,
    idStageOk = 4522,
    idStageCancel = 4523,

    idSongsOk = 4604,
    idSongsCancel = 4605,
    idShowAll = 4608,
    idFill = 4609,
    idClearAll = 4611,
};

enum : int { ok = 111, yes = 111, no = 112 }; // of the message box
enum : int { nameColumn = 1, markColumn = 10 };

DataSession stageOf(const std::string& name, int questNum, const std::string& songs = {}) {
    DataSession stage;
    stage.setName(name);
    stage.setQuestNum(questNum);
    stage.setRange(rangeStart);
    stage.setInterval(4);
    stage.setSpeed(0);
    stage.setMulti(1);
    stage.setScore(10);
    stage.setLimit(3);
    stage.setResourceId(songs);
    return stage;
}

// Two songs stand in the catalogue, and the settings name the folder as that of the session files.
class SessionWizard : public testing::Test {
protected:
    SessionWizard() {
        resetHost();
        host().dataApplication.setSessionFileName(folder.path().string());
        host().accesserResource.open(folder.file("ResourceData.dat"));
        for (const char* title : {"荒城の月", "花"}) {
            DataResource song;
            song.setTitle(title);
            song.setFileName(folder.file("song.mp3"));
            song.setFileType(fileTypeMp3);
            host().accesserResource.add(song);
        }
        std::ofstream(folder.file("song.mp3")) << "x";
    }
    ~SessionWizard() override { resetHost(); }

    void run(const std::function<void(WindowHandle)>& act) {
        script.expectDialog(sheetName, act);
        dlgSessionWizard({});
        EXPECT_THAT(script.faults(), IsEmpty());
    }
    std::string write(const std::string& name, const std::vector<DataSession>& stages) {
        const std::string path = folder.file(name);
        EXPECT_TRUE(writePlan(accesser, path,
                              {.name = "古い", .sessionVoice = "s.wav", .mcVoice = "m.wav", .stages = stages},
                              {2020, 1, 0, 2, 0, 0, 0, 0}));
        return path;
    }
    SessionPlan read(const std::string& path) {
        auto plan = readPlan(accesser, path);
        EXPECT_TRUE(plan) << accesser.loadError();
        return plan.value_or(SessionPlan());
    }

    static Control at(WindowHandle sheet, int id) { return {platform::shownPage(sheet), id}; }
    static std::string title(WindowHandle sheet) { return platform::getText(platform::shownPage(sheet)); }
    static bool next(WindowHandle sheet) { return driver::click({sheet, platform::ID_WIZNEXT}); }
    static bool back(WindowHandle sheet) { return driver::click({sheet, platform::ID_WIZBACK}); }
    static bool finish(WindowHandle sheet) { return driver::click({sheet, platform::ID_WIZFINISH}); }
    static bool cancel(WindowHandle sheet) { return driver::click({sheet, platform::IDCANCEL}); }
    // What the wizard's buttons offer, as letters.
    static std::string offered(WindowHandle sheet) {
        std::string letters;
        for (const auto& [letter, id] :
             {std::pair('B', +platform::ID_WIZBACK), std::pair('N', +platform::ID_WIZNEXT),
              std::pair('F', +platform::ID_WIZFINISH), std::pair('C', +platform::IDCANCEL)})
            if (platform::isEnabled({sheet, id}) && platform::isVisible({sheet, id})) letters += letter;
        return letters;
    }
    static std::vector<std::string> column(const Control& list, int column) {
        std::vector<std::string> cells;
        for (int row = 0; row < platform::listRowCount(list); ++row)
            cells.push_back(platform::listCell(list, row, column).value_or("?"));
        return cells;
    }
    static void begin(WindowHandle sheet, const std::string& name, const std::string& path) {
        driver::type(at(sheet, idName), name);
        platform::setText(at(sheet, idFile), path);
        EXPECT_TRUE(next(sheet));
    }
    void expectMessage(int code, int answer = ok) {
        script.expectDialog(boxName, [code, answer](WindowHandle box) {
            EXPECT_EQ(platform::getText({box, 102}), "C" + std::to_string(code));
            EXPECT_TRUE(driver::click({box, answer}));
        });
    }
    void expectStage(const std::string& name, const std::string& questNum) {
        script.expectDialog(stageDialog, [=](WindowHandle dialog) {
            driver::type({dialog, idStageName}, name);
            driver::type({dialog, idQuestNum}, questNum);
            driver::type({dialog, idScore}, "10");
            driver::select({dialog, idRange}, rangeStart);
            EXPECT_TRUE(driver::click({dialog, idStageOk}));
        });
    }
    // On page 3: these buttons of the song dialog, for the stage in that row.
    void assign(WindowHandle sheet, int row, const std::vector<int>& buttons) {
        script.expectDialog(songDialog, [buttons](WindowHandle dialog) {
            for (const int id : buttons)
                EXPECT_TRUE(driver::click({dialog, id})) << id;
        });
        driver::select(at(sheet, idSongs), row);
        EXPECT_TRUE(driver::click(at(sheet, idAssign)));
    }

    test_support::TemporaryFolder folder;
    AccesserSession accesser;
    driver::Script script;
};

TEST_F(SessionWizard, GoesOnFromItsFirstPageWithNameAndFile) {
    write("SessionFile_0.xml", {});
    run([this](WindowHandle sheet) {
        EXPECT_EQ(platform::getText(sheet), "出題ファイルの作成");
        EXPECT_EQ(title(sheet), "はじめに(1/4)");
        EXPECT_EQ(platform::getText(at(sheet, idFile)), folder.path().string() + "\\SessionFile_1.xml");
        EXPECT_EQ(offered(sheet), "C");
        driver::type(at(sheet, idName), "夏");
        EXPECT_EQ(offered(sheet), "NC");
        driver::type(at(sheet, idFile), "");
        EXPECT_EQ(offered(sheet), "C");
        script.expectFileDialog("");
        driver::click(at(sheet, idBrowse));
        EXPECT_EQ(offered(sheet), "C");
        script.expectFileDialog(folder.file("new"));
        driver::click(at(sheet, idBrowse));
        EXPECT_EQ(platform::getText(at(sheet, idFile)), folder.file("new.xml"));
        EXPECT_EQ(platform::getText(at(sheet, idName)), "夏");
        script.expectFileDialog(folder.file("SessionFile_0.xml")).expectMessageBox(platform::Answer::Yes);
        driver::click(at(sheet, idBrowse));
        EXPECT_EQ(platform::getText(at(sheet, idName)), "古い") << "the name of the session in the file";
        EXPECT_EQ(offered(sheet), "NC");
        EXPECT_TRUE(next(sheet));
        EXPECT_EQ(title(sheet), "パート情報(2/4)");
        EXPECT_TRUE(back(sheet));
        EXPECT_EQ(offered(sheet), "NC") << "asked again when it is shown";
        cancel(sheet);
    });
}

TEST_F(SessionWizard, StaysWithAFileThatCannotBeRead) {
    const std::string broken = folder.file("broken.xml");
    platform::replaceFile(broken, "<session>");
    run([&](WindowHandle sheet) {
        script.expectFileDialog(broken).expectMessageBox(platform::Answer::Yes);
        driver::click(at(sheet, idBrowse));
        driver::type(at(sheet, idName), "夏");
        expectMessage(3000012);
        EXPECT_TRUE(next(sheet));
        EXPECT_EQ(title(sheet), "はじめに(1/4)");
        cancel(sheet);
    });
    EXPECT_EQ(platform::readFile(broken), "<session>");
}

TEST_F(SessionWizard, TakesWhatIsTypedForAFileOfTheSessionFolder) {
    run([this](WindowHandle sheet) {
        driver::type(at(sheet, idName), " ");
        EXPECT_EQ(offered(sheet), "C") << "blanks are no name";
        driver::type(at(sheet, idName), " 夏 ");
        driver::type(at(sheet, idFile), "  ");
        EXPECT_EQ(offered(sheet), "C");
        driver::type(at(sheet, idFile), "natsu");
        next(sheet);
        expectStage("一回戦", "2");
        driver::click(at(sheet, idAdd));
        next(sheet);
        assign(sheet, 0, {idShowAll, idFill, idSongsOk});
        next(sheet);
        EXPECT_EQ(platform::getText(at(sheet, idFolderName)), folder.path().string());
        EXPECT_EQ(platform::getText(at(sheet, idFileName)), "natsu.xml");
        finish(sheet);
    });
    EXPECT_EQ(read(folder.file("natsu.xml")).name, "夏");
}

TEST_F(SessionWizard, BrowsingToASessionWithoutANameKeepsTheTypedOne) {
    const std::string path = folder.file("old.xml");
    platform::replaceFile(path, "<session><sessionName> </sessionName></session>");
    run([&](WindowHandle sheet) {
        driver::type(at(sheet, idName), "夏");
        script.expectFileDialog(path).expectMessageBox(platform::Answer::Yes);
        driver::click(at(sheet, idBrowse));
        EXPECT_EQ(platform::getText(at(sheet, idName)), "夏");
        cancel(sheet);
    });
}

TEST_F(SessionWizard, AsksBeforeAnotherFileTakesThePlaceOfChangedStages) {
    const std::string path = write("old.xml", {stageOf("A", 1, "1")});
    run([&](WindowHandle sheet) {
        begin(sheet, "夏", folder.file("new.xml"));
        expectStage("一回戦", "2");
        driver::click(at(sheet, idAdd));
        back(sheet);
        expectMessage(3000015, no);
        begin(sheet, "夏", path);
        EXPECT_EQ(title(sheet), "はじめに(1/4)");
        begin(sheet, "夏", folder.file("new.xml"));
        EXPECT_THAT(column(at(sheet, idStages), nameColumn), ElementsAre("一回戦"));
        back(sheet);
        expectMessage(3000015, yes);
        begin(sheet, "夏", path);
        EXPECT_THAT(column(at(sheet, idStages), nameColumn), ElementsAre("A"));
        cancel(sheet);
    });
}

TEST_F(SessionWizard, ReplacesAFileThatSomebodyElseWroteOnlyWhenTheHostSaysSo) {
    const std::string old = write("old.xml", {stageOf("A", 1, "1")});
    for (const std::string& path : {old, folder.file("new.xml")}) {
        run([&](WindowHandle sheet) {
            begin(sheet, "夏", path);
            if (path != old) {
                expectStage("B", "1");
                driver::click(at(sheet, idAdd));
            }
            next(sheet);
            assign(sheet, 0, {idShowAll, idFill, idSongsOk});
            write(path.substr(path.rfind('/') + 1), {stageOf("他人", 1)});
            const auto theirs = platform::readFile(path);
            script.expectDialog(boxName, [&](WindowHandle box) {
                EXPECT_EQ(title(sheet), "完了(4/4)") << "the page that the box speaks of is up";
                EXPECT_EQ(platform::getText({box, 102}), "C3000014");
                EXPECT_TRUE(driver::click({box, no}));
            });
            next(sheet);
            EXPECT_EQ(title(sheet), "完了(4/4)");
            EXPECT_EQ(offered(sheet), "BFC");
            EXPECT_EQ(platform::readFile(path), theirs);
            expectMessage(3000014, yes);
            finish(sheet);
        });
        ASSERT_EQ(read(path).stages.size(), 1u);
        EXPECT_EQ(read(path).stages[0].getName(), path == old ? "A" : "B");
    }
}

TEST_F(SessionWizard, CountsItsStagesAndOffersWhatIsPossible) {
    run([this](WindowHandle sheet) {
        begin(sheet, "夏", folder.file("new.xml"));
        const Control list = at(sheet, idStages);
        const auto live = [&] {
            std::vector<int> ids;
            for (const int id : {idAdd, idEdit, idDelete, idUp, idDown})
                if (platform::isEnabled(at(sheet, id))) ids.push_back(id);
            return ids;
        };
        EXPECT_EQ(platform::getText(at(sheet, idTotal)), "総出題数：0");
        EXPECT_EQ(offered(sheet), "BC");
        EXPECT_THAT(live(), ElementsAre(idAdd));
        script.expectDialog(stageDialog, [](WindowHandle dialog) {
            driver::type({dialog, idStageName}, "取消");
            driver::click({dialog, idStageCancel});
        });
        driver::click(at(sheet, idAdd));
        EXPECT_EQ(platform::listRowCount(list), 0);

        expectStage("一回戦", "3");
        driver::click(at(sheet, idAdd));
        EXPECT_EQ(offered(sheet), "BNC");
        // The list's menu does the same as the buttons.
        script.expectMenu("IDM_KDL0409_PARTLSTMENUE", idAdd);
        expectStage("二回戦", "5");
        driver::rightClickRow(list, 0);
        EXPECT_THAT(column(list, nameColumn), ElementsAre("一回戦", "二回戦"));
        EXPECT_EQ(platform::getText(at(sheet, idTotal)), "総出題数：8");

        driver::select(list, 0);
        EXPECT_THAT(live(), ElementsAre(idAdd, idEdit, idDelete, idUp, idDown));
        driver::click(at(sheet, idUp));
        EXPECT_THAT(column(list, nameColumn), ElementsAre("一回戦", "二回戦")) << "the first goes no higher";
        driver::click(at(sheet, idDown));
        EXPECT_THAT(column(list, nameColumn), ElementsAre("二回戦", "一回戦"));
        EXPECT_THAT(column(list, 0), ElementsAre("1", "2"));
        EXPECT_EQ(platform::listSelectedRow(list), 1) << "the selection follows";
        driver::click(at(sheet, idDown));
        script.expectMenu("IDM_KDL0409_PARTLSTMENUE", idUp);
        driver::rightClickRow(list, 1);
        EXPECT_THAT(column(list, nameColumn), ElementsAre("一回戦", "二回戦"));

        expectStage("決勝", "1");
        driver::doubleClickRow(list, 1);
        EXPECT_THAT(column(list, nameColumn), ElementsAre("一回戦", "決勝"));
        EXPECT_EQ(platform::getText(at(sheet, idTotal)), "総出題数：4");
        EXPECT_THAT(driver::clippedControls(sheet), IsEmpty());

        expectStage("三回戦", "2");
        driver::click(at(sheet, idAdd));
        driver::select(list, 1);
        for (const auto& [total, selected] :
             {std::pair("総出題数：5", 1), std::pair("総出題数：3", 0), std::pair("総出題数：0", -1)}) {
            driver::click(at(sheet, idDelete));
            EXPECT_EQ(platform::getText(at(sheet, idTotal)), total);
            EXPECT_EQ(platform::listSelectedRow(list), selected) << "the next one";
        }
        EXPECT_THAT(live(), ElementsAre(idAdd));
        EXPECT_EQ(offered(sheet), "BC");
        cancel(sheet);
    });
    EXPECT_FALSE(platform::pathExists(folder.file("new.xml")));
}

TEST_F(SessionWizard, AnEditedStageLosesItsSongsEvenWhenNothingChanged) {
    const std::string path = write("old.xml", {stageOf("A", 1, "1"), stageOf("B", 1, "2")});
    run([&](WindowHandle sheet) {
        begin(sheet, "夏", path);
        EXPECT_THAT(column(at(sheet, idStages), markColumn), ElementsAre("△", "△"));
        for (const int button : {idStageCancel, idStageOk}) {
            script.expectDialog(stageDialog, [=](WindowHandle dialog) { driver::click({dialog, button}); });
            driver::select(at(sheet, idStages), 1);
            driver::click(at(sheet, idEdit));
            EXPECT_EQ(column(at(sheet, idStages), markColumn)[1], button == idStageOk ? "×" : "△");
        }
        EXPECT_TRUE(next(sheet));
        EXPECT_EQ(offered(sheet), "BC");
        cancel(sheet);
    });
}

TEST_F(SessionWizard, GoesOnWhenNoStageIsMarkedAsUnplayable) {
    const std::string path = write("old.xml", {stageOf("A", 1, "1"), stageOf("B", 1), stageOf("C", 1)});
    run([&](WindowHandle sheet) {
        begin(sheet, "夏", path);
        EXPECT_TRUE(next(sheet));
        EXPECT_EQ(title(sheet), "リソース情報(3/4)");
        const Control list = at(sheet, idSongs);
        EXPECT_FALSE(platform::isEnabled(at(sheet, idAssign)));
        EXPECT_THAT(column(list, markColumn), ElementsAre("△", "×", "×"));
        EXPECT_EQ(platform::listRowColors(list, 0), platform::RowColors{});
        EXPECT_TRUE(platform::listRowColors(list, 1).background);
        EXPECT_EQ(offered(sheet), "BC");
        EXPECT_THAT(driver::clippedControls(sheet), IsEmpty());

        assign(sheet, 0, {idSongsOk});
        assign(sheet, 1, {idShowAll, idFill, idSongsCancel});
        EXPECT_THAT(column(list, markColumn), ElementsAre("○", "×", "×")) << "a cancel decides nothing";
        assign(sheet, 1, {idShowAll, idFill, idSongsOk});
        EXPECT_THAT(column(list, markColumn), ElementsAre("○", "○", "×"));
        EXPECT_EQ(offered(sheet), "BC");
        driver::select(list, 2);
        script.expectMenu("IDM_KDL0410_PARTLSTMENUE", idAssign);
        script.expectDialog(songDialog, [](WindowHandle dialog) {
            driver::click({dialog, idShowAll});
            driver::select({dialog, 4602}, 0);
            driver::select({dialog, 4603}, 0);
            driver::click({dialog, 4606});
            driver::click({dialog, idSongsOk});
        });
        driver::rightClickRow(list, 2);
        EXPECT_THAT(column(list, markColumn), ElementsAre("○", "○", "△")) << "used in another stage too";
        EXPECT_EQ(offered(sheet), "BNC");
        assign(sheet, 0, {idClearAll, idSongsOk});
        EXPECT_THAT(column(list, markColumn), ElementsAre("×", "○", "△"));
        EXPECT_EQ(offered(sheet), "BC");
        cancel(sheet);
    });
}

TEST_F(SessionWizard, WritesTheFileOnItsLastPageWhichOnlyCloses) {
    const platform::ManualClock clock;
    const std::string path = write("old.xml", {stageOf("A", 1, "1"), stageOf("B", 2, "2,1")});
    run([&](WindowHandle sheet) {
        begin(sheet, "夏の大会", path);
        driver::select(at(sheet, idStages), 1);
        driver::click(at(sheet, idUp));
        next(sheet);
        EXPECT_EQ(read(path).stages[0].getName(), "A") << "nothing is written yet";
        next(sheet);
        EXPECT_EQ(title(sheet), "完了(4/4)");
        EXPECT_THAT(platform::getText(at(sheet, idOutcome)), HasSubstr("作成しました"));
        EXPECT_EQ(platform::getText(at(sheet, idFolderName)), folder.path().string());
        EXPECT_EQ(platform::getText(at(sheet, idFileName)), "old.xml");
        EXPECT_EQ(offered(sheet), "F");
        driver::pressKey(sheet, "Escape");
        driver::closeBox(sheet);
        EXPECT_THAT(driver::clippedControls(sheet), IsEmpty());
        EXPECT_TRUE(finish(sheet));
    });
    const SessionPlan plan = read(path);
    EXPECT_EQ(plan.name, "夏の大会");
    EXPECT_EQ(plan.sessionVoice, "s.wav");
    EXPECT_EQ(plan.mcVoice, "m.wav");
    EXPECT_EQ(plan.total, 3);
    ASSERT_EQ(plan.stages.size(), 2u);
    EXPECT_EQ(plan.stages[0].toString(","), stageOf("B", 2, "2,1").toString(","));
    EXPECT_EQ(plan.stages[1].toString(","), stageOf("A", 1, "1").toString(","));
    ASSERT_TRUE(accesser.open(path));
    EXPECT_EQ(accesser.getDay(), record::toText(platform::getLocalTime()));
}

TEST_F(SessionWizard, MakesANewSessionStageByStage) {
    const std::string path = folder.file("new.xml");
    run([&](WindowHandle sheet) {
        begin(sheet, "新しい", path);
        expectStage("一回戦", "2");
        driver::click(at(sheet, idAdd));
        next(sheet);
        assign(sheet, 0, {idShowAll, idFill, idSongsOk});
        next(sheet);
        EXPECT_TRUE(finish(sheet));
    });
    const SessionPlan plan = read(path);
    EXPECT_EQ(plan.name, "新しい");
    ASSERT_EQ(plan.stages.size(), 1u);
    EXPECT_THAT(plan.stages[0].getResources(), testing::UnorderedElementsAre(1, 2));
}

TEST_F(SessionWizard, KeepsEverythingWhenTheDiskRefuses) {
    // There is room for the file's name, but not for that of the neighbour it would be written as.
    const std::string path = folder.file(std::string(250, 'n') + ".xml");
    std::filesystem::rename(write("old.xml", {stageOf("A", 1, "1")}), path);
    const auto before = platform::readFile(path);
    run([&](WindowHandle sheet) {
        begin(sheet, "夏", path);
        next(sheet);
        expectMessage(4000018);
        next(sheet);
        EXPECT_EQ(title(sheet), "完了(4/4)") << "shown all the same";
        EXPECT_THAT(platform::getText(at(sheet, idOutcome)), HasSubstr("保存できませんでした"));
        EXPECT_EQ(offered(sheet), "BFC");
        expectMessage(4000018);
        finish(sheet);
        EXPECT_TRUE(platform::isVisible(sheet));
        EXPECT_EQ(platform::readFile(path), before);

        for (int page = 3; page > 1; --page)
            EXPECT_TRUE(back(sheet));
        EXPECT_THAT(column(at(sheet, idStages), nameColumn), ElementsAre("A"));
        EXPECT_TRUE(back(sheet));
        begin(sheet, "夏", folder.file("other.xml"));
        next(sheet);
        next(sheet);
        EXPECT_EQ(offered(sheet), "F");
        finish(sheet);
    });
    EXPECT_EQ(platform::readFile(path), before);
    EXPECT_EQ(read(folder.file("other.xml")).sessionVoice, "s.wav");
}

TEST_F(SessionWizard, ACancelOnAnyPageLeavesTheFile) {
    const std::string path = write("old.xml", {stageOf("A", 1, "1")});
    const auto before = platform::readFile(path);
    for (int pages = 0; pages < 3; ++pages) {
        run([&](WindowHandle sheet) {
            driver::type(at(sheet, idName), "夏");
            platform::setText(at(sheet, idFile), path);
            for (int page = 0; page < pages; ++page)
                EXPECT_TRUE(next(sheet));
            EXPECT_TRUE(cancel(sheet));
        });
        EXPECT_EQ(platform::readFile(path), before) << pages;
    }
}

TEST_F(SessionWizard, GoingBackAndForthKeepsTheStages) {
    const std::string path = write("old.xml", {stageOf("A", 1, "1"), stageOf("B", 1, "2")});
    run([&](WindowHandle sheet) {
        begin(sheet, "夏", path);
        driver::select(at(sheet, idStages), 0);
        driver::click(at(sheet, idDelete));
        EXPECT_TRUE(back(sheet));
        EXPECT_EQ(platform::getText(at(sheet, idName)), "夏");
        EXPECT_TRUE(next(sheet));
        EXPECT_THAT(column(at(sheet, idStages), nameColumn), ElementsAre("B"));
        EXPECT_TRUE(next(sheet));
        EXPECT_THAT(column(at(sheet, idSongs), nameColumn), ElementsAre("B"));
        EXPECT_TRUE(back(sheet));
        EXPECT_THAT(column(at(sheet, idStages), nameColumn), ElementsAre("B"));
        cancel(sheet);
    });
}

} // namespace
