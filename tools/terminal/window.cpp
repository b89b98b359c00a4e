#include "terminal/window.h"

#include "foundation/text.h"
#include "platform/controls.h"
#include "platform/window.h"

namespace terminal {

namespace {

constexpr const char* windowClass = "TerminalWindow";

// Controls of resources/dialogs/KDL_TERMINAL.ui; the last five are the first of four.
enum : int {
    statusLabel = 101,
    questLabel,
    stageLabel,
    rulesLabel,
    resultLabel,
    connectionLabel,
    nameLabel = 110,
    scoreLabel = 120,
    rankLabel = 130,
    rightLabel = 140,
    buzzButton = 150,
};

using platform::Color;

constexpr Color ink{0x15, 0x19, 0x1E}, quiet{0x6B, 0x74, 0x80}, white{0xFF, 0xFF, 0xFF};
constexpr Color green{0x1B, 0x7F, 0x4B}, red{0xB3, 0x26, 0x2E}, blue{0x1F, 0x5F, 0xA8},
    gold{0xF3, 0xC9, 0x4B};
constexpr Color pale{0xEE, 0xF1, 0xF5};

struct Caption {
    std::string_view status;
    const char* text;
    Color color;
};

constexpr Caption captions[] = {
    {"", "司会からの連絡を待っています", quiet},
    {"START", "出題はまだ始まっていません", quiet},
    {"INIT", "準備をしています", quiet},
    {"ENABLE", "次の問題を待っています", quiet},
    {"READY", "まもなく出題します", blue},
    {"PLAY", "出題中　わかったら解答ボタン！", green},
    {"WAIT", "解答を受け付けています", green},
    {"PAUSE", "一時停止しています", quiet},
    {"CONFIRM", "解答者が答えています", blue},
    {"DSP", "正解の発表です", blue},
    {"END", "結果発表", blue},
};

const Caption& captionOf(const std::string& status) {
    for (const Caption& caption : captions) {
        if (caption.status == status) return caption;
    }
    return captions[0];
}

struct Seat {
    const char* text;
    Color color, ground;
};

// By the user's right: not taking part, taking part, false start, sitting out.
constexpr Seat seats[] = {
    {"空席", quiet, pale},
    {"参加", ink, pale},
    {"お手つき", white, red},
    {"お休み", white, quiet},
};

std::string number(int value) {
    return zelkova::numberToText(value);
}

std::string joined(const std::vector<std::string>& parts, const char* separator) {
    std::string text;
    for (const std::string& part : parts)
        text += (text.empty() ? "" : separator) + part;
    return text;
}

} // namespace

Window::Window(const std::string& host, int port, const std::vector<std::string>& names)
    : address_(host + ":" + number(port)),
      client_({.changed = [this] { refresh(); }, .received = {}, .sent = {}, .connected = {}, .closed = {}}) {
    platform::registerWindowClass({.name = windowClass, .proc = windowProc, .menu = {}, .icon = {}});
    platform::CreateParams params;
    params.className = windowClass;
    params.title = "クイズ端末";
    params.rect = platform::Rect{40, 40, 960, 560};
    window_ = platform::createWindow(params);
    platform::setUserData(window_, this);
    platform::loadTemplate(window_, "KDL_TERMINAL");
    if (!names.empty()) client_.setUsers(names);
    client_.setReconnect(true);
    client_.connect(host, port);
    refresh();
    platform::showWindow(window_, true);
}

Window::~Window() {
    platform::setUserData(window_, nullptr);
    platform::destroyWindow(window_);
}

platform::LResult Window::windowProc(platform::WindowHandle window, unsigned message, platform::WParam wParam,
                                     platform::LParam lParam) {
    if (auto* self = static_cast<Window*>(platform::getUserData(window))) {
        const int id = static_cast<int>(platform::lowWord(wParam));
        if (message == platform::WM_COMMAND && id >= buzzButton && id < buzzButton + maxUsers)
            self->client_.buzz(id - buzzButton);
        if (message == platform::WM_DESTROY) platform::postQuitMessage(0);
    }
    return platform::defWindowProc(window, message, wParam, lParam);
}

void Window::refresh() {
    const Model& model = client_.model();
    const Caption& caption = captionOf(model.status());
    const bool connected = client_.isConnected();
    platform::setText({window_, statusLabel}, connected ? caption.text : "司会のプログラムに接続しています");
    platform::setTextColor({window_, statusLabel}, connected ? caption.color : quiet);
    platform::setText({window_, connectionLabel}, (connected ? "接続済み " : "接続待ち ") + address_);

    const bool quest = connected && model.quest() > 0;
    platform::setText({window_, questLabel},
                      quest ? "第" + number(model.quest()) + "問 / 全" + number(model.maxQuest()) + "問"
                            : "");
    platform::setText({window_, stageLabel}, quest ? model.stage() : "");
    std::vector<std::string> rules;
    if (quest) {
        rules.push_back(number(model.points()) + "点");
        if (model.songsAtOnce() > 1) rules.push_back("同時" + number(model.songsAtOnce()) + "曲");
        if (model.steals()) rules.push_back("横取りあり");
    }
    platform::setText({window_, rulesLabel}, joined(rules, "　"));
    platform::setText({window_, resultLabel}, resultText());
    platform::setBackColor({window_, resultLabel}, model.winners().empty() ? pale : gold);
    platform::setTextColor({window_, resultLabel}, model.verdict() == Verdict::Wrong ? red : ink);
    for (int user = 0; user < maxUsers; ++user)
        refreshSeat(user);
}

void Window::refreshSeat(int index) {
    const Model& model = client_.model();
    const User& user = model.users()[static_cast<std::size_t>(index)];
    const bool present = user.right >= 1 && user.right <= 3;
    Seat seat = seats[present ? user.right : 0];
    std::string text = seat.text;
    if (user.right == 2 && user.rest > 0) text += "（残り" + number(user.rest) + "問）";
    if (model.answering() == index) {
        seat = {"解答権", white, blue};
        text = seat.text;
    }

    platform::setText({window_, nameLabel + index}, user.name);
    platform::setText({window_, scoreLabel + index}, !present         ? ""
                                                     : user.type == 1 ? "？"
                                                                      : number(user.score));
    platform::setTextColor({window_, scoreLabel + index}, user.score < 0 ? red : ink);
    platform::setText({window_, rankLabel + index},
                      present && user.rank > 0 && user.type != 1 ? number(user.rank) + "位" : "");
    platform::setText({window_, rightLabel + index}, text);
    platform::setTextColor({window_, rightLabel + index}, seat.color);
    platform::setBackColor({window_, rightLabel + index}, seat.ground);
    platform::enable({window_, buzzButton + index}, client_.isConnected() && model.mayBuzz(index));
}

std::string Window::resultText() const {
    const Model& model = client_.model();
    std::vector<std::string> names;
    for (const int user : model.winners())
        names.push_back(model.users()[static_cast<std::size_t>(user)].name);
    if (!names.empty()) return "優勝　" + joined(names, "、");

    std::vector<std::string> parts;
    if (model.verdict() == Verdict::Right) parts.emplace_back("○ 正解！");
    if (model.verdict() == Verdict::Wrong) parts.emplace_back("× 不正解");
    std::vector<std::string> songs;
    for (const auto& [title, artist] : model.answers())
        songs.push_back("「" + title + "」" + artist);
    if (!songs.empty()) parts.push_back(joined(songs, "、"));
    return joined(parts, "　");
}

} // namespace terminal
