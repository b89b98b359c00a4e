#include "foundation/views/message_box.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "data/app_logger.h"
#include "foundation/path.h"
#include "platform/controls.h"
#include "platform/driver.h"
#include "platform/window.h"

namespace {

namespace driver = platform::driver;
using platform::WindowHandle;
using testing::IsEmpty;

enum : int {
    idCode = 102,
    idMessage = 103,
    idDetail = 105,
    idDetailButton = 106,
    idHelp = 107,
    idAnswer1 = 111,
};

constexpr char name[] = "IDD_KDL0001_MESSAGE_BOX";

class MessageBox : public testing::Test {
protected:
    MessageBox() {
        DataLogMessage message, notOpened;
        message.setCode(3000010);
        message.setLogging(3);
        message.setContents("%SESSION%を終了しますか？");
        message.setRestore("%SESSION%は保存されません。");
        notOpened.setCode(3000021);
        notOpened.setContents("開くことができません。(%FILE%)");
        DataLogMessageList list;
        list.add(message);
        list.add(notOpened);
        AppLogger::setMessageList(list);
        zelkova::setTitleParts("詳細-", "製品");
    }
    ~MessageBox() override {
        AppLogger::setMessageList({});
        zelkova::setTitleParts("", "");
    }
    static int run(zelkova::MessageButtons buttons, const std::function<void(WindowHandle)>& act,
                   int code = 3000010, int defaultButton = 0) {
        driver::Script script;
        script.expectDialog(name, act);
        zelkova::DataPairsList pairs;
        pairs.add("session", "デモ");
        const int result = zelkova::showMessage_pairs({}, code, buttons, defaultButton, pairs);
        EXPECT_THAT(script.faults(), IsEmpty());
        return result;
    }
};

TEST_F(MessageBox, ShowsTheFilledMessageAndItsDetailOnDemand) {
    run(zelkova::MessageButtons::Ok, [](WindowHandle box) {
        EXPECT_EQ(platform::getText(box), "詳細-製品");
        EXPECT_EQ(platform::getText({box, idCode}), "C3000010");
        EXPECT_EQ(platform::getText({box, idMessage}), "デモを終了しますか？");
        EXPECT_EQ(platform::getText({box, idDetail}), "デモは保存されません。");
        EXPECT_FALSE(platform::isVisible({box, idDetail}));
        EXPECT_EQ(platform::getText({box, idDetailButton}), "詳細表示(&D)");
        driver::settle();
        const int closed = platform::getRect(box).height;
        EXPECT_THAT(driver::clippedControls(box), IsEmpty());

        ASSERT_TRUE(driver::click({box, idDetailButton}));
        driver::settle();
        EXPECT_TRUE(platform::isVisible({box, idDetail}));
        EXPECT_EQ(platform::getText({box, idDetailButton}), "詳細非表示(&D)");
        EXPECT_GT(platform::getRect(box).height, closed);
        EXPECT_THAT(driver::clippedControls(box), IsEmpty());

        ASSERT_TRUE(driver::click({box, idDetailButton}));
        EXPECT_TRUE(driver::settleUntil([&] { return platform::getRect(box).height == closed; }));
        driver::click({box, idAnswer1});
    });
}

struct ButtonCase {
    zelkova::MessageButtons buttons;
    std::vector<std::string> labels;
    std::vector<int> results;
    int escape;
};

TEST_F(MessageBox, EachButtonHasItsNumber) {
    const ButtonCase cases[] = {
        {zelkova::MessageButtons::Ok, {"OK"}, {1}, 1},
        {zelkova::MessageButtons::OkCancel, {"OK", "ｷｬﾝｾﾙ"}, {1, 2}, 2},
        {zelkova::MessageButtons::YesNo, {"はい(&Y)", "いいえ(&N)"}, {6, 7}, 7},
        {zelkova::MessageButtons::YesNoCancel, {"はい(&Y)", "いいえ(&N)", "ｷｬﾝｾﾙ"}, {6, 7, 2}, 2},
    };
    for (const ButtonCase& row : cases) {
        for (int i = 0; i < static_cast<int>(row.results.size()); ++i) {
            const auto index = static_cast<std::size_t>(i);
            EXPECT_EQ(run(row.buttons,
                          [&](WindowHandle box) {
                              EXPECT_EQ(platform::getText({box, idAnswer1 + i}), row.labels[index]);
                              ASSERT_TRUE(driver::click({box, idAnswer1 + i}));
                          }),
                      row.results[index]);
            EXPECT_EQ(run(
                          row.buttons, [](WindowHandle box) { driver::pressKey(box, "Return"); }, 3000010, i),
                      row.results[index])
                << "the default button";
        }
        EXPECT_EQ(run(row.buttons,
                      [&](WindowHandle box) {
                          EXPECT_FALSE(driver::click({box, idAnswer1 + static_cast<int>(row.labels.size())}));
                          driver::pressKey(box, "Escape");
                      }),
                  row.escape);
    }
}

TEST_F(MessageBox, ANumberWithoutATextStillCloses) {
    EXPECT_EQ(run(
                  zelkova::MessageButtons::Ok,
                  [](WindowHandle box) {
                      EXPECT_EQ(platform::getText({box, idCode}), "C0000042");
                      EXPECT_EQ(platform::getText({box, idMessage}), "");
                      driver::click({box, idAnswer1});
                  },
                  42),
              1);
}

TEST_F(MessageBox, HelpOpensTheAddressThatStandsNow) {
    struct Row {
        const char *url, *opened;
    };
    const Row rows[] = {
        {"https://help.invalid/?code=%__SERCH_MESSAGE_CODE__%&x=1", "https://help.invalid/?code=3000010&x=1"},
        {"https://help.invalid/", "https://help.invalid/"},
    };
    std::string url;
    zelkova::setHelpUrl([&] { return url; });
    for (const Row& row : rows) {
        url = row.url;
        driver::Script script;
        script.expectDialog(name, [](WindowHandle box) {
            ASSERT_TRUE(driver::click({box, idHelp}));
            driver::click({box, idAnswer1});
        });
        script.expectOpen(row.opened);
        zelkova::showMessage({}, 3000010);
        EXPECT_THAT(script.faults(), IsEmpty());
    }
    zelkova::setHelpUrl({});
}

TEST_F(MessageBox, HelpThatCannotBeOpenedIsTold) {
    const std::pair<std::string, std::string> targets[] = {
        {"", ""},
        {"https://help.invalid/", "https://help.invalid/"},
        {"../hlp/index.html", zelkova::getFullPath("../hlp/index.html")}};
    for (const auto& [url, told] : targets) {
        zelkova::setHelpUrl([url = url] { return url; });
        driver::Script script;
        script.expectDialog(name, [](WindowHandle box) {
            ASSERT_TRUE(driver::click({box, idHelp}));
            driver::click({box, idAnswer1});
        });
        script.expectOpen(url, false);
        script.expectDialog(name, [told = told](WindowHandle box) {
            EXPECT_EQ(platform::getText({box, idCode}), "C3000021");
            EXPECT_EQ(platform::getText({box, idMessage}), "開くことができません。(" + told + ")");
            driver::click({box, idAnswer1});
        });
        zelkova::showMessage({}, 3000010);
        EXPECT_THAT(script.faults(), IsEmpty());
    }
    zelkova::setHelpUrl({});
}

TEST_F(MessageBox, ItsClassIsRegisteredAtTheFirstUse) {
    run(zelkova::MessageButtons::Ok, [](WindowHandle box) { driver::click({box, idAnswer1}); });
    platform::WindowClass taken;
    taken.name = "ZelkovaMessageBoxExtendExtended";
    EXPECT_FALSE(platform::registerWindowClass(taken));
}

TEST_F(MessageBox, ThePlainBoxFillsItsTextToo) {
    driver::Script script;
    script.expectMessageBox(platform::Answer::No,
                            [](const std::string& text) { EXPECT_EQ(text, "デモを終了しますか？"); });
    zelkova::DataPairsList pairs;
    pairs.add("SESSION", "デモ");
    EXPECT_EQ(
        zelkova::plainMessage({}, 3000010, pairs, platform::Buttons::YesNo, platform::SystemIcon::Question),
        platform::Answer::No);
    EXPECT_THAT(script.faults(), IsEmpty());
}

} // namespace
