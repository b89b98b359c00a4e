#include "editors/resource_detail.h"

#include <filesystem>
#include <optional>

#include "editors/catalogue_desk.h"
#include "editors/dialog_ids.h"
#include "support/stage.h"

namespace {

using namespace editors_tests;
using namespace resource_detail;
using platform::Answer;
using testing::AnyOf;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;
using testing::UnorderedElementsAreArray;

constexpr int idHead = 4601;
constexpr platform::Color elsewhere{240, 135, 235}, inStage{115, 160, 250}, unfit{250, 115, 115},
    white{255, 255, 255}, grey{135, 135, 135};

// Songs 1 to 8 can be played, 9 has no file. The stage has two quests of two songs.
class ResourceDetail : public CatalogueDesk {
protected:
    ResourceDetail() {
        for (const char* title : {"荒城の月", "花", "箱根八里", "お正月", "鳩ぽっぽ", "雪やこんこん",
                                  "水あそび", "納涼", "鎌倉"}) {
            DataResource song;
            song.setTitle(title);
            song.setArtist("瀧廉太郎");
            song.setFileName(title == std::string("鎌倉") ? folder.file("gone.mp3") : file("song.mp3"));
            song.setFileType(fileTypeMp3);
            host().accesserResource.add(song);
        }
    }

    // What the dialog gives for the first stage; it is left by OK, unless `act` leaves it.
    int run(const std::function<void()>& act, int end = idOk) {
        return answer(
            form, [&] { return dlgResourceDetail({}, stages, 0); },
            [&] {
                act();
                if (end) dialog.click(end);
            });
    }
    // In the menu of a row.
    void choose(int list, int row, int command) {
        script.expectMenu(list == idTarget ? "IDM_KDL0407_TARGETMENUE" : "IDM_KDL0408_SOURCEMENUE", command);
        driver::rightClickRow(dialog[list], row);
        EXPECT_TRUE(script.done());
    }
    void search(const std::string& title, std::optional<Answer> answer = {}) {
        script.expectDialog(search_list::form, [title](Form list) {
            list.type(search_list::idTitle, title);
            list.click(search_list::idSearch);
            list.click(search_list::idOk);
        });
        if (answer) script.expectMessageBox(*answer);
        dialog.click(idSearch);
    }
    void fillInVain() {
        expectMessage(3000008);
        dialog.click(idFill);
    }
    // "" where there is none.
    std::vector<std::string> titles(int list) const { return dialog.column(list, list == idTarget ? 3 : 1); }
    std::vector<platform::Color> backgrounds(int list) const {
        std::vector<platform::Color> all;
        for (int row = 0; row < platform::listRowCount(dialog[list]); ++row)
            all.push_back(platform::listRowColors(dialog[list], row).background.value());
        return all;
    }
    std::optional<platform::Color> textColor(int row) const {
        return platform::listRowColors(dialog[idTarget], row).text;
    }

