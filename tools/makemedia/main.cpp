// kdl-makemedia <source folder> <folder>
// Makes the sound effects (eft/), the demonstration songs (snd/), the catalogue and the quizzes (cnf/) there.

#include "makemedia/catalogue.h"
#include "makemedia/sessions.h"
#include "makemedia/studio.h"

#include <gst/gst.h>
#include <xercesc/util/PlatformUtils.hpp>

#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <mutex>
#include <thread>

namespace fs = std::filesystem;
using namespace makemedia;

namespace {

// One song at a time for each core. False when one failed.
bool recordAll(std::vector<Song>& songs, const fs::path& folder, std::string& error) {
    std::atomic<std::size_t> next = 0;
    std::atomic<bool> good = true;
    std::mutex mutex;
    const auto work = [&] {
        for (std::size_t i = next++; good && i < songs.size(); i = next++) {
            std::string problem;
            if (recordSong(songs[i], folder, problem)) continue;
            const std::scoped_lock lock(mutex);
            good = false;
            error = problem;
        }
    };
    std::vector<std::jthread> workers;
    for (unsigned i = 0; i < std::max(1U, std::thread::hardware_concurrency()); ++i)
        workers.emplace_back(work);
    workers.clear();
    return good;
}

void print(const Song& song, const fs::path& folder) {
    const auto& music = song.arrangement;
    const auto seconds = [](int milliseconds) { return milliseconds / 1000.0; };
    std::printf(
        "%3d  %-18s %6.1f s %5ju kB   intro %4.1f-%4.1f  chorus %4.1f-%4.1f  answer %4.1f-%4.1f  rms %.2f\n",
        song.score.number, song.fileName.c_str(), seconds(music.length),
        static_cast<std::uintmax_t>(fs::file_size(folder / song.fileName) / 1000), seconds(music.intro.start),
        seconds(music.intro.end), seconds(music.chorus.start), seconds(music.chorus.end),
        seconds(music.answer.start), seconds(music.answer.end), static_cast<double>(song.loudness.rms));
}

bool makeAll(const fs::path& source, const fs::path& tree, std::string& error) {
    for (const char* folder : {"eft", "snd", "cnf"})
        fs::create_directories(tree / folder);
    const int effects = recordEffects(source / "jingles", tree / "eft", error);
    if (effects == 0) return false;
    auto songs = loadSongs(source / "scores", error);
    if (songs.empty() || !recordAll(songs, tree / "snd", error)) return false;
    const auto quizzes = planQuizzes(songs, error);
    if (quizzes.empty() || !writeCatalogue(songs, tree / "cnf", error) ||
        !writeSessions(quizzes, tree / "cnf", error))
        return false;
    for (const auto& song : songs)
        print(song, tree / "snd");
    std::printf("%d effects, %zu songs, %zu quizzes\n", effects, songs.size(), quizzes.size());
    return true;
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fprintf(stderr, "usage: %s <source folder> <folder>\n", argv[0]);
        return EXIT_FAILURE;
    }
    gst_init(nullptr, nullptr);
    xercesc::XMLPlatformUtils::Initialize();
    std::string error;
    try {
        if (makeAll(fs::absolute(argv[1]), fs::absolute(argv[2]), error)) return EXIT_SUCCESS;
    } catch (const fs::filesystem_error& failure) {
        error = failure.what();
    }
    std::fprintf(stderr, "%s\n", error.c_str());
    return EXIT_FAILURE;
}
