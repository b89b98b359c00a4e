#include "documents/encode_zip.h"

#include <fstream>
#include <iostream>

#include "documents/zip_entries.h"
#include "documents/zipfile.h"

bool encodeZip(const std::string& inputPath, const std::string& outputPath, const std::string& basePath) {
    auto entries = ZIPFile::collectEntries(inputPath, outputPath);
    for (auto& entry : entries)
        entry.basePath = basePath;
    try {
        return ZIPFile::ZIPFileEnc<std::ifstream>().encode(std::move(entries), outputPath);
    } catch (const char* message) {
        std::cout << "program error.\n" << message << std::endl;
        return false;
    }
}
