#include "editors/resource_detail.h"

#include <filesystem>
#include <optional>

#include "data/labels.h"
#include "editors/catalogue_desk.h"
#include "foundation/text.h"
#include "platform/listview.h"
#include "platform/window.h"
#include "support/list_rows.h"

namespace {

using namespace editors_tests;
using platform::Answer;
using testing::AnyOf;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;
using Rows = std::vector<std::string>;

constexpr char searchDialog[] = "IDD_KDL0303_SERCHLIST";
enum : int {
    idSearchTitle = 3317,
    idSearchStart = 3333,
    idSearchSongs = 3336,
    idSearchOk = 3338,
    idSearchRemove = 3342,
    idYes = 111,
};

constexpr char dialogName[] = "IDD_KDL0406_RESOURCEDETAIL";

enum : int {
    idHead = 4601,
    idTarget = 4602,
    idSource = 4603,
    idOk = 4604,
    idCancel = 4605,
    idSet = 4606,
    idShowAll = 4608,
    idFill = 4609,
    idSearch = 4610,
    idClearAll = 4611,
    idClear = 4612,
    idShuffle = 4613,
    idUp = 4614,
    idDown = 4615,
    idRemove = 4616,
    idRemoveAll = 4617,
    idEdit = 4620,
    idElsewhereMark = 4621,
    idInStageMark = 4622,
    idUnfitMark = 4623,
};

constexpr platform::Color elsewhere{240, 135, 235}, inStage{115, 160, 250}, unfit{250, 115, 115},
    white{255, 255, 255}, grey{135, 135, 135};

// Songs 1 to 8 can be played, 9 has no file. The stage has two quests of two songs.
class ResourceDetail : public CatalogueDesk {
protected:
    ResourceDetail() : stages(2) {
        for (const char* title : {"荒城の月", "花", "箱根八里", "お正月", "鳩ぽっぽ", "雪やこんこん",
                                  "水あそび", "納涼", "鎌倉"}) {
            DataResource song;
            song.setTitle(title);
            song.setArtist("瀧廉太郎");
            song.setFileName(title == std::string("鎌倉") ? folder.file("gone.mp3") : file("song.mp3"));
            song.setFileType(fileTypeMp3);
            host().accesserResource.add(song);
        }
        for (DataSession& stage : stages) {
            stage.setName("一回戦");
            stage.setQuestNum(2);
            stage.setMulti(2);
            stage.setRange(rangeStart);
            stage.setSpeed(0);
        }
    }

    int run(const std::function<void()>& act) {
        script.expectDialog(dialogName, [&](WindowHandle opened) {
            dialog = opened;
            act();
        });
        const int result = dlgResourceDetail({}, stages, 0);
        EXPECT_THAT(script.faults(), IsEmpty());
        return result;
    }
    platform::Control control(int id) const { return {dialog, id}; }
    bool click(int id) const { return driver::click(control(id)); }
    bool select(int list, int row) const { return driver::select(control(list), row); }
    int selected(int list) const { return platform::listSelectedRow(control(list)); }
    bool choose(int list, int row, int command) {
        script.expectMenu(list == idTarget ? "IDM_KDL0407_TARGETMENUE" : "IDM_KDL0408_SOURCEMENUE", command);
        return driver::rightClickRow(control(list), row);
    }
    Rows rows(int list) const { return test_support::listRows(control(list)); }
    void search(const std::string& title, std::optional<Answer> answer = {}) {
        script.expectDialog(searchDialog, [title](WindowHandle list) {
            driver::type({list, idSearchTitle}, title);
            driver::click({list, idSearchStart});
            driver::click({list, idSearchOk});
        });
        if (answer) script.expectMessageBox(*answer);
        click(idSearch);
    }
    // Titles, "" where there is none.
    Rows titles(int list) const {
        Rows all;
        const int column = list == idTarget ? 3 : 1;
        for (int row = 0; row < platform::listRowCount(control(list)); ++row)
            all.push_back(platform::listCell(control(list), row, column).value_or("?"));
        return all;
    }
    std::vector<platform::Color> backgrounds(int list) const {
        std::vector<platform::Color> all;
        for (int row = 0; row < platform::listRowCount(control(list)); ++row)
            all.push_back(platform::listRowColors(control(list), row).background.value());
        return all;
    }

