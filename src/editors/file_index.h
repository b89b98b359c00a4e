#pragma once

#include <map>
#include <string>

#include "data/accesser_resource.h"

// Which entry of the catalogue has a file: read from the catalogue once, for as many files as are looked for.
// Folders are compared by their names alone, and case does not count, as in look-ups on the disk; only where
// the disk has both of two names that differ in it, they are two files.
class FileIndex {
public:
    // The catalogue outlives the index.
    explicit FileIndex(const AccesserResource& catalogue);

    // The lowest number of an entry that has the file; 0 when there is none.
    int find(const std::string& path) const;
    // The entry is new, or has another file than before.
    void note(int number);

private:
    void note(const DataResource& song) { numbers_.emplace(keyOf(song.getFileName()), song.getNo()); }
    static std::string keyOf(const std::string& path);

    const AccesserResource& catalogue_;
    std::multimap<std::string, int> numbers_; // also of files that entries had before
};
