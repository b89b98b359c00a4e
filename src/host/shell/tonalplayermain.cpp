#include "host/shell/tonalplayermain.h"

#include <clocale>
#include <exception>
#include <locale>
#include <vector>

#include "data/accesser_application.h"
#include "data/acs_log_message.h"
#include "data/app_logger.h"
#include "data/labels.h"
#include "data/log_message.h"
#include "editors/part_detail.h"
#include "editors/resource_detail.h"
#include "editors/resource_edit.h"
#include "foundation/path.h"
#include "foundation/views/message_box.h"
#include "host/shell/main_window.h"
#include "host/shell/server_events.h"
#include "host/state/host_log.h"
#include "host/state/host_state.h"
#include "host/state/overwrite_question.h"
#include "platform/dialog.h"
#include "platform/files.h"

namespace {

class Start {
public:
    explicit Start(const std::string& moduleFolder) : folder_(moduleFolder) {}

    // Strictly in this order; the answer is what went wrong on the way.
    std::vector<StartProblem> run(MainWnd& mainWnd) {
        preparePaths();
        loadSettings();
        loadMessages();
        openLog();
        handTitlesToBoxes();
        openCatalogue();
        nameStylesheets();
        lendEditors();
        createMainWindow(mainWnd);
        fillTrainingSession();
        writeDebug(host().dataApplication.settings());
        return problems_;
    }

private:
    void preparePaths();
    void loadSettings();
    void loadMessages();
    void openLog();
    void handTitlesToBoxes();
    void openCatalogue();
    void nameStylesheets();
    static void lendEditors();
    void createMainWindow(MainWnd& mainWnd);
    void fillTrainingSession();

    std::string path(const char* relative) const { return zelkova::normalizePath(folder_ + relative); }

