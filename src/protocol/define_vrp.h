#pragma once
// The words of VRP, the text protocol between host and terminal (docs/protocol.md).

#include <string>
#include <string_view>

struct DefineVrp {
    static constexpr std::string_view PROTOCOL = "VRP";

    // Methods; compared as exact bytes.
    static constexpr std::string_view MDS_IAMHERE = "IAMHERE";
    static constexpr std::string_view MDS_USERNOTIFY = "USERNOTIFY";
    static constexpr std::string_view MDS_STATUSNOTIFY = "STATUSNOTIFY";
    static constexpr std::string_view MDS_ANSREQ = "ANSREQ";
    static constexpr std::string_view MDS_ANSRES = "ANSRES";
    static constexpr std::string_view MDS_DSPANS = "DSPANS";
    static constexpr std::string_view MDS_SESSIONINFO = "SESSIONINFO";
    static constexpr std::string_view MDS_REVISION = "REVISION";
    static constexpr std::string_view MDS_VICTORY = "VICTORY";
    static constexpr std::string_view MDS_RESPONSE = "RESPONSE";
    static constexpr std::string_view MDS_OPEN = "OPEN";
    static constexpr std::string_view MDS_CLOSE = "CLOSE";

    // Codes of a terminal's replies.
    enum Code : int {
        done = 200,
        showAnswers = 261, // to ANSRES: the quest is over
        leadIn = 301,      // to STATUSNOTIFY, as are the next: the sound before the question
        play = 302,        // the songs
        stop = 303,        // silence
    };

    // The sentence that goes with a reply's code; "" for a code without one.
    static std::string getReplyText(int code);
};
