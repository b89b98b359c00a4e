#include "training/practice.h"

#include "foundation/text.h"
#include "training/training_mode.h"
#include "training/training_quests.h"

namespace training_tests {

namespace {

constexpr char windowName[] = "IDD_KDL0901_TRAINING_MODE";
constexpr char answerName[] = "IDD_KDL0902_ANSWER_CONFIRM";
constexpr char displayName[] = "IDD_KDL0103_ANSWERDSP";
constexpr char resultName[] = "IDD_KDL0903_TRAINING_MODE_RESULT";
constexpr char messageName[] = "IDD_KDL0001_MESSAGE_BOX";
constexpr int idResultOk = 9303, idCode = 102;

constexpr int jingleMs = 1500;

} // namespace

Practice::Practice() {
    resetHost();
    HostState& state = host();
    for (zelkova::Media& media : state.questMedia)
        media.create({});
    state.effectMedia.create({});
    state.bgmMedia.create({});
    fillCatalogue(state.accesserResource, folder, 12);
    state.trainingSession = settings(5);
    for (const auto& [name, setter] : {std::pair{"jingle", &DataApplication::setEfcQuestion},
                                       {"ng", &DataApplication::setEfcNg},
                                       {"ok", &DataApplication::setEfcOk},
                                       {"applause", &DataApplication::setEfcApplause},
                                       {"buzz", &DataApplication::setEfcRequest1},
                                       {"victory", &DataApplication::setEfcVectory}}) {
        const std::string file = folder.file(std::string(name) + ".wav");
        test_support::writeSilence(file, jingleMs);
        (state.dataApplication.*setter)(file);
    }
}

Practice::~Practice() {
    EXPECT_THAT(script.faults(), testing::IsEmpty());
    resetHost();
}

void Practice::train(const std::function<void()>& act) {
    script.expectDialog(windowName, [&](WindowHandle dialog) {
        window = dialog;
        act();
        driver::chooseMenu(window, idClose); // where the test has not closed it already
    });
    dlgTrainingMode({}, [this](WindowHandle, DataSession& session) { return settingsDialog(session); });
    window = {};
}

std::vector<int> Practice::liveButtons() const {
    std::vector<int> live;
    for (const int id : {idStart, idGiveUp, idReplay, idStop, idSkip, idAnswer})
        if (platform::isEnabled(control(id))) live.push_back(id);
    return live;
}

void Practice::startSongs() {
    press(idStart);
    ASSERT_TRUE(clock.advanceUntil([this] { return text(idStatus) == "演奏中"; }, 3000));
}

std::vector<int> Practice::correct(int quest) const {
    return questSongs(host().trainingSession, quest);
}

void Practice::expectDisplay(const std::function<void(WindowHandle)>& look) {
    script.expectDialog(displayName, [look](WindowHandle dialog) {
        if (look) look(dialog);
        EXPECT_TRUE(driver::click({dialog, idOk}));
    });
}

void Practice::expectAnswer(const std::vector<int>& numbers) {
    script.expectDialog(answerName, [numbers](WindowHandle dialog) {
        choose(dialog, numbers);
        EXPECT_TRUE(driver::click({dialog, idDecide}));
    });
}

void Practice::expectWrongAnswer(int quest) {
    script.expectDialog(answerName, [this, quest](WindowHandle dialog) {
        const platform::Control box{dialog, idAnswer1};
        const int rightNumber = correct(quest).front();
        const bool firstIsRight = zelkova::stringToInt(platform::itemText(box, 1)) == rightNumber;
        EXPECT_TRUE(driver::select(box, firstIsRight ? 2 : 1));
        EXPECT_TRUE(driver::click({dialog, idDecide}));
    });
}

void Practice::expectCancel() {
    script.expectDialog(answerName, [](WindowHandle dialog) {
        EXPECT_TRUE(driver::click({dialog, idCancel}));
    });
}

void Practice::expectMessage(int code) {
    script.expectDialog(messageName, [code](WindowHandle box) {
        EXPECT_EQ(platform::getText({box, idCode}), "C" + std::to_string(code));
        driver::pressKey(box, "Escape");
    });
}

void Practice::expectResult(const std::function<void(WindowHandle)>& look) {
    script.expectDialog(resultName, [look](WindowHandle dialog) {
        if (look) look(dialog);
        EXPECT_TRUE(driver::click({dialog, idResultOk}));
    });
}

void choose(WindowHandle dialog, const std::vector<int>& numbers) {
    int box = idAnswer1;
    for (const int number : numbers) {
        char head[16];
        std::snprintf(head, sizeof head, "%03d", number);
        int entry = 1;
        while (entry < platform::itemCount({dialog, box}) &&
               !platform::itemText({dialog, box}, entry).starts_with(std::string(head) + "："))
            ++entry;
        EXPECT_TRUE(driver::select({dialog, box}, entry)) << number << " is not offered";
        ++box;
    }
}

} // namespace training_tests
