#pragma once
// Packs a folder: an OpenDocument file is a zip archive of one.

#include <string>

// `inputPath` is a folder or a file; the names in the archive are relative to `basePath`. Both may end in a
// separator. The archive takes the place of an earlier one as a whole. Returns whether `outputPath` now holds
// it: false when there was nothing to pack, and, told by two lines on standard output, when it could not be
// written, is too large or lacks a file that is there; then what stood there still does.
bool encodeZip(const std::string& inputPath, const std::string& outputPath, const std::string& basePath);
