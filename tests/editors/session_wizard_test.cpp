// The pages of the session wizard: what each shows, keeps and lets through.

#include "editors/wizard_desk.h"

namespace {

using namespace editors_tests;
using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(SessionWizard, GoesOnFromItsFirstPageWithNameAndFile) {
    write("SessionFile_0.xml", {});
    run([&] {
        EXPECT_EQ(dialog.title(), "出題ファイルの作成");
        EXPECT_EQ(title(), "はじめに(1/4)");
        EXPECT_EQ(page().text(idFile), folder.path().string() + "\\SessionFile_1.xml");
        EXPECT_EQ(offered(), "C");
        for (const auto& [name, offer] : {std::pair(" ", "C"), {" 夏 ", "NC"}}) {
            page().type(idName, name);
            EXPECT_EQ(offered(), offer) << "blanks are no name";
        }
        page().type(idFile, "  ");
        EXPECT_EQ(offered(), "C");
        browse("");
        EXPECT_EQ(offered(), "C");
        browse(folder.file("new"));
        EXPECT_THAT(page().texts({idFile, idName}), ElementsAre(folder.file("new.xml"), " 夏 "));
        browse(folder.file("SessionFile_0.xml"), true);
        EXPECT_EQ(page().text(idName), "古い") << "the name of the session in the file";
        EXPECT_EQ(offered(), "NC");
        next();
        EXPECT_EQ(title(), "パート情報(2/4)");
        back();
        EXPECT_EQ(offered(), "NC") << "asked again when it is shown";
        cancel();
    });
}

TEST_F(SessionWizard, BrowsingToASessionWithoutANameKeepsTheTypedOne) {
    const std::string path = folder.file("old.xml");
    platform::replaceFile(path, "<session><sessionName> </sessionName></session>");
    run([&] {
        page().type(idName, "夏");
        browse(path, true);
        EXPECT_EQ(page().text(idName), "夏");
        cancel();
    });
}

TEST_F(SessionWizard, CountsItsStagesAndOffersWhatIsPossible) {
    run([&] {
        begin("夏", folder.file("new.xml"));
        const platform::Control list = page()[idStages];
        const auto live = [&] { return page().liveOf({idAdd, idEdit, idDelete, idUp, idDown}); };
        EXPECT_EQ(page().text(idTotal), "総出題数：0");
        EXPECT_EQ(offered(), "BC");
        EXPECT_THAT(live(), ElementsAre(+idAdd));
        script.expectDialog(part_detail::form, [](Form stage) {
            stage.type(part_detail::idName, "取消");
            stage.click(part_detail::idCancel);
        });
        page().click(idAdd);
        EXPECT_THAT(names(), IsEmpty());

        add("一回戦", "3");
        EXPECT_EQ(offered(), "BNC");
        // The list's menu does the same as the buttons.
        script.expectMenu("IDM_KDL0409_PARTLSTMENUE", idAdd);
        expectStage("二回戦", "5");
        driver::rightClickRow(list, 0);
        EXPECT_THAT(names(), ElementsAre("一回戦", "二回戦"));
        EXPECT_EQ(page().text(idTotal), "総出題数：8");

        page().select(idStages, 0);
        EXPECT_THAT(live(), ElementsAre(+idAdd, +idEdit, +idDelete, +idUp, +idDown));
        page().click(idUp);
        EXPECT_THAT(names(), ElementsAre("一回戦", "二回戦")) << "the first goes no higher";
        page().click(idDown);
        EXPECT_THAT(names(), ElementsAre("二回戦", "一回戦"));
        EXPECT_THAT(page().column(idStages, 0), ElementsAre("1", "2"));
        EXPECT_EQ(page().selectedRow(idStages), 1) << "the selection follows";
        page().click(idDown);
        script.expectMenu("IDM_KDL0409_PARTLSTMENUE", idUp);
        driver::rightClickRow(list, 1);
        EXPECT_THAT(names(), ElementsAre("一回戦", "二回戦"));

        expectStage("決勝", "1");
        driver::doubleClickRow(list, 1);
        EXPECT_THAT(names(), ElementsAre("一回戦", "決勝"));
        EXPECT_EQ(page().text(idTotal), "総出題数：4");
        EXPECT_THAT(dialog.cut(), IsEmpty());

        add("三回戦", "2");
        page().select(idStages, 1);
        for (const auto& [total, selected] :
             {std::pair("総出題数：5", 1), std::pair("総出題数：3", 0), std::pair("総出題数：0", -1)}) {
            page().click(idDelete);
            EXPECT_EQ(page().text(idTotal), total);
            EXPECT_EQ(page().selectedRow(idStages), selected) << "the next one";
        }
        EXPECT_THAT(live(), ElementsAre(+idAdd));
        EXPECT_EQ(offered(), "BC");
        cancel();
    });
    EXPECT_FALSE(platform::pathExists(folder.file("new.xml")));
}

TEST_F(SessionWizard, AnEditedStageLosesItsSongsEvenWhenNothingChanged) {
    const std::string path =
        write("old.xml", {stage({.name = "A", .songs = "1"}), stage({.name = "B", .songs = "2"})});
    run([&] {
        begin("夏", path);
        EXPECT_THAT(marks(idStages), ElementsAre("△", "△"));
        for (const auto& [button, mark] :
             {std::pair(+part_detail::idCancel, "△"), {+part_detail::idOk, "×"}}) {
            script.expectDialog(part_detail::form, [id = button](Form stage) { stage.click(id); });
            page().select(idStages, 1);
            page().click(idEdit);
            EXPECT_THAT(marks(idStages), ElementsAre("△", mark));
        }
        next();
        EXPECT_EQ(offered(), "BC");
        cancel();
    });
}

TEST_F(SessionWizard, GoesOnWhenNoStageIsMarkedAsUnplayable) {
    const std::string path =
        write("old.xml", {stage({.name = "A", .songs = "1"}), stage({.name = "B"}), stage({.name = "C"})});
    run([&] {
        begin("夏", path);
        next();
        EXPECT_EQ(title(), "リソース情報(3/4)");
        EXPECT_FALSE(page().live(idAssign));
        EXPECT_THAT(marks(idSongs), ElementsAre("△", "×", "×"));
        EXPECT_EQ(platform::listRowColors(page()[idSongs], 0), platform::RowColors{});
        EXPECT_TRUE(platform::listRowColors(page()[idSongs], 1).background);
        EXPECT_EQ(offered(), "BC");
        EXPECT_THAT(dialog.cut(), IsEmpty());

        assign(0, {resource_detail::idOk});
        fill(1, resource_detail::idCancel);
        EXPECT_THAT(marks(idSongs), ElementsAre("○", "×", "×")) << "a cancel decides nothing";
        fill(1);
        EXPECT_THAT(marks(idSongs), ElementsAre("○", "○", "×"));
        EXPECT_EQ(offered(), "BC");
        page().select(idSongs, 2);
        script.expectMenu("IDM_KDL0410_PARTLSTMENUE", idAssign);
        expectSongs([](Form songs) {
            using namespace resource_detail;
            songs.click(idShowAll);
            songs.select(idTarget, 0);
            songs.select(idSource, 0);
            songs.click(idSet);
            songs.click(idOk);
        });
        driver::rightClickRow(page()[idSongs], 2);
        EXPECT_THAT(marks(idSongs), ElementsAre("○", "○", "△")) << "used in another stage too";
        EXPECT_EQ(offered(), "BNC");
        assign(0, {resource_detail::idClearAll, resource_detail::idOk});
        EXPECT_THAT(marks(idSongs), ElementsAre("×", "○", "△"));
        EXPECT_EQ(offered(), "BC");
        cancel();
    });
}

TEST_F(SessionWizard, GoingBackAndForthKeepsTheStages) {
    const std::string path =
        write("old.xml", {stage({.name = "A", .songs = "1"}), stage({.name = "B", .songs = "2"})});
    run([&] {
        begin("夏", path);
        page().select(idStages, 0);
        page().click(idDelete);
        back();
        EXPECT_EQ(page().text(idName), "夏");
        next();
        EXPECT_THAT(names(), ElementsAre("B"));
        next();
        EXPECT_THAT(page().column(idSongs, nameColumn), ElementsAre("B"));
        back();
        EXPECT_THAT(names(), ElementsAre("B"));
        cancel();
    });
}

} // namespace
