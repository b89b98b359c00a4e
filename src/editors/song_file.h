#pragma once
// The file of a song, as adding it to the catalogue finds it: its kind by its name, its length by opening it.

#include <string>
#include <string_view>

#include "data/labels.h"
#include "foundation/media.h"
#include "platform/dialog.h"

struct SongFile {
    std::string name; // full path
    bool opened = false;
    bool measuring = false; // its length may still come
    int type = fileTypeNone;
    int length = 0; // in the position unit of its type

    bool isPlayable() const { return opened && !measuring && positionFactor(type) != 0; }
};

// By the extension: what stands behind the last "." of the file name when it holds no blank. A name without
// one is fileTypeNwav, a name with one that is not known fileTypeUnknown.
int fileTypeOfName(std::string_view path);
// The file's name without folder and extension; with it when there is nothing before it.
std::string stemOf(std::string_view path);

// What chooses music files.
platform::FileDialog songFileDialog();

// Puts the file into the player in place of what it held; nothing is playing afterwards. A file that does not
// open, or turns out to have no length, is fileTypeNone. Waits a moment, but not for a disk that has to wake
// up: such a file is still `measuring`.
SongFile openSongFile(zelkova::Media& media, const std::string& path);
// Brings a file that was still measuring up to date, without waiting. The player holds it.
void measureSongFile(zelkova::Media& media, SongFile& file);
