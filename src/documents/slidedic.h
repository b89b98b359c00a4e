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

// What one input needs of memory; the next one uses it again.
template <class Index>
struct BasicWorkspace {
    static constexpr std::int32_t windowSize = Index::windowSize;

    // Never read behind what is filled but for the zeros that follow it.
    std::unique_ptr<unsigned char[]> window =
        std::make_unique_for_overwrite<unsigned char[]>(windowSize + Index::slack);
    Index index;
};
using Workspace = BasicWorkspace<MatchIndex>;

// `Input` needs read(char* bytes, count) and gcount() as std::istream has them. The longest match is
// `longestMatch`; only the first byte of a match is entered in the index.
template <class Input, std::int32_t longestMatch, class Index = MatchIndex>
class SDicEnc {
    static_assert(longestMatch <= Index::longest);

public:
    // Runs the whole input through `block`, which needs literal_put and match_len_put as BBlkOut has them,
    // and leaves its last block to the caller. What they throw comes through.
    template <class Block>
    SDicEnc(Input& input, Block& block, BasicWorkspace<Index>& workspace)
        : input_(input), dictionary_(workspace.window.get()), index_(workspace.index) {
        fill();
        index_.begin(longestMatch, filled_);
        code(block);
        while (position_ >= slideAt) {
            slide();
            code(block);
        }
    }

    // Running CRC-32 of all that was read; its inverse is the checksum.
    std::uint32_t crc() const { return crc_; }

private:
    static constexpr std::int32_t windowSize = Index::windowSize;
    static constexpr std::int32_t slideBytes = Index::reach;
    static constexpr std::int32_t slideAt = windowSize - longestMatch; // the longest match lies in the window

    void fill() {
        while (filled_ < windowSize) {
            unsigned char* const bytes = dictionary_ + filled_;
            input_.read(reinterpret_cast<char*>(bytes), windowSize - filled_);
            const auto count = static_cast<std::int32_t>(input_.gcount());
            if (count <= 0) break;
            crc_ = updateCrc32(crc_, bytes, static_cast<std::size_t>(count));
            filled_ += count;
        }
        std::fill_n(dictionary_ + filled_, Index::slack, static_cast<unsigned char>(0));
    }

    // Up to the end of the input or to where the window has to slide. The position is a local variable, for
    // each step waits for it, and registers are quicker than the memory.
    template <class Block>
    void code(Block& block) {
        const std::int32_t stop = std::min(filled_, slideAt);
        std::int32_t position = position_;
        while (position < stop) {
            const Match match = index_.findAndEnter(dictionary_, position, filled_);
            if (match.length == 0) {
                block.literal_put(dictionary_[position]);
                ++position;
            } else {
                block.match_len_put(match.length, match.distance);
                position += match.length;
            }
        }
        position_ = position;
    }

    // A match is taken in one step; where it crosses the place of the slide, the index sees no difference,
    // for nothing is looked for in between.
    void slide() {
        position_ -= slideBytes;
        std::memcpy(dictionary_, dictionary_ + slideBytes, slideBytes);
        index_.slide();
        filled_ = std::max(filled_ - slideBytes, 0);
        fill();
    }

    Input& input_;
    unsigned char* const dictionary_;
    Index& index_;
    std::int32_t filled_ = 0;   // bytes of the dictionary that hold input
    std::int32_t position_ = 0; // now being coded
    std::uint32_t crc_ = 0xFFFFFFFF;
};

} // namespace HiSpeed_SlideDic
