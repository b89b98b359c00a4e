#pragma once
// Holds the literals and matches of one block, then sends them as a dynamic Huffman block (RFC 1951 section
// 3.2.7). Blocks of the other kinds are never made.

#include <array>
#include <cstdint>
#include <memory>
#include <vector>

#include "documents/codelengths.h"
#include "documents/converter.h"
#include "documents/huffman.h"

namespace BufferBlock {

// `Stream` needs n_bit_put and Row as BStrmOut has them; it is not owned. All errors are constant texts,
// thrown as `const char*`.
template <class Stream>
class BBlkOut {
public:
    // A block is sent as soon as it holds more than `blockLimit` words: a literal is one word, a match two.
    BBlkOut(Stream& stream, std::size_t blockLimit) : stream_(stream), blockLimit_(blockLimit) {}

    // Throws "literal_put: out of range." outside 0 to 255.
    void literal_put(int value) {
        if (value < 0 || value > 255) throw "literal_put: out of range.";
        symbols_[held_++] = static_cast<std::uint16_t>(value);
        ++literals_[static_cast<std::size_t>(value)];
        sendWhenFull();
    }

    // Throws "match_len_put: out of range." when a length outside 3 to 259 or a distance outside 1 to 32768
    // comes; 259 fits the word and is refused by encode.
    void match_len_put(int length, int distance) {
        const int lengthWord = length + lengthBase;
        const int distanceWord = distance - 1;
        if (lengthWord < 260 || lengthWord > 516 || distanceWord < 0 ||
            distanceWord >= Converter::CvDistance::farthest)
            throw "match_len_put: out of range.";
        symbols_[held_] = static_cast<std::uint16_t>(lengthWord);
        symbols_[held_ + 1] = static_cast<std::uint16_t>(distanceWord);
        held_ += 2;
        ++literals_[lengthCodes[length].code];
        ++distances_[distanceCodes[distanceWord].code];
        sendWhenFull();
    }

    // Sends what is held as one block, even when that is nothing, and forgets it; `last` (0 or 1) marks the
    // last block of the stream. Throws "out of range." for a length or a distance that Deflate does not have.
    void encode(int last) {
        if (literals_[Converter::CvMatchLength::none] > 0) throw "out of range.";
        literals_[endOfBlock] = 1;
        const Huffman::HuffEnc literals(Huffman::FrequencyTable(literals_), codeLimit);
        const Huffman::HuffEnc distances(Huffman::FrequencyTable(distances_), codeLimit);

        stream_.n_bit_put(static_cast<std::uint32_t>(last), 1);
        stream_.n_bit_put(2, 2); // dynamic Huffman codes
        sendTables(literals.lengths(), distances.lengths());
        sendSymbols(literals, distances);
        held_ = 0;
        literals_.fill(0);
        distances_.fill(0);
    }

private:
    static constexpr std::size_t endOfBlock = 256;
    static constexpr int codeLimit = 15;
    // Words up to 255 are literals, from `lengthBase` on lengths; the word after a length is distance - 1.
    static constexpr int lengthBase = 257;
    static constexpr std::size_t wordKinds = 517; // up to the length 259, which no code stands for

    void sendWhenFull() {
        if (held_ > blockLimit_) encode(0);
    }

    void sendTables(const Huffman::BitLengthTable& literals, const Huffman::BitLengthTable& distances) {
        stream_.n_bit_put(static_cast<std::uint32_t>(literals.size() - 257), 5);
        stream_.n_bit_put(static_cast<std::uint32_t>(distances.size() - 1), 5);

        std::vector<LengthSymbol> symbols;
        symbols.reserve(literals.size() + distances.size());
        appendRuns(literals, symbols);
        appendRuns(distances, symbols);
        Huffman::FrequencyTable counts;
        for (const LengthSymbol& symbol : symbols)
            counts.count(symbol.symbol);
        const Huffman::HuffEnc encoder(counts, codeLengthLimit);

        const int places = usedPlaces(encoder.lengths());
        stream_.n_bit_put(static_cast<std::uint32_t>(places - 4), 4);
        for (int i = 0; i < places; ++i)
            stream_.n_bit_put(
                static_cast<std::uint32_t>(encoder[codeLengthOrder[static_cast<std::size_t>(i)]].length), 3);
        typename Stream::Row row(stream_);
        for (const LengthSymbol& symbol : symbols)
            put(joined(encoder.bits(symbol.symbol), {symbol.symbol, symbol.extraBits, symbol.extra}), row);
    }

    // Code and extra bits in one number.
    static Huffman::HuffEnc::Bits joined(Huffman::HuffEnc::Bits code, const Converter::Code& extra) {
        return {code.pattern | extra.extra << code.length, code.length + static_cast<int>(extra.extraBits)};
    }

    static void put(Huffman::HuffEnc::Bits bits, typename Stream::Row& row) {
        row.put(bits.pattern, bits.length);
    }

    void sendSymbols(const Huffman::HuffEnc& literals, const Huffman::HuffEnc& distances) {
        using Bits = Huffman::HuffEnc::Bits;
        std::array<Bits, wordKinds> words{}; // what is sent for each; no bits for one that is not held
        for (std::size_t word = 0; word < endOfBlock; ++word)
            words[word] = literals[word];
        for (int length = lengthCodes.shortest; length <= lengthCodes.longest; ++length)
            if (const Bits code = literals[lengthCodes[length].code]; code.length > 0)
                words[static_cast<std::size_t>(length + lengthBase)] = joined(code, lengthCodes[length]);

        typename Stream::Row row(stream_);
        for (const std::uint16_t *symbol = symbols_.get(), *const end = symbol + held_; symbol != end;
             ++symbol) {
            const Bits word = words[*symbol];
            if (word.length == 0) throw "encode: out of range.";
            if (*symbol <= endOfBlock) {
                put(word, row);
                continue;
            }
            const Converter::Code code = distanceCodes[*++symbol];
            const Bits distance = joined(distances[code.code], code);
            row.put(word.pattern | std::uint64_t{distance.pattern} << word.length,
                    word.length + distance.length);
        }
        put(literals.bits(endOfBlock), row);
    }

    static constexpr Converter::CvMatchLength lengthCodes{};
    static constexpr Converter::CvDistance distanceCodes{};

    Stream& stream_;
    std::size_t blockLimit_;
    std::size_t held_ = 0; // words
    std::unique_ptr<std::uint16_t[]> symbols_ =
        std::make_unique_for_overwrite<std::uint16_t[]>(blockLimit_ + 2);
    // How often each code is held.
    std::array<std::uint32_t, Converter::CvMatchLength::none + 1> literals_{};
    std::array<std::uint32_t, Converter::CvDistance::codes> distances_{};
};

} // namespace BufferBlock
