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
    int type = fileTypeNone;
    int length = 0; // in the position unit of its type

    bool isPlayable() const { return opened && positionFactor(type) != 0; }
};

// By the extension: what stands behind the last "." of the file name when it holds no blank. A name without
// one is fileTypeNwav, a name with one that is not known fileTypeUnknown.
int fileTypeOfName(std::string_view path);
// The file's name without folder and extension; with it when there is nothing before it.
std::string stemOf(std::string_view path);

// What chooses music files.
platform::FileDialog songFileDialog();

// Puts the file into the player in place of what it held. A file that does not open, or has no length, is
// fileTypeNone; nothing is playing afterwards.
SongFile openSongFile(zelkova::Media& media, const std::string& path);
