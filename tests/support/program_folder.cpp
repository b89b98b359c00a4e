#include "support/program_folder.h"

#include <filesystem>

#include "data/accesser_application.h"
#include "data/accesser_resource.h"
#include "data/accesser_session.h"
#include "data/labels.h"
#include "platform/files.h"
#include "platform/socket.h"
#include "support/test_sounds.h"

namespace test_support {

namespace fs = std::filesystem;

namespace {

int freePort() {
    const platform::SocketHandle probe = platform::createTcpSocket();
    platform::bindSocket(probe, 0);
    const int port = platform::boundPort(probe);
    platform::closeSocket(probe);
    return port;
}

} // namespace

ProgramFolder::ProgramFolder() {
    for (const char* name : {"bin", "cnf", "eft", "hst", "log", "snd"})
        fs::create_directory(path() / name);
    fs::copy_file(fs::path(KDL_SOURCE_DIR) / "dist/cnf/LogMessage.xml", file("cnf/LogMessage.xml"));
    const std::string jingle = file("eft/jingle.wav");
    writeSilence(jingle, 1500);

    settings.setNameJpn("イントロクイズ");
    settings.setServerPort(freePort());
    settings.setLogLevel("DEBUG");
    settings.setResourceFileName(catalogue());
    settings.setSessionFileName(file("cnf"));
    for (const auto setter :
         {&DataApplication::setEfcQuestion, &DataApplication::setEfcOk, &DataApplication::setEfcNg,
          &DataApplication::setEfcRequest1, &DataApplication::setEfcRequest2,
          &DataApplication::setEfcRequest3, &DataApplication::setEfcRequest4,
          &DataApplication::setEfcApplause, &DataApplication::setEfcApplause2,
          &DataApplication::setEfcVectory, &DataApplication::setSteal})
        (settings.*setter)(jingle);
}

void ProgramFolder::keepSettings(std::optional<std::string> bytes) {
    settingsKept_ = true;
    if (bytes) platform::replaceFile(file("cnf/Config.xml"), *bytes);
}

void ProgramFolder::writeSettings() const {
    if (settingsKept_) return;
    AccesserApplication().save(file("cnf/Config.xml"), settings);
}

int ProgramFolder::addSong(const std::string& title, const std::string& artist, int lengthMs) {
    AccesserResource accesser;
    accesser.open(catalogue());
    DataResource song;
    const std::string sound = file("snd/" + std::to_string(accesser.getMaxId() + 1) + ".wav");
    writeSilence(sound, lengthMs);
    song.setTitle(title);
    song.setArtist(artist);
    song.setFileName(sound);
    song.setFileType(fileTypeWav);
    song.setLength(lengthMs / 100);
    song.setIntroStart(0);
    song.setIntroEnd(100);
    song.setAnsStart(200);
    song.setAnsEnd(210);
    const int number = accesser.add(song);
    accesser.commit();
    return number;
}

void ProgramFolder::addSongs(const std::vector<DataResource>& songs) {
    AccesserResource accesser;
    accesser.open(catalogue());
    for (const DataResource& song : songs)
        accesser.add(song);
    accesser.commit();
}

std::string ProgramFolder::writeSession(const std::string& name, const std::vector<DataSession>& stages) {
    const std::string written = file("cnf/" + name + ".xml");
    AccesserSession session;
    session.open(written);
    session.setSessionName(name);
    int total = 0;
    for (const DataSession& one : stages) {
        session.addPart(one);
        total += one.getQuestNum();
    }
    session.setTotal(total);
    session.save();
    return written;
}

} // namespace test_support
