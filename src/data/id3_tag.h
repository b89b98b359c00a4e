#pragma once

#include <optional>
#include <string>

// The tag at the end of a music file, ID3v1 as music files carry it: "TAG", then fields of fixed width. Texts
// are the file's own bytes up to their first NUL.
struct Id3Tag {
    std::string title, artist, album; // 30 bytes at most
    std::string year;                 // 4
    std::string comment;              // 30
    int genre = 0;                    // genreFromId3
};

// None when the file has no tag or cannot be read.
std::optional<Id3Tag> readId3Tag(const std::string& path);
