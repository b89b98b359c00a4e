#pragma once
// Files that are added to the catalogue as they are, without the editor.

#include <optional>
#include <string>
#include <vector>

#include "data/accesser_resource.h"
#include "editors/file_index.h"
#include "editors/song_file.h"
#include "foundation/media.h"

// The work without its window, one file at a time, so that it can be stopped between two of them. Files that
// the catalogue has already and files that do not open are passed over. Entries reach the disk in groups.
class AddRest {
public:
    // Catalogue and index outlive the object.
    AddRest(AccesserResource& catalogue, FileIndex& index, std::vector<std::string> files);

    bool isOver() const { return next_ == files_.size(); }
    // The next file, or a look at whether its disk has woken up meanwhile. False when the catalogue cannot be
    // written: the work is over then, and what was added since the last writing is not there.
    bool step();
    // Writes what was added; as step.
    bool finish();

    int done() const { return static_cast<int>(next_); }
    int files() const { return static_cast<int>(files_.size()); }
    const std::string& file() const { return files_.at(next_); } // the next one, or that which is measured
    int added() const { return added_; }
    int known() const { return known_; }
    const std::vector<std::string>& failed() const { return failed_; } // those that did not open

private:
    // The next file as it stands in the player; none while it is still measured.
    std::optional<SongFile> open();

    AccesserResource& catalogue_;
    FileIndex& index_;
    const std::vector<std::string> files_;
    std::size_t next_ = 0;
    int added_ = 0, known_ = 0;
    std::vector<std::string> failed_;
    int unwritten_ = 0; // of the added, those in memory only
    zelkova::Media media_;
    std::optional<SongFile> measured_; // what the player holds until its length has come
};
