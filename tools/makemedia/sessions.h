#pragma once
// The demonstration quizzes.

#include "data/data_session.h"
#include "makemedia/studio.h"

#include <filesystem>
#include <string>
#include <vector>

namespace makemedia {

struct Quiz {
    std::string name; // Shift-JIS, as are the stages
    std::vector<DataSession> stages;
};

// Empty, with `error` set, when a quiz asks for a song that is not among these.
std::vector<Quiz> planQuizzes(const std::vector<Song>& songs, std::string& error);

// Writes SessionFile_0.xml and so on, or gives false with `error` set.
bool writeSessions(const std::vector<Quiz>& quizzes, const std::filesystem::path& folder, std::string& error);

} // namespace makemedia
