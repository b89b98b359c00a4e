#pragma once
// The session that the wizard makes, apart from its windows.

#include <string>
#include <vector>

#include "data/session_plan.h"

// SessionFile_0.xml of the folder or, where that is taken, the first free one of those that follow it.
std::string firstFreeSessionFile(const std::string& folder);

class SessionDraft {
public:
    std::string filePath;
    std::string sessionName;
    std::vector<DataSession> stages;

    // Takes name and file over. Where the file is there and its stages have not been taken over yet, they
    // replace those of the draft, and its voices come with them; a file that is to be made keeps what the
    // draft has. False, with the draft as it was, when the file cannot be read: the accesser tells why.
    bool choose(const std::string& name, const std::string& path, AccesserSession& accesser);

    std::int32_t total() const { return questCount(stages); }
    // Swaps the stage with the one `by` places further on; false when there is none.
    bool move(int stage, int by);

    // Puts the session in the file's place and empties the draft; on failure the file is as it was, and so is
    // the draft.
    bool write(AccesserSession& accesser, const platform::SystemTime& day);

private:
    std::string sessionVoice_, mcVoice_;
    std::string loadedPath_; // whose stages these are; "" while no file was read
};

// The songs were chosen for settings that the stage no longer has.
void forgetSongs(DataSession& stage);
