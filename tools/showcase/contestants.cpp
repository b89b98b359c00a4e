#include "showcase/contestants.h"

#include <memory>

#include "host/state/console_ids.h"
#include "host/state/host_state.h"
#include "platform/driver.h"
#include "showcase/desk.h"
#include "terminal/window.h"

namespace showcase {

namespace {

namespace driver = platform::driver;

} // namespace

std::vector<Step> contestantsView(Road& road, const std::string& session) {
    const auto screen = std::make_shared<std::unique_ptr<terminal::Window>>();
    return {
        {"もう一度、出題の開始", deskIsFree, [] { driver::chooseMenu(host().mainWindow, ids::openSession); }},
        {"出題ファイルを選ぶ", dialogIs("open file"), [session] { driver::answerFileDialog(session); }},
        {"端末", [] { return inState("INIT"); },
         [screen] {
             *screen =
                 std::make_unique<terminal::Window>("127.0.0.1", host().dataApplication.getServerPort(),
                                                    std::vector<std::string>{"青木", "馬場", "千葉", "土井"});
         }},
        {"出題開始", [] { return inState("ENABLE"); },
         [] {
             driver::click({host().consolePane, ids::questStart});
         }},
        {"端末の画面", [] { return inState("PLAY") && host().songsStarted; },
         [&road, screen] {
             driver::settle();
             road.picture((*screen)->handle(), "terminal");
             driver::chooseMenu(host().mainWindow, ids::endSession);
         }},
        {"履歴は保存しない", dialogIs("message box"), [] { driver::answerMessageBox(platform::Answer::No); }},
        {"端末を片付ける", deskIsFree, [screen] { screen->reset(); }},
    };
}

} // namespace showcase