    std::vector<DataSession> stages =
        std::vector(2, test_support::stage({.name = "一回戦", .quests = 2, .multi = 2}));
};

TEST_F(ResourceDetail, ShowsARowForEachSongAndNothingToChooseFrom) {
    stages[0].setQuestNum(10);
    stages[0].setResourceId("7,99,3");
    const auto act = [&] {
        EXPECT_EQ(dialog.title(), "音楽ファイルの設定");
        EXPECT_THAT(dialog.text(idHead), StartsWith("音楽リストの[検索]または[全て表示]ボタンで楽曲を表示"));
        const std::vector<std::string> shown = dialog.rows(idTarget);
        ASSERT_EQ(shown.size(), 20u);
        EXPECT_EQ(shown[0], "1|1|7|水あそび|瀧廉太郎");
        EXPECT_EQ(shown[1], "1|2|||") << "the catalogue has no song 99";
        EXPECT_EQ(shown[2], "2|1|3|箱根八里|瀧廉太郎");
        EXPECT_EQ(shown[19], "10|2|||");
        EXPECT_THAT(dialog.rows(idSource), IsEmpty());
        EXPECT_EQ(textColor(1), grey);
        EXPECT_EQ(textColor(2), std::nullopt);
        EXPECT_THAT(dialog.cut(), IsEmpty());
        dialog.key("Escape");
    };
    EXPECT_EQ(run(act, 0), -1);
}

TEST_F(ResourceDetail, SetsSongsByButtonMenuDoubleClickAndDrag) {
    const auto act = [&] {
        dialog.click(idShowAll);
        EXPECT_FALSE(dialog.live(idSet)) << "no song is selected";
        dialog.select(idSource, 4);
        dialog.click(idSet);
        EXPECT_EQ(dialog.selectedRow(idTarget), 1) << "on to the next row";
        EXPECT_EQ(dialog.selectedRow(idSource), 4);
        driver::doubleClickRow(dialog[idSource], 1);
        choose(idSource, 2, idSet);
        driver::dragRow(dialog[idSource], 6, dialog[idTarget], 3);
        EXPECT_EQ(dialog.selectedRow(idTarget), 3) << "there is no next row";
        driver::dragRow(dialog[idSource], 7, dialog[idTarget], -1); // beside the rows
        EXPECT_THAT(dialog.rows(idTarget), ElementsAre("1|1|5|鳩ぽっぽ|瀧廉太郎", "1|2|2|花|瀧廉太郎",
                                                       "2|1|3|箱根八里|瀧廉太郎", "2|2|7|水あそび|瀧廉太郎"));
    };
    EXPECT_EQ(run(act), songsComplete);
    EXPECT_EQ(stages[0].getResourceId(), "5,2,3,7");
    EXPECT_THAT(stages[0].getResources(), ElementsAre(5, 2, 3, 7));
}

TEST_F(ResourceDetail, ColoursTellWhatSpeaksAgainstASong) {
    stages[0].setResourceId("1,1,9,3");
    stages[1].setResourceId("3,4");
    const auto act = [&] {
        dialog.click(idShowAll);
        EXPECT_THAT(backgrounds(idTarget), ElementsAre(inStage, inStage, unfit, elsewhere));
        EXPECT_THAT(backgrounds(idSource),
                    ElementsAre(inStage, white, inStage, elsewhere, white, white, white, white, unfit));
        for (const auto& [id, color] :
             {std::pair{idElsewhereMark, elsewhere}, {idInStageMark, inStage}, {idUnfitMark, unfit}}) {
            EXPECT_EQ(dialog.text(id), "■");
            EXPECT_EQ(platform::getTextColor(dialog[id]), color);
        }
        dialog.select(idTarget, 1);
        dialog.click(idClear);
        EXPECT_THAT(backgrounds(idTarget), ElementsAre(white, white, unfit, elsewhere));
        EXPECT_EQ(textColor(1), grey);
        dialog.select(idTarget, 0);
        dialog.key("Delete");
        EXPECT_EQ(backgrounds(idSource)[0], white);
    };
    EXPECT_EQ(run(act), songsMissing);
    EXPECT_EQ(stages[0].getResourceId(), "0,0,9,3");
}

// The rules are tested without the window; here each button reaches its own.
TEST_F(ResourceDetail, ButtonsAndMenuChangeTheTarget) {
    stages[0].setResourceId("1,0,3,4");
    const auto act = [&] {
        dialog.select(idTarget, 0);
        dialog.click(idDown);
        EXPECT_EQ(dialog.selectedRow(idTarget), 1);
        choose(idTarget, 1, idDown);
        EXPECT_THAT(titles(idTarget), ElementsAre("", "箱根八里", "荒城の月", "お正月"));
        choose(idTarget, 3, idUp);
        for (int presses = 0; presses < 3; ++presses) // once more than leads to the top
            dialog.click(idUp);
        EXPECT_EQ(dialog.selectedRow(idTarget), 0);
        const std::vector<std::string> before = titles(idTarget);
        EXPECT_THAT(before, ElementsAre("お正月", "", "箱根八里", "荒城の月"));
        dialog.click(idShuffle);
        choose(idTarget, 0, idShuffle);
        EXPECT_THAT(titles(idTarget), UnorderedElementsAreArray(before));
        choose(idTarget, 2, idClear);
        EXPECT_EQ(titles(idTarget)[2], "");
        choose(idTarget, 0, idClearAll);
        EXPECT_THAT(titles(idTarget), Each(""));
    };
    EXPECT_EQ(run(act), songsMissing);
    EXPECT_EQ(stages[0].getResourceId(), "0,0,0,0");
}

TEST_F(ResourceDetail, RandomFillLooksForTheFilesAnew) {
    run([&] {
        dialog.click(idShowAll);
        backgrounds(idSource); // each file was looked for
        std::filesystem::remove(folder.file("song.mp3"));
        fillInVain();
        EXPECT_THAT(titles(idTarget), Each(""));
    });
}

TEST_F(ResourceDetail, RandomFillTakesFreeSongsOfTheSource) {
    stages[0].setResourceId("0,2,0,0");
    stages[1].setResourceId("1,3,4");
    const auto act = [&] {
        fillInVain(); // nothing to choose from
        dialog.click(idShowAll);
        dialog.select(idSource, 4);
        dialog.click(idRemove);
        EXPECT_EQ(titles(idSource)[4], "雪やこんこん");
        EXPECT_EQ(dialog.selectedRow(idSource), 4) << "the next one";
        dialog.focus(idSource);
        dialog.key("Delete");
        fillInVain(); // 7 and 8 for three rows
        EXPECT_THAT(titles(idTarget), ElementsAre("", "花", "", ""));
        dialog.select(idTarget, 0);
        choose(idSource, 0, idSet); // of another stage, by hand
        EXPECT_EQ(backgrounds(idTarget)[0], elsewhere);
        dialog.click(idFill);
        EXPECT_THAT(titles(idTarget), AnyOf(ElementsAre("荒城の月", "花", "水あそび", "納涼"),
                                            ElementsAre("荒城の月", "花", "納涼", "水あそび")));
        choose(idSource, 2, idRemove);
        EXPECT_EQ(titles(idSource).size(), 6u);
        choose(idSource, 2, idRemoveAll);
        EXPECT_THAT(dialog.rows(idSource), IsEmpty());
        EXPECT_FALSE(dialog.live(idRemove));
    };
    EXPECT_EQ(run(act), songsShared);
}

TEST_F(ResourceDetail, EveryWayOutButOkLeavesTheStage) {
    stages[0].setResourceId("1,2,3,4");
    const std::string before = stages[0].toString(",");
    for (const auto& leave : {std::function<void()>([&] { dialog.click(idCancel); }),
                              {[&] { dialog.key("Escape"); }},
                              {[&] { dialog.close(); }}}) {
        const auto act = [&] {
            dialog.click(idShuffle);
            dialog.click(idClearAll);
            leave();
        };
        EXPECT_EQ(run(act, 0), -1);
        EXPECT_EQ(stages[0].toString(","), before);
        EXPECT_THAT(stages[0].getResources(), ElementsAre(1, 2, 3, 4));
    }
}

TEST_F(ResourceDetail, CommandsOnARowAreOffWithoutOne) {
    stages[0].setQuestNum(0);
    run([&] {
        EXPECT_THAT(dialog.liveOf({idSet, idClear, idUp, idDown, idRemove}), IsEmpty());
        for (const int id : {idShuffle, idClearAll, idFill, idRemoveAll, idShowAll})
            dialog.click(id);
        driver::dragRow(dialog[idSource], 0, dialog[idTarget], -1);
        driver::doubleClickRow(dialog[idSource], 0);
    });
    EXPECT_EQ(stages[0].getResourceId(), "");
}

TEST_F(ResourceDetail, SearchAddsWhatIsNotThereYet) {
    run([&] {
        search("*月*");
        EXPECT_THAT(titles(idSource), ElementsAre("荒城の月", "お正月")) << "nothing to ask about";
        search("*", Answer::Cancel);
        EXPECT_EQ(titles(idSource).size(), 2u);
        search("*の*", Answer::No);
        EXPECT_THAT(titles(idSource), ElementsAre("荒城の月"));
        search("お*", Answer::Yes);
        search("*月*", Answer::Yes);
        EXPECT_THAT(titles(idSource), ElementsAre("荒城の月", "お正月")) << "each song once";
        search("何もない", Answer::No);
        EXPECT_THAT(dialog.rows(idSource), IsEmpty());
    });
}

TEST_F(ResourceDetail, SongsThatAreDeletedMeanwhileLeaveBothLists) {
    stages[0].setResourceId("1,2,4,5");
    const auto act = [&] {
        dialog.click(idShowAll);
        dialog.select(idSource, 4);
        script.expectDialog(search_list::form, [&](Form list) {
            list.type(search_list::idTitle, "*月");
            list.click(search_list::idSearch);
            list.select(search_list::idList, 1);
            list.click(search_list::idRemove);
            list.close();
        });
        expectMessage(2000013);
        dialog.click(idSearch);
        EXPECT_THAT(titles(idTarget), ElementsAre("荒城の月", "花", "", "鳩ぽっぽ"));
        EXPECT_EQ(titles(idSource).size(), 8u);
        EXPECT_EQ(titles(idSource)[3], "鳩ぽっぽ");
        EXPECT_EQ(dialog.selectedRow(idSource), 3) << "the same song as before";
    };
    EXPECT_EQ(run(act), songsMissing);
    EXPECT_EQ(stages[0].getResourceId(), "1,2,0,5");
}

TEST_F(ResourceDetail, AnEditedSongIsShownAnewInBothLists) {
    stages[0].setResourceId("3,9");
    run([&] {
        dialog.click(idShowAll);
        script.expectMenu("IDM_KDL0408_SOURCEMENUE", idEdit);
        script.expectDialog(resource_edit::form, [](Form editor) {
            editor.type(resource_edit::idTitle, "はこねはちり");
            editor.click(resource_edit::idOk);
        });
        driver::rightClickRow(dialog[idSource], 2);
        EXPECT_EQ(titles(idSource)[2], "はこねはちり");
        EXPECT_EQ(titles(idTarget)[0], "はこねはちり");
        EXPECT_EQ(backgrounds(idTarget)[1], unfit);
        file("gone.mp3");
        dialog.click(idShowAll);
        EXPECT_EQ(backgrounds(idTarget)[1], white) << "the file is there again";
    });
}

} // namespace
