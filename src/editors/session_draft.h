#pragma once
// The session that the wizard makes, apart from its windows.

#include <optional>
#include <string>
#include <vector>

#include "data/session_plan.h"
#include "platform/files.h"

// SessionFile_0.xml of the folder or, where that is taken, the first free one of those that follow it.
std::string firstFreeSessionFile(const std::string& folder);

// The full path that is meant by what was typed: a relative one counts from the folder, a name that is not
// that of a file and lacks the extension of session files gets it. "" when nothing was typed.
std::string typedSessionFile(const std::string& typed, const std::string& folder);

class SessionDraft {
public:
    std::string filePath;
    std::string sessionName;
    std::vector<DataSession> stages;

    // Takes name and file over. Where the file is there and its stages have not been taken over yet, they
    // replace those of the draft, and its voices come with them; a file that is to be made keeps what the
    // draft has. False, with the draft as it was, when the file cannot be read: the accesser tells why.
    bool choose(const std::string& name, const std::string& path, AccesserSession& accesser);
    // To choose that file would put its stages in the place of some that were added or changed here.
    bool wouldLoseStages(const std::string& path) const;

    std::int32_t total() const { return questCount(stages); }
    // Swaps the stage with the one `by` places further on; false when there is none.
    bool move(int stage, int by);

    // Somebody else has made or changed the file since it was chosen or read.
    bool isChangedOnDisk() const;
    // Puts the session in the file's place and empties the draft; on failure the file is as it was, and so is
    // the draft.
    bool write(AccesserSession& accesser, const platform::SystemTime& day);

private:
    std::string sessionVoice_, mcVoice_;
    bool isLoaded(const std::string& path) const;

    // The file whose stages were taken over, and they as they were read; "" and none while no file was read.
    std::string loadedPath_;
    std::optional<platform::FileStamp> loadedStamp_;
    std::vector<DataSession> loadedStages_;
    std::optional<platform::FileStamp> expectedStamp_; // of `filePath` when it is written; none: not there
};

// The songs were chosen for settings that the stage no longer has.
void forgetSongs(DataSession& stage);
