#pragma once
// What a sound file is and how long it plays, told from its own bytes. The name's extension is not asked, and
// nothing is decoded.

#include <filesystem>

#include "platform/sound/file_window.h"

namespace platform::sound {

enum class FileKind { None, Wav, Mp3, Wma, Midi };

// None for anything that cannot be read or does not start as one of the four kinds does.
FileKind fileKind(FileWindow& file);

// Milliseconds; 0 when the file's structure does not tell. MP3 files are walked frame by frame, since only
// that is right for a variable bit rate without an index.
int fileLength(FileWindow& file);

// Of each kind; the file is of that kind.
double wavSeconds(FileWindow& file);
double mp3Seconds(FileWindow& file);
double wmaSeconds(FileWindow& file);
double midiSeconds(FileWindow& file);

} // namespace platform::sound
