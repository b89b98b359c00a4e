#include "training/practice.h"

#include "foundation/text.h"
#include "training/training_mode.h"
#include "training/training_quests.h"

namespace training_tests {

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
        test_support::writeSilence(file, 1500);
        (state.dataApplication.*setter)(file);
    }
}

Practice::~Practice() {
    EXPECT_THAT(script.faults(), testing::IsEmpty());
    resetHost();
}

void Practice::train(const std::function<void()>& act) {
    script.expectDialog(form, [&](Form dialog) {
        window = dialog;
        act();
        driver::chooseMenu(window, idClose); // where the test has not closed it already
    });
    dlgTrainingMode({},
                    [this](platform::WindowHandle, DataSession& session) { return settingsDialog(session); });
    window = {};
}

void Practice::startSongs() {
    window.click(idStart);
    ASSERT_TRUE(clock.advanceUntil([this] { return text(idStatus) == "演奏中"; }, 3000));
}

std::vector<int> Practice::correct(int quest) const {
    return questSongs(host().trainingSession, quest);
}

void Practice::expectDisplay(const std::function<void(Form)>& look) {
    script.expectDialog(answer_display::form, [look](Form dialog) {
        if (look) look(dialog);
        dialog.click(answer_display::idOk);
    });
}

void Practice::expectAnswer(const std::vector<int>& numbers) {
    script.expectDialog(answer_confirm::form, [numbers](Form dialog) {
        choose(dialog, numbers);
        dialog.click(answer_confirm::idDecide);
    });
}

void Practice::expectWrongAnswer(int quest) {
    script.expectDialog(answer_confirm::form, [this, quest](Form dialog) {
        const std::string first = platform::itemText(dialog[answer_confirm::idAnswer1], 1);
        const bool firstIsRight = zelkova::stringToInt(first) == correct(quest).front();
        dialog.select(answer_confirm::idAnswer1, firstIsRight ? 2 : 1);
        dialog.click(answer_confirm::idDecide);
    });
}

void Practice::expectCancel() {
    script.expectDialog(answer_confirm::form, [](Form dialog) { dialog.click(answer_confirm::idCancel); });
}

void Practice::expectTooFewSongs() {
    test_support::expectMessage(script, 3000008);
}

void Practice::expectResult(const std::function<void(Form)>& look) {
    script.expectDialog(training_result::form, [look](Form dialog) {
        if (look) look(dialog);
        dialog.click(training_result::idOk);
    });
}

void choose(Form dialog, const std::vector<int>& numbers) {
    int box = answer_confirm::idAnswer1;
    for (const int number : numbers) {
        int entry = platform::itemCount(dialog[box]);
        while (entry > 0 && zelkova::stringToInt(platform::itemText(dialog[box], entry)) != number)
            --entry;
        EXPECT_GT(entry, 0) << number << " is not offered";
        dialog.select(box++, entry);
    }
}

} // namespace training_tests
