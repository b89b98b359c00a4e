#include "foundation/views/message_box.h"

#include "data/app_logger.h"
#include "foundation/path.h"
#include "platform/window.h"
#include "support/form.h"

namespace {

namespace driver = platform::driver;
using namespace message_box;
using test_support::Form;
using testing::ElementsAre;
using testing::IsEmpty;

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
    static int run(zelkova::MessageButtons buttons, const std::function<void(Form)>& act, int code = 3000010,
                   int defaultButton = 0) {
        driver::Script script;
        script.expectDialog(form, act);
        zelkova::DataPairsList pairs;
        pairs.add("session", "デモ");
        const int result = zelkova::showMessage_pairs({}, code, buttons, defaultButton, pairs);
        EXPECT_THAT(script.faults(), IsEmpty());
        return result;
    }
};

TEST_F(MessageBox, ShowsTheFilledMessageAndItsDetailOnDemand) {
    run(zelkova::MessageButtons::Ok, [](Form box) {
        EXPECT_EQ(box.title(), "詳細-製品");
        EXPECT_THAT(
            box.texts({idCode, idMessage, idDetail, idDetailButton}),
            ElementsAre("C3000010", "デモを終了しますか？", "デモは保存されません。", "詳細表示(&D)"));
        EXPECT_FALSE(box.visible(idDetail));
        EXPECT_THAT(box.cut(), IsEmpty());
        const int closed = platform::getRect(box).height;

        box.click(idDetailButton);
        EXPECT_THAT(box.cut(), IsEmpty());
        EXPECT_TRUE(box.visible(idDetail));
        EXPECT_EQ(box.text(idDetailButton), "詳細非表示(&D)");
        EXPECT_GT(platform::getRect(box).height, closed);

        box.click(idDetailButton);
        EXPECT_TRUE(driver::settleUntil([&] { return platform::getRect(box).height == closed; }));
        box.click(idAnswer1);
    });
}

TEST_F(MessageBox, EachButtonHasItsNumber) {
    using enum platform::Buttons;
    const struct {
        zelkova::MessageButtons buttons;
        std::vector<std::string> labels;
        std::vector<int> results;
        int escape;
    } rows[] = {
        {Ok, {"OK"}, {1}, 1},
        {OkCancel, {"OK", "ｷｬﾝｾﾙ"}, {1, 2}, 2},
        {YesNo, {"はい(&Y)", "いいえ(&N)"}, {6, 7}, 7},
        {YesNoCancel, {"はい(&Y)", "いいえ(&N)", "ｷｬﾝｾﾙ"}, {6, 7, 2}, 2},
    };
    for (const auto& row : rows) {
        const auto count = static_cast<int>(row.results.size());
        for (int i = 0; i < count; ++i) {
            const auto click = [&](Form box) {
                EXPECT_EQ(box.text(idAnswer1 + i), row.labels[static_cast<std::size_t>(i)]);
                box.click(idAnswer1 + i);
            };
            const auto enter = [](Form box) { box.key("Return"); };
            EXPECT_EQ(run(row.buttons, click), row.results[static_cast<std::size_t>(i)]);
            EXPECT_EQ(run(row.buttons, enter, 3000010, i), row.results[static_cast<std::size_t>(i)])
                << "the default button";
        }
        const auto escape = [&](Form box) {
            EXPECT_FALSE(driver::click(box[idAnswer1 + count]));
            box.key("Escape");
        };
        EXPECT_EQ(run(row.buttons, escape), row.escape);
    }
}

TEST_F(MessageBox, ANumberWithoutATextStillCloses) {
    const auto act = [](Form box) {
        EXPECT_THAT(box.texts({idCode, idMessage}), ElementsAre("C0000042", ""));
        box.click(idAnswer1);
    };
    EXPECT_EQ(run(zelkova::MessageButtons::Ok, act, 42), 1);
}

TEST_F(MessageBox, HelpOpensTheAddressThatStandsNow) {
    const struct {
        const char *url, *opened;
    } rows[] = {
        {"https://help.invalid/?code=%__SERCH_MESSAGE_CODE__%&x=1", "https://help.invalid/?code=3000010&x=1"},
        {"https://help.invalid/", "https://help.invalid/"},
    };
    std::string url;
    zelkova::setHelpUrl([&] { return url; });
    for (const auto& row : rows) {
        url = row.url;
        driver::Script script;
        script.expectDialog(form, [](Form box) {
            box.click(idHelp);
            box.click(idAnswer1);
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
        {"../hlp/index.html", zelkova::normalizePath("../hlp/index.html")}};
    for (const auto& [url, told] : targets) {
        zelkova::setHelpUrl([url = url] { return url; });
        driver::Script script;
        script.expectDialog(form, [](Form box) {
            box.click(idHelp);
            box.click(idAnswer1);
        });
        script.expectOpen(url, false);
        script.expectDialog(form, [told = told](Form box) {
            EXPECT_EQ(box.text(idCode), "C3000021");
            EXPECT_EQ(box.text(idMessage), "開くことができません。(" + told + ")");
            box.click(idAnswer1);
        });
        zelkova::showMessage({}, 3000010);
        EXPECT_THAT(script.faults(), IsEmpty());
    }
    zelkova::setHelpUrl({});
}

TEST_F(MessageBox, ItsClassIsRegisteredAtTheFirstUse) {
    run(zelkova::MessageButtons::Ok, [](Form box) { box.click(idAnswer1); });
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
