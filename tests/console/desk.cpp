#include "console/desk.h"

#include "console/player_board.h"
#include "data/app_logger.h"
#include "data/labels.h"
#include "foundation/text.h"
#include "host/state/console_ids.h"
#include "host/state/quest.h"
#include "platform/controls.h"
#include "support/test_sounds.h"

namespace console_tests {

namespace {

constexpr platform::Rect windowRect{0, 0, 1280, 720};
constexpr int paneWidth = 635;

void registerClasses() {
    static const bool once = [] {
        for (const char* name : {"DeskWndClass", "ChildWndClass"}) {
            platform::WindowClass windowClass;
            windowClass.name = name;
            zelkova::Component::registerClass(windowClass);
        }
        return true;
    }();
    static_cast<void>(once);
}

DataLogMessageList catalogueOfMessages() {
    DataLogMessage refusal;
    refusal.setCode(4000003);
    refusal.setLogging(4);
    refusal.setContents("%STATUS%:%EVENT%");
    DataLogMessageList list;
    list.add(refusal);
    return list;
}

} // namespace

Desk::Desk() {
    registerClasses();
    resetHost();
    AppLogger::setMessageList(catalogueOfMessages());
    host().accesserResource.open(folder.file("ResourceData.xml"));

    platform::CreateParams params;
    params.className = "DeskWndClass";
    params.rect = windowRect;
    params.style = platform::WS_VISIBLE;
    window = host().mainWindow = platform::createWindow(params);
    for (zelkova::Media& media : host().questMedia)
        media.create(window);
    host().effectMedia.create(window);
    host().bgmMedia.create(window);
    params = {};
    params.parent = window;
    params.style = platform::WS_CHILD | platform::WS_VISIBLE;
    params.rect = platform::Rect{0, 0, paneWidth, windowRect.height};
    left.create(params);
    params.rect = platform::Rect{paneWidth + 5, 0, paneWidth + 5, windowRect.height};
    right.create(params);
    host().kdlState = std::make_unique<KdlState>(host().consolePane);
    platform::driver::settle();
}

Desk::~Desk() {
    EXPECT_THAT(script.faults(), testing::IsEmpty());
    host().kdlState.reset();
    platform::destroyWindow(window);
    resetHost();
    AppLogger::setMessageList({});
}

int Desk::addSong(const std::string& title, const std::string& artist, bool withFile) {
    const std::string file =
        folder.file("song" + std::to_string(host().accesserResource.getMaxId() + 1) + ".wav");
    if (withFile) test_support::writeWav(file, test_support::tones({440, 880}));
    DataResource song;
    song.setTitle(title);
    song.setArtist(artist);
    song.setFileName(file);
    song.setFileType(fileTypeWav);
    song.setLength(20); // tenths of a second
    song.setAnsStart(5);
    song.setAnsEnd(15);
    return host().accesserResource.add(song);
}

void Desk::openSession(const std::vector<DataSession>& stages) {
    HostState& state = host();
    state.sessionList = stages;
    state.curQuestNumber = 1;
    for (const DataSession& stage : stages)
        state.allQuestNumber += stage.getQuestNum();
    questToSessionInfo(1, state.dataSession, state.dataResourceList);
    showQuest(state.sessionList, 1);
    showSessionName("デモ");
    fillQuestList();
    refreshUserPane();
    raiseEvents({EV_OPEN, EV_USER_NOTIFY});
}

void Desk::raiseEvents(const std::vector<int>& events) {
    for (const int event : events) {
        ASSERT_TRUE(host().kdlState->getState()->canHandle(event)) << event << " in " << state();
        host().kdlState->changeState(event);
    }
}

int Desk::answer(const char* form, const std::function<int()>& open, const std::function<void(Form)>& act) {
    script.expectDialog(form, act);
    const int result = open();
    EXPECT_TRUE(script.done());
    return result;
}

void Desk::chooseInRow(int row, int command) {
    script.expectMenu("IDM_KDL0101_QUESTMENUE", command);
    ASSERT_TRUE(driver::rightClickRow(data()[ids::questList], row));
    EXPECT_TRUE(script.done());
}

void Desk::setUser(int index, const std::string& name, int score, int answerRight) {
    DataUserInfo& user = host().userList[static_cast<std::size_t>(index)];
    user.setName(name);
    user.setScore(score);
    user.setAnswerRight(answerRight);
}

} // namespace console_tests