    std::string folder_;
    std::vector<StartProblem> problems_;
};

void Start::preparePaths() {
    // Text stays Shift-JIS bytes and numbers keep their plain form, whatever the desktop's language is.
    std::locale::global(std::locale::classic());
    std::setlocale(LC_NUMERIC, "C");
    host().modulePath = folder_;
    host().effectPath = zelkova::normalizePath(folder_ + "../eft/");
    if (host().effectPath.empty() || host().effectPath.back() != '/') host().effectPath += "/";
    for (const char* wanted : {"../log/", "../cnf/", "../hst/"})
        platform::makeFolder(folder_ + wanted);
}

void Start::loadSettings() {
    const std::string file = path("../cnf/Config.xml");
    if (!zelkova::fileExists(file)) return;
    AccesserApplication accesser;
    if (!accesser.load(file, host().dataApplication))
        problems_.push_back({4000012, file, accesser.loadError()});
}

void Start::loadMessages() {
    AcsLogMessage accesser;
    const std::string file = path("../cnf/LogMessage.xml");
    if (accesser.open(file))
        accesser.read(host().logMessageList);
    else
        problems_.push_back({4000012, file, accesser.loadError()});
}

void Start::openLog() {
    HostState& state = host();
    state.logFileName = state.dataApplication.getLogFileName().empty()
                            ? path("../log/kdl_server.log")
                            : zelkova::normalizePath(state.dataApplication.getLogFileName());
    DataLogFile settings;
    settings.setLevel(levelFromText(state.dataApplication.getLogLevel()));
    settings.setFileName(state.logFileName);
    settings.setRollBackNumber(state.dataApplication.getLogRollBackNumber());
    settings.setRollFileSize(state.dataApplication.getLogRollFileSize());
    AppLogger::setMessageList(state.logMessageList);
    if (!AppLogger::configure(settings)) problems_.push_back({4000013, state.logFileName, ""});
    writeLog(2000001);
}

void Start::handTitlesToBoxes() {
    const DataApplication& settings = host().dataApplication;
    zelkova::setCatalogPath(path("../cnf/LogMessage.xml"));
    zelkova::setTitleParts(settings.getDetail() + "-", settings.getNameJpn());
    zelkova::setHelpUrl([] { return host().dataApplication.getHelpUrl(); });
}

void Start::openCatalogue() {
    HostState& state = host();
    state.accesserResource.setStylesheet("ResourceData.xsl");
    state.accesserResource.setOverwriteQuestion(mayOverwrite);
    const std::string file = catalogueInUse(state.dataApplication, path("../cnf/ResourceData.xml"));
    state.dataApplication.setResourceFileName(file);
    if (!state.accesserResource.open(file))
        problems_.push_back({4000012, file, state.accesserResource.loadError()});
}

void Start::nameStylesheets() {
    AccesserSession::setStylesheet(path("../cnf/SessionPrint.xsl"));
    // An absolute path begins with "/", which is the third slash of the address.
    const std::string history = path("../cnf/SessionHistory.xsl");
    AccesserSessionHistory::setStylesheet((history.starts_with("/") ? "file://" : "file:///") + history);
}

void Start::lendEditors() {
    host().questEditors.stage = [](platform::WindowHandle owner, DataSession& stage) {
        return dlgPartDetail(owner, StageMode::RunningSession, stage);
    };
    host().questEditors.songs = dlgResourceDetail;
    host().questEditors.song = [](platform::WindowHandle owner, int number) {
        return dlgResourceEdit(owner, number);
    };
}

void Start::createMainWindow(MainWnd& mainWnd) {
    struct ClassRow {
        const char* name;
        const char* menu;
    };
    static constexpr ClassRow classes[] = {{"MainWndClass", "IDM_KDL0101_MAINMENUE"},
                                           {"BaseWndClass", ""},
                                           {"ChildWndClass", ""},
                                           {"BaseWndClassPlayer", ""},
                                           {"ChildWndClassPlayer", ""}};
    for (const ClassRow& row : classes) {
        platform::WindowClass windowClass;
        windowClass.name = row.name;
        windowClass.menu = row.menu;
        windowClass.icon = "ICO_INTRO_SERVER";
        zelkova::Component::registerClass(windowClass);
    }
    platform::CreateParams params;
    params.title = host().dataApplication.getNameJpn();
    params.style = 0x02CF0000;
    mainWnd.create(params);
}

void Start::fillTrainingSession() {
    DataSession& training = host().trainingSession;
    training.clear();
    training.setName("特訓メニュー");
    training.setQuestNum(10);
    training.setRange(rangeIntro);
    training.setSpeed(speedNormal);
    training.setInterval(playTimeTenSeconds);
    training.setMulti(1);
}

void tellProblems(const std::vector<StartProblem>& problems) {
    const platform::WindowHandle owner = host().mainWindow;
    for (const StartProblem& problem : problems) {
        zelkova::DataPairsList pairs;
        pairs.add("FILE", problem.file);
        if (!problem.reason.empty()) pairs.add("MESSAGE", problem.reason);
        if (!AppLogger::getMessage(problem.code).getContents().empty()) {
            zelkova::reportMessage(owner, problem.code, pairs);
            continue;
        }
        // The texts themselves could not be read.
        writeLog(problem.code, pairs);
        platform::messageBox(owner, "メッセージの一覧を読み込めません。\r\n" + problem.file,
                             host().dataApplication.getNameJpn(), platform::Buttons::Ok,
                             platform::SystemIcon::Warning);
    }
}

// Log line and message 4000002.
void tellFault(const std::string& text, int returned) {
    zelkova::reportMessage(host().mainWindow, 4000002, {{"MESSAGE", text}, {"RETCODE", returned}});
}

int runLoop() {
    platform::Message message;
    for (;;) {
        const int result = platform::getMessage(message);
        if (result == -1) tellFault("GetMessage function error.", result);
        if (result <= 0) return static_cast<int>(message.wParam);
        platform::dispatchMessage(message);
    }
}

} // namespace

std::vector<StartProblem> init(MainWnd& mainWnd, const std::string& moduleFolder) {
    return Start(moduleFolder).run(mainWnd);
}

void openProgram(MainWnd& mainWnd, const std::string& moduleFolder) {
    const std::vector<StartProblem> problems = init(mainWnd, moduleFolder);
    mainWnd.show(true);
    mainWnd.update();
    tellProblems(problems);
}

int WinMain(const std::string& moduleFolder) {
    int exitCode = 1;
    try {
        MainWnd mainWnd;
        openProgram(mainWnd, moduleFolder);
        const LogRange loop("GetMessage");
        exitCode = runLoop();
    } catch (const std::exception& fault) {
        tellFault(fault.what(), -1);
    } catch (...) {
        tellFault("unknown exception", -1);
    }
    writeLog(2000002);
    host().userList.clear();
    return exitCode;
}
