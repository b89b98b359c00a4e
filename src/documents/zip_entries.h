#pragma once
// What goes into an archive of a folder.

#include <string>
#include <string_view>
#include <vector>

#include "documents/zipfileheader.h"

namespace ZIPFile {

// The files below a path, or the file that it names, depth first, byte-wise by name within a folder. A folder
// is an entry only when it is empty, and its name ends in "/". Names are full paths with "/"; sizes and times
// are those of the disk. A path that is not there gives none. Links to folders are not followed, for they may
// lead in circles, and neither devices nor `leftOut` (the archive itself) are taken, nor what is left of a
// file that was being replaced when the program was killed: one beside it, of its name, a dot and six letters
// or digits.
std::vector<ZIPFileHeader::ZIPHeadEnc::ZipHeader> collectEntries(std::string_view path,
                                                                 std::string_view leftOut);

// The entry's name without its base path and the separator behind it; "" for the base path itself.
std::string nameInArchive(const ZIPFileHeader::ZIPHeadEnc::ZipHeader& entry);

} // namespace ZIPFile