    driver::Script script;
    std::vector<DataSession> stages;
    WindowHandle dialog;
};

TEST_F(ResourceDetail, ShowsARowForEachSongAndNothingToChooseFrom) {
    stages[0].setQuestNum(10);
    stages[0].setResourceId("7,99,3");
    EXPECT_EQ(run([&] {
                  EXPECT_EQ(platform::getText(dialog), "音楽ファイルの設定");
                  EXPECT_THAT(platform::getText(control(idHead)),
                              StartsWith("音楽リストの[検索]または[全て表示]ボタンで楽曲を表示"));
                  const Rows shown = rows(idTarget);
                  ASSERT_EQ(shown.size(), 20u);
                  EXPECT_EQ(shown[0], "1|1|7|水あそび|瀧廉太郎");
                  EXPECT_EQ(shown[1], "1|2|||") << "the catalogue has no song 99";
                  EXPECT_EQ(shown[2], "2|1|3|箱根八里|瀧廉太郎");
                  EXPECT_EQ(shown[19], "10|2|||");
                  EXPECT_THAT(rows(idSource), IsEmpty());
                  EXPECT_EQ(platform::listRowColors(control(idTarget), 1).text, grey);
                  EXPECT_EQ(platform::listRowColors(control(idTarget), 2).text, std::nullopt);
                  driver::settle();
                  EXPECT_THAT(driver::clippedControls(dialog), IsEmpty());
                  driver::pressKey(dialog, "Escape");
              }),
              -1);
}

TEST_F(ResourceDetail, SetsSongsByButtonMenuDoubleClickAndDrag) {
    EXPECT_EQ(run([&] {
                  click(idShowAll);
                  EXPECT_FALSE(click(idSet)) << "no song is selected";
                  select(idSource, 4);
                  EXPECT_TRUE(click(idSet));
                  EXPECT_EQ(selected(idTarget), 1) << "on to the next row";
                  EXPECT_EQ(selected(idSource), 4);
                  driver::doubleClickRow(control(idSource), 1);
                  choose(idSource, 2, idSet);
                  driver::dragRow(control(idSource), 6, control(idTarget), 3);
                  EXPECT_EQ(selected(idTarget), 3) << "there is no next row";
                  driver::dragRow(control(idSource), 7, control(idTarget), -1); // beside the rows
                  EXPECT_EQ(rows(idTarget), (Rows{"1|1|5|鳩ぽっぽ|瀧廉太郎", "1|2|2|花|瀧廉太郎",
                                                  "2|1|3|箱根八里|瀧廉太郎", "2|2|7|水あそび|瀧廉太郎"}));
                  click(idOk);
              }),
              songsComplete);
    EXPECT_EQ(stages[0].getResourceId(), "5,2,3,7");
    EXPECT_THAT(stages[0].getResources(), ElementsAre(5, 2, 3, 7));
}

TEST_F(ResourceDetail, ColoursTellWhatSpeaksAgainstASong) {
    stages[0].setResourceId("1,1,9,3");
    stages[1].setResourceId("3,4");
    EXPECT_EQ(
        run([&] {
            click(idShowAll);
            EXPECT_THAT(backgrounds(idTarget), ElementsAre(inStage, inStage, unfit, elsewhere));
            EXPECT_THAT(backgrounds(idSource),
                        ElementsAre(inStage, white, inStage, elsewhere, white, white, white, white, unfit));
            for (const auto& [id, color] :
                 {std::pair{idElsewhereMark, elsewhere}, {idInStageMark, inStage}, {idUnfitMark, unfit}}) {
                EXPECT_EQ(platform::getText(control(id)), "■");
                EXPECT_EQ(platform::getTextColor(control(id)), color);
            }
            select(idTarget, 1);
            click(idClear);
            EXPECT_THAT(backgrounds(idTarget), ElementsAre(white, white, unfit, elsewhere));
            EXPECT_EQ(platform::listRowColors(control(idTarget), 1).text, grey);
            select(idTarget, 0);
            driver::pressKey(dialog, "Delete");
            EXPECT_EQ(backgrounds(idSource)[0], white);
            click(idOk);
        }),
        songsMissing);
    EXPECT_EQ(stages[0].getResourceId(), "0,0,9,3");
}

// The rules are tested without the window; here each button reaches its own.
TEST_F(ResourceDetail, ButtonsAndMenuChangeTheTarget) {
    stages[0].setResourceId("1,0,3,4");
    EXPECT_EQ(run([&] {
                  select(idTarget, 0);
                  click(idDown);
                  EXPECT_EQ(selected(idTarget), 1);
                  choose(idTarget, 1, idDown);
                  EXPECT_EQ(titles(idTarget), (Rows{"", "箱根八里", "荒城の月", "お正月"}));
                  choose(idTarget, 3, idUp);
                  click(idUp);
                  click(idUp);
                  click(idUp); // at the top already
                  EXPECT_EQ(selected(idTarget), 0);
                  EXPECT_EQ(titles(idTarget), (Rows{"お正月", "", "箱根八里", "荒城の月"}));
                  Rows before = titles(idTarget);
                  for (const auto& shuffle : {std::function<bool()>([&] { return click(idShuffle); }),
                                              {[&] { return choose(idTarget, 0, idShuffle); }}}) {
                      EXPECT_TRUE(shuffle());
                      EXPECT_THAT(titles(idTarget), testing::UnorderedElementsAreArray(before));
                  }
                  choose(idTarget, 2, idClear);
                  EXPECT_EQ(titles(idTarget)[2], "");
                  choose(idTarget, 0, idClearAll);
                  EXPECT_EQ(titles(idTarget), Rows(4));
                  click(idOk);
              }),
              songsMissing);
    EXPECT_EQ(stages[0].getResourceId(), "0,0,0,0");
}

TEST_F(ResourceDetail, RandomFillLooksForTheFilesAnew) {
    run([&] {
        click(idShowAll);
        backgrounds(idSource); // each file was looked for
        std::filesystem::remove(folder.file("song.mp3"));
        expectMessage(script, 3000008);
        click(idFill);
        EXPECT_EQ(titles(idTarget), Rows(4));
        click(idCancel);
    });
}

TEST_F(ResourceDetail, RandomFillTakesFreeSongsOfTheSource) {
    stages[0].setResourceId("0,2,0,0");
    stages[1].setResourceId("1,3,4");
    EXPECT_EQ(run([&] {
                  expectMessage(script, 3000008);
                  click(idFill); // nothing to choose from
                  click(idShowAll);
                  select(idSource, 4);
                  click(idRemove);
                  EXPECT_EQ(titles(idSource)[4], "雪やこんこん");
                  EXPECT_EQ(selected(idSource), 4) << "the next one";
                  platform::setFocus(control(idSource));
                  driver::pressKey(dialog, "Delete");
                  expectMessage(script, 3000008);
                  click(idFill); // 7 and 8 for three rows
                  EXPECT_EQ(titles(idTarget), (Rows{"", "花", "", ""}));
                  select(idTarget, 0);
                  choose(idSource, 0, idSet); // of another stage, by hand
                  EXPECT_EQ(backgrounds(idTarget)[0], elsewhere);
                  click(idFill);
                  EXPECT_THAT(titles(idTarget), AnyOf(Rows{"荒城の月", "花", "水あそび", "納涼"},
                                                      Rows{"荒城の月", "花", "納涼", "水あそび"}));
                  choose(idSource, 2, idRemove);
                  EXPECT_EQ(titles(idSource).size(), 6u);
                  choose(idSource, 2, idRemoveAll);
                  EXPECT_THAT(rows(idSource), IsEmpty());
                  EXPECT_FALSE(click(idRemove));
                  click(idOk);
              }),
              songsShared);
}

TEST_F(ResourceDetail, EveryWayOutButOkLeavesTheStage) {
    stages[0].setResourceId("1,2,3,4");
    const std::string before = stages[0].toString(",");
    for (const auto& leave : {std::function<void()>([&] { click(idCancel); }),
                              {[&] { driver::pressKey(dialog, "Escape"); }},
                              {[&] { driver::closeBox(dialog); }}}) {
        EXPECT_EQ(run([&] {
                      click(idShuffle);
                      click(idClearAll);
                      leave();
                  }),
                  -1);
        EXPECT_EQ(stages[0].toString(","), before);
        EXPECT_THAT(stages[0].getResources(), ElementsAre(1, 2, 3, 4));
    }
}

TEST_F(ResourceDetail, CommandsOnARowAreOffWithoutOne) {
    stages[0].setQuestNum(0);
    run([&] {
        for (const int id : {idSet, idClear, idUp, idDown, idRemove})
            EXPECT_FALSE(platform::isEnabled(control(id))) << id;
        for (const int id : {idShuffle, idClearAll, idFill, idRemoveAll})
            EXPECT_TRUE(click(id)) << id;
        click(idShowAll);
        driver::dragRow(control(idSource), 0, control(idTarget), -1);
        driver::doubleClickRow(control(idSource), 0);
        click(idOk);
    });
    EXPECT_EQ(stages[0].getResourceId(), "");
}

TEST_F(ResourceDetail, SearchAddsWhatIsNotThereYet) {
    run([&] {
        search("*月*");
        EXPECT_EQ(titles(idSource), (Rows{"荒城の月", "お正月"})) << "nothing to ask about";
        search("*", Answer::Cancel);
        EXPECT_EQ(titles(idSource).size(), 2u);
        search("*の*", Answer::No);
        EXPECT_EQ(titles(idSource), (Rows{"荒城の月"}));
        search("お*", Answer::Yes);
        search("*月*", Answer::Yes);
        EXPECT_EQ(titles(idSource), (Rows{"荒城の月", "お正月"})) << "each song once";
        search("何もない", Answer::No);
        EXPECT_THAT(rows(idSource), IsEmpty());
        click(idCancel);
    });
}

TEST_F(ResourceDetail, SongsThatAreDeletedMeanwhileLeaveBothLists) {
    stages[0].setResourceId("1,2,4,5");
    EXPECT_EQ(run([&] {
                  click(idShowAll);
                  select(idSource, 4);
                  script.expectDialog(searchDialog, [&](WindowHandle list) {
                      driver::type({list, idSearchTitle}, "*月");
                      driver::click({list, idSearchStart});
                      driver::select({list, idSearchSongs}, 1);
                      driver::click({list, idSearchRemove});
                      driver::closeBox(list);
                  });
                  script.expectDialog("IDD_KDL0001_MESSAGE_BOX", [](WindowHandle box) {
                      driver::click({box, idYes});
                  });
                  click(idSearch);
                  EXPECT_EQ(titles(idTarget), (Rows{"荒城の月", "花", "", "鳩ぽっぽ"}));
                  EXPECT_EQ(titles(idSource).size(), 8u);
                  EXPECT_EQ(titles(idSource)[3], "鳩ぽっぽ");
                  EXPECT_EQ(selected(idSource), 3) << "the same song as before";
                  click(idOk);
              }),
              songsMissing);
    EXPECT_EQ(stages[0].getResourceId(), "1,2,0,5");
}

TEST_F(ResourceDetail, AnEditedSongIsShownAnewInBothLists) {
    stages[0].setResourceId("3,9");
    run([&] {
        click(idShowAll);
        script.expectMenu("IDM_KDL0408_SOURCEMENUE", idEdit);
        script.expectDialog("IDD_KDL0302_EDIT", [](WindowHandle editor) {
            EXPECT_TRUE(driver::type({editor, 3205}, "はこねはちり"));
            EXPECT_TRUE(driver::click({editor, 3253}));
        });
        driver::rightClickRow(control(idSource), 2);
        EXPECT_EQ(titles(idSource)[2], "はこねはちり");
        EXPECT_EQ(titles(idTarget)[0], "はこねはちり");
        EXPECT_EQ(backgrounds(idTarget)[1], unfit);
        file("gone.mp3");
        click(idShowAll);
        EXPECT_EQ(backgrounds(idTarget)[1], white) << "the file is there again";
        click(idCancel);
    });
}

} // namespace
