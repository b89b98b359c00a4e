#include "e2e/desk.h"

#include <map>

#include "platform/menu.h"
#include "platform/sound.h"
#include "platform/window.h"

namespace e2e {

namespace driver = platform::driver;

namespace {

constexpr const char* endOfMessage = "\r\n.\r\n";

} // namespace

Desk::Desk()
    : clock_(std::in_place), program_(std::make_unique<test_support::Program>(platform::makeSilentDevice())) {
}

Desk::Desk(std::unique_ptr<platform::SoundDevice> device)
    : program_(std::make_unique<test_support::Program>(std::move(device))) {}

Desk::~Desk() {
    peer.reset();
    program_.reset();
    EXPECT_EQ(script.faults(), std::vector<std::string>());
}

void Desk::pass(int milliseconds) {
    if (clock_)
        clock_->advance(static_cast<std::uint32_t>(milliseconds));
    else
        driver::settleUntil([] { return false; }, milliseconds);
}

bool Desk::passUntil(const std::function<bool()>& condition, int limitMs) {
    return clock_ ? clock_->advanceUntil(condition, static_cast<std::uint32_t>(limitMs))
                  : driver::settleUntil(condition, limitMs);
}

void Desk::start() {
    program_->start(folder);
}

void Desk::openSession(const std::string& file, int message) {
    script.expectFileDialog(file);
    if (message != 0) expectMessage(message);
    ASSERT_TRUE(choose(ids::openSession));
    driver::settle();
}

void Desk::expectMessage(int code) {
    test_support::expectMessage(script, code);
}

void Desk::connect() {
    peer = std::make_unique<test_support::RawPeer>(folder.settings.getServerPort());
    ASSERT_TRUE(peer->connected());
    const VRMessage greeting = hear();
    EXPECT_EQ(greeting.getText("Reply"), "OPEN");
    EXPECT_EQ(greeting.getNumber("Code"), 201);
}

void Desk::announce(const std::string& names, int count) {
    const bool expected = stateName() == "INIT";
    say("USERNOTIFY", {"Max:" + std::to_string(count), "User:" + names});
    if (expected) {
        EXPECT_EQ(hear().getNumber("Code"), 200);
    }
    driver::settle();
}

std::string Desk::openShow(const std::vector<DataSession>& stages, const std::string& names, int count) {
    const std::string file = folder.writeSession("大会", stages);
    start();
    openSession(file);
    connect();
    announce(names, count);
    return file;
}

void Desk::endSession(const std::string& historyFile) {
    if (historyFile.empty()) {
        script.expectMessageBox(platform::Answer::No);
    } else {
        script.expectMessageBox(platform::Answer::Yes);
        script.expectFileDialog(historyFile);
    }
    ASSERT_TRUE(choose(ids::endSession));
    driver::settle();
}

void Desk::say(const std::string& method, const std::vector<std::string>& lines) {
    VRMessage message(method);
    message.setTarget("host");
    for (const std::string& line : lines) {
        const std::size_t colon = line.find(':');
        message.add(line.substr(0, colon), line.substr(colon + 1));
    }
    sayRaw(message.build(true));
}

void Desk::sayRaw(const std::string& bytes) {
    ASSERT_TRUE(peer->send(bytes));
    driver::settle();
}

void Desk::reply(const std::string& method, int code) {
    say("RESPONSE", {"Reply:" + method, "Code:" + std::to_string(code)});
}

void Desk::buzz(int user) {
    say("ANSREQ", {"UserNumber:" + std::to_string(user)});
}

VRMessage Desk::hear() {
    VRMessage message;
    const auto complete = [this] {
        heard_ += peer->receive();
        return heard_.find(endOfMessage) != std::string::npos;
    };
    if (!driver::settleUntil(complete, 3000)) {
        ADD_FAILURE() << "the host says nothing";
        return message;
    }
    const std::size_t end = heard_.find(endOfMessage) + std::string(endOfMessage).size();
    EXPECT_TRUE(message.parse(heard_.substr(0, end)));
    heard_.erase(0, end);
    return message;
}

bool Desk::silent() {
    driver::settle();
    heard_ += peer->receive();
    return heard_.empty();
}

bool Desk::choose(int command) {
    return driver::chooseMenu(host().mainWindow, command);
}

bool Desk::click(int control) {
    const bool reacted = driver::click({host().consolePane, control});
    driver::settle();
    return reacted;
}

void Desk::press(int button, const char* status) {
    EXPECT_TRUE(click(button)) << button;
    answerStatus(status);
}

void Desk::answerStatus(const char* status) {
    static const std::map<std::string, int> codes = {
        {"READY", 301}, {"PLAY", 302}, {"WAIT", 303}, {"PAUSE", 200}};
    EXPECT_EQ(hear().getText("Status"), status);
    reply("STATUSNOTIFY", codes.at(status));
}

void Desk::skip(int button) {
    EXPECT_TRUE(click(button)) << button;
    EXPECT_EQ(hear().getMethod(), "REVISION");
    reply("REVISION", 200);
}

std::string Desk::text(int control) const {
    return platform::getText({host().consolePane, control});
}

std::string Desk::stateName() const {
    return host().kdlState->getState()->getStateName();
}

bool Desk::live(int control) const {
    return platform::isEnabled({host().consolePane, control});
}

void Desk::playQuest() {
    press(ids::questStart, "READY");
    leadIn();
}

void Desk::leadIn() {
    ASSERT_TRUE(passUntil([this] { return stateName() == "PLAY"; }, 10000));
    answerStatus("PLAY");
    EXPECT_EQ(host().vrmStatus, 0);
    pass(300);
}

VRMessage Desk::judge(int user, int verdictRadio, bool cheer) {
    using namespace answer_request;
    script.expectDialog(form, [=](Form dialog) {
        EXPECT_FALSE(dialog.live(idOk));
        dialog.click(verdictRadio);
        if (dialog.checked(idCheer) != cheer) dialog.click(idCheer);
        dialog.click(idOk);
    });
    buzz(user);
    EXPECT_EQ(hear().getNumber("Code"), 200);
    VRMessage verdict = hear();
    EXPECT_EQ(verdict.getMethod(), "ANSRES");
    return verdict;
}

void Desk::expectLeave(int button) {
    script.expectDialog(answer_request::form, [=](Form dialog) { dialog.click(button); });
}

void Desk::showAnswers(int victim) {
    using namespace answer_display;
    EXPECT_EQ(hear().getMethod(), "DSPANS");
    script.expectDialog(form, [=](Form dialog) {
        if (victim >= 0) {
            int entry = platform::itemCount(dialog[idVictim]) - 1;
            const std::string name = host().userList[static_cast<std::size_t>(victim)].getName();
            while (entry >= 0 && platform::itemText(dialog[idVictim], entry) != name)
                --entry;
            dialog.select(idVictim, entry);
        }
        dialog.click(idOk);
    });
    reply("DSPANS", 200);
    EXPECT_EQ(hear().getMethod(), "REVISION");
}

void Desk::showAnswersAndGoOn(int victim) {
    showAnswers(victim);
    reply("REVISION", 200);
}

} // namespace e2e
