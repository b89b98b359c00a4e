#pragma once
// The state of the host: one thread, one show, one record of everything that its windows and dialogs share.
// Process-wide beside it are the log, what start-up hands to the message boxes and to the makers of new files
// (their stylesheets), and what the platform layer keeps in the system's place: windows, timers, sockets,
// sound, names of files. The objects are built in the order they stand here, before the first window, and
// destroyed in reverse order after the last.

#include <array>
#include <memory>
#include <string>
#include <vector>

#include "data/accesser_resource.h"
#include "data/accesser_session.h"
#include "data/accesser_session_history.h"
#include "data/data_application.h"
#include "data/data_history.h"
#include "data/data_resource.h"
#include "data/data_session.h"
#include "data/data_user_info.h"
#include "data/log_message.h"
#include "foundation/data_pairs.h"
#include "foundation/media.h"
#include "host/state/kdl_state.h"
#include "host/state/sound_watch.h"
#include "platform/clock.h"
#include "protocol/server_vrp.h"

constexpr int maxSongs = 5; // songs that a quest can play at once

// Editors that the console opens on what it shows. They stand beside it, so the shell lends them at start-up.
struct QuestEditors {
    // Gives the stage of a running session other settings; 1 when it did, 0 when the stage stays as it was.
    int (*stage)(platform::WindowHandle owner, DataSession& stage) = nullptr;
    // Gives stages[index] other songs, also some that cannot be played: copies, to be thrown away then. A
    // SongCheck, or -1 when the stage stays as it was.
    int (*songs)(platform::WindowHandle owner, std::vector<DataSession>& stages, std::size_t index) = nullptr;
    // Edits a song of the catalogue. Whatever the result, it may have been stored.
    int (*song)(platform::WindowHandle owner, int number) = nullptr;
};

// A numbered message with what fills it; code 0 for none.
struct StatusMessage {
    int code = 0;
    zelkova::DataPairsList pairs = {};
};

struct HostState {
    // Windows of the console; none while there is no main window.
    platform::WindowHandle mainWindow, consolePane, dataPane;

    DataApplication dataApplication; // settings
    AccesserResource accesserResource;
    AccesserSession accesserSession;
    AccesserSessionHistory accesserSessionHistory;
    std::vector<DataSession> sessionList;       // the open session's stages, in file order
    DataSession dataSession;                    // the current quest's stage, with the host's edits
    std::vector<DataResource> dataResourceList; // the songs of the current quest
    std::vector<DataUserInfo> userList = std::vector<DataUserInfo>(maxUsers);
    DataLogMessageList logMessageList;

    zelkova::DataPairsList statePairs, answerPairs; // scratch lists

    // Records under construction, and those that are finished.
    DataHistory dataHistory;
    DataPartHistory dataPartHistory;
    DataSessionHistory dataSessionHistory;
    std::vector<DataHistory> historyList;
    std::vector<DataPartHistory> partHistoryList;

    std::array<zelkova::Media, maxSongs> questMedia;
    zelkova::Media voiceMedia; // only ever stopped
    zelkova::Media effectMedia, bgmMedia;
    std::array<int, maxSongs> playStart{}, playEnd{};        // milliseconds
    std::array<platform::WindowHandle, maxSongs> questCheck; // the console's check boxes

    QuestEditors questEditors;
    std::unique_ptr<KdlState> kdlState; // made and deleted by the main window
    std::unique_ptr<ServerVrp> server;  // none when no server runs

    std::string modulePath;  // folder of the executable, with a final separator
    std::string effectPath;  // folder of the program's sounds, with a final separator
    std::string logFileName; // the file in use, which may be the default one
    std::string sessionFileName, sessionName, sessionVoice, mcVoice;
    int curQuestNumber = 0;    // from 1; 0 when no session is open
    int allQuestNumber = 0;    // quests of all stages in sessionList
    int totalQuestNumber = 0;  // as the session file says
    int maxPart = 0;           // stages in the file
    int questsLeftInPart = 0;  // still to play in the stage that is being recorded
    int masterVolume = 50;     // 0 to 100
    int answerVolume = 50;     // of the answer display, kept from one opening to the next
    int editorVolume = 50;     // of the song editor, likewise; percent
    int playerVolume = 50;     // of the player window, likewise; percent
    int playerSpeed = 100;     // of the player window, likewise; percent of normal
    int requestUserId = -1;    // index of the user who last buzzed in
    std::string requestMethod; // the request that awaits its reply
    int vrmStatus = 0;         // 1 while a request of the host awaits its reply
    bool connectionFlg = false;
    bool endingSession = false;         // the command 出題の終了 is under way, its questions may be open
    std::string serverHost, clientHost; // dotted addresses, for the log
    int clientPort = 0;
    DataSession trainingSession; // settings of the training mode

    int playLimit = 0;         // milliseconds; -1 the whole range, -2 no limit
    int playElapsed = 0;       // milliseconds since the songs' first sound, counted in ticks
    int leadInEnd = 0;         // milliseconds
    SoundWatch leadInWatch;    // of the same sound
    bool songsStarted = false; // the terminal's 302 has started the songs of this play
    bool playersLent = false;  // the training plays on questMedia; the quest's songs wait until it is over
    bool hideScores = false;
    StatusMessage status, questWarning; // of the status bar: what was told last, and what stands over it
    platform::SystemTime sessionStartTime, sessionEndTime;
};

HostState& host();

// Takes the whole state down and builds it anew; boxes and new files lose what start-up gave them. Windows
// and server must be gone.
void resetHost();
