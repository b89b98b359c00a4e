#pragma once
// The sliding dictionary: reads a stream to its end and says it again as literals and matches of the last
// 32768 bytes (LZ77 as RFC 1951 section 4 describes it, greedy).

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <memory>

#include "documents/crc32.h"
#include "documents/match_index.h"

namespace HiSpeed_SlideDic {

// `Input` needs read(char* bytes, count) and gcount() as std::istream has them. The longest match is
// `longestMatch`; only the first byte of a match is entered in the index.
template <class Input, std::int32_t longestMatch>
class SDicEnc {
public:
    // Runs the whole input through `block`, which needs literal_put and match_len_put as BBlkOut has them,
    // and leaves its last block to the caller. What they throw comes through.
    template <class Block>
    SDicEnc(Input& input, Block& block) : input_(input) {
        fill();
        MatchIndex index(longestMatch, filled_);
        while (position_ < filled_) {
            const Match match = index.findAndEnter(dictionary_.get(), position_, filled_);
            if (match.length < shortestMatch) {
                block.literal_put(dictionary_[static_cast<std::size_t>(position_)]);
                advance(1, index);
            } else {
                block.match_len_put(match.length, match.distance);
                advance(match.length, index);
            }
        }
    }

    // Running CRC-32 of all that was read; its inverse is the checksum.
    std::uint32_t crc() const { return crc_; }

private:
    static constexpr std::int32_t windowSize = 65536;
    static constexpr std::int32_t slideBytes = MatchIndex::reach;
    static constexpr std::int32_t slideAt = windowSize - longestMatch; // the longest match lies in the window
    static constexpr std::int32_t shortestMatch = 3;

    void fill() {
        while (filled_ < windowSize) {
            unsigned char* const bytes = dictionary_.get() + filled_;
            input_.read(reinterpret_cast<char*>(bytes), windowSize - filled_);
            const auto count = static_cast<std::int32_t>(input_.gcount());
            if (count <= 0) break;
            crc_ = updateCrc32(crc_, bytes, static_cast<std::size_t>(count));
            filled_ += count;
        }
        std::fill_n(dictionary_.get() + filled_, MatchIndex::slack, static_cast<unsigned char>(0));
    }

    // A match is taken in one step; where it crosses the place of the slide, the index sees no difference,
    // for nothing is looked for in between.
    void advance(std::int32_t bytes, MatchIndex& index) {
        position_ += bytes;
        if (position_ < slideAt) return;
        position_ -= slideBytes;
        std::memcpy(dictionary_.get(), dictionary_.get() + slideBytes, slideBytes);
        index.slide();
        filled_ = std::max(filled_ - slideBytes, 0);
        fill();
    }

    Input& input_;
    // Never read behind what is filled but for the zeros that follow it.
    std::unique_ptr<unsigned char[]> dictionary_ =
        std::make_unique_for_overwrite<unsigned char[]>(windowSize + MatchIndex::slack);
    std::int32_t filled_ = 0;   // bytes of the dictionary that hold input
    std::int32_t position_ = 0; // now being coded
    std::uint32_t crc_ = 0xFFFFFFFF;
};

} // namespace HiSpeed_SlideDic
