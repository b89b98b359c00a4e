#pragma once
// A folder as the program finds it around its executable, gone at the end: settings that let it run on a free
// port, the shipped messages, silent effects, and the songs and sessions that are added.

#include <optional>
#include <string>
#include <vector>

#include "data/data_application.h"
#include "data/data_resource.h"
#include "data/data_session.h"
#include "support/stage.h"
#include "support/temporary_folder.h"

namespace test_support {

class ProgramFolder : public TemporaryFolder {
public:
    ProgramFolder();

    // What `init` of the program is given.
    std::string moduleFolder() const { return file("bin/"); }

    DataApplication settings;
    void writeSettings() const; // to cnf/Config.xml
    // From now on Config.xml is this instead; without bytes there is none.
    void keepSettings(std::optional<std::string> bytes);

    // Makes a file of silence for the song and gives the song's number in the catalogue.
    int addSong(const std::string& title, const std::string& artist, int lengthMs = 60000);
    // Appends the records to the catalogue as they are.
    void addSongs(const std::vector<DataResource>& songs);
    // Writes cnf/<name>.xml with these stages and gives its path.
    std::string writeSession(const std::string& name, const std::vector<DataSession>& stages);

private:
    bool settingsKept_ = false;
    std::string catalogue() const { return file("cnf/ResourceData.xml"); }
};

} // namespace test_support
