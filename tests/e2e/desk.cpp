#include "e2e/desk.h"

#include <gtest/gtest.h>

#include "host/state/console_ids.h"
#include "platform/controls.h"
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
    ASSERT_TRUE(driver::chooseMenu(host().mainWindow, ids::openSession));
    driver::settle();
}

void Desk::expectMessage(int code) {
    script.expectDialog("IDD_KDL0001_MESSAGE_BOX", [code](platform::WindowHandle dialog) {
        std::string seen;
        for (const platform::WindowHandle child : platform::getChildren(dialog))
            seen += platform::getText(child) + "\n";
        EXPECT_NE(seen.find("C" + std::to_string(code)), std::string::npos) << seen;
        driver::pressKey(dialog, "Escape");
    });
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

void Desk::endSession(const std::string& historyFile) {
    if (historyFile.empty()) {
        script.expectMessageBox(platform::Answer::No);
    } else {
        script.expectMessageBox(platform::Answer::Yes);
        script.expectFileDialog(historyFile);
    }
    ASSERT_TRUE(driver::chooseMenu(host().mainWindow, ids::endSession));
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

bool Desk::click(int control) {
    const bool reacted = driver::click({host().consolePane, control});
    driver::settle();
    return reacted;
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
    ASSERT_TRUE(click(ids::questStart));
    EXPECT_EQ(hear().getText("Status"), "READY");
    reply("STATUSNOTIFY", 301);
    leadIn();
}

void Desk::leadIn() {
    ASSERT_TRUE(passUntil([this] { return stateName() == "PLAY"; }, 10000));
    EXPECT_EQ(hear().getText("Status"), "PLAY");
    reply("STATUSNOTIFY", 302);
    EXPECT_EQ(host().vrmStatus, 0);
    pass(300);
}

void Desk::judge(int verdictRadio, bool cheer) {
    script.expectDialog("IDD_KDL0102_REQUEST", [=](platform::WindowHandle dialog) {
        EXPECT_FALSE(platform::isEnabled({dialog, 1211}));
        EXPECT_TRUE(driver::click({dialog, verdictRadio}));
        if (platform::isChecked({dialog, 1219}) != cheer) driver::click({dialog, 1219});
        EXPECT_TRUE(driver::click({dialog, 1211}));
    });
}

void Desk::showAnswersAndGoOn(int victim) {
    EXPECT_EQ(hear().getMethod(), "DSPANS");
    script.expectDialog("IDD_KDL0103_ANSWERDSP", [=](platform::WindowHandle dialog) {
        if (victim >= 0) {
            int entry = -1;
            const std::string name = host().userList[static_cast<std::size_t>(victim)].getName();
            for (int i = 0; i < platform::itemCount({dialog, 1311}); ++i)
                if (platform::itemText({dialog, 1311}, i) == name) entry = i;
            EXPECT_TRUE(driver::select({dialog, 1311}, entry)) << name;
        }
        EXPECT_TRUE(driver::click({dialog, 1315}));
    });
    reply("DSPANS", 200);
    EXPECT_EQ(hear().getMethod(), "REVISION");
    reply("REVISION", 200);
}

} // namespace e2e
