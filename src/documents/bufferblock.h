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

// `Stream` needs n_bit_put(value, count) and wide_put(bits, count) as BStrmOut has them; it is not owned. All
// errors are constant texts, thrown as `const char*`.
template <class Stream>
class BBlkOut {
public:
    // A block is sent as soon as it holds more than `blockLimit` words: a literal is one word, a match two.
    BBlkOut(Stream& stream, std::size_t blockLimit) : stream_(stream), blockLimit_(blockLimit) {}

    // Throws "literal_put: out of range." outside 0 to 255.
    void literal_put(int value) {
        if (value < 0 || value > 255) throw "literal_put: out of range.";
        symbols_[held_++] = static_cast<std::uint16_t>(value);
        ++words_[static_cast<std::size_t>(value)];
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
        symbols_[held_++] = static_cast<std::uint16_t>(lengthWord);
        symbols_[held_++] = static_cast<std::uint16_t>(distanceWord);
        ++words_[static_cast<std::size_t>(lengthWord)];
        ++distanceCodes_[distanceConverter_[distanceWord].code];
        sendWhenFull();
    }

    // Sends what is held as one block, even when that is nothing, and forgets it; `last` (0 or 1) marks the
    // last block of the stream. Throws "out of range." for a length or a distance that Deflate does not have.
    void encode(int last) {
        Huffman::FrequencyTable literalCounts(literalSymbols), distanceCounts;
        count(literalCounts, distanceCounts);
        const Huffman::HuffEnc literals(literalCounts, codeLimit);
        const Huffman::HuffEnc distances(distanceCounts, codeLimit);

        stream_.n_bit_put(static_cast<std::uint32_t>(last), 1);
        stream_.n_bit_put(2, 2); // dynamic Huffman codes
        sendTables(literals.lengths(), distances.lengths());
        sendSymbols(literals, distances);
        held_ = 0;
        words_.fill(0);
        distanceCodes_.fill(0);
    }

private:
    static constexpr int endOfBlock = 256;
    static constexpr std::size_t literalSymbols = 257;
    static constexpr int codeLimit = 15;
    // Words up to 255 are literals, from `lengthBase` on lengths; the word after a length is distance - 1.
    static constexpr int lengthBase = 257;
    static constexpr std::size_t wordKinds = 517; // up to the length 259, which no code stands for

    void sendWhenFull() {
        if (held_ > blockLimit_) encode(0);
    }

    void count(Huffman::FrequencyTable& literals, Huffman::FrequencyTable& distances) const {
        literals.count(endOfBlock);
        for (std::size_t word = 0; word < wordKinds; ++word)
            if (words_[word] > 0)
                literals.count(word <= endOfBlock ? word : lengthCode(word).code, words_[word]);
        for (std::size_t code = 0; code < distanceCodes_.size(); ++code)
            if (distanceCodes_[code] > 0) distances.count(code, distanceCodes_[code]);
    }

    const Converter::Code& lengthCode(std::size_t word) const {
        const int length = static_cast<int>(word) - lengthBase;
        if (length < Converter::CvMatchLength::shortest || length > Converter::CvMatchLength::longest)
            throw "out of range.";
        return lengthConverter_[length];
    }

    void sendTables(const Huffman::BitLengthTable& literals, const Huffman::BitLengthTable& distances) {
        stream_.n_bit_put(static_cast<std::uint32_t>(literals.size() - 257), 5);
        stream_.n_bit_put(static_cast<std::uint32_t>(distances.size() - 1), 5);

        std::vector<LengthSymbol> symbols;
        appendRuns(literals, symbols);
        appendRuns(distances, symbols);
        Huffman::FrequencyTable counts;
        for (const LengthSymbol& symbol : symbols)
            counts.count(symbol.symbol);
        const Huffman::HuffEnc encoder(counts, codeLengthLimit);

        const int places = usedPlaces(encoder.lengths());
        stream_.n_bit_put(static_cast<std::uint32_t>(places - 4), 4);
        for (int i = 0; i < places; ++i) {
            const std::size_t symbol = codeLengthOrder[static_cast<std::size_t>(i)];
            stream_.n_bit_put(
                symbol < encoder.lengths().size() ? static_cast<std::uint32_t>(encoder.lengths()[symbol]) : 0,
                3);
        }
        for (const LengthSymbol& symbol : symbols) {
            const Huffman::HuffEnc::Bits bits = encoder.bits(symbol.symbol);
            stream_.n_bit_put(bits.pattern, bits.length);
            stream_.n_bit_put(symbol.extra, symbol.extraBits);
        }
    }

    // Code and extra bits in one number.
    static Huffman::HuffEnc::Bits joined(Huffman::HuffEnc::Bits code, const Converter::Code& extra) {
        return {code.pattern | extra.extra << code.length, code.length + static_cast<int>(extra.extraBits)};
    }

    void sendSymbols(const Huffman::HuffEnc& literals, const Huffman::HuffEnc& distances) {
        std::array<Huffman::HuffEnc::Bits, wordKinds> words{};
        for (std::size_t word = 0; word < wordKinds; ++word)
            if (words_[word] > 0)
                words[word] = word <= endOfBlock
                                  ? literals.bits(word)
                                  : joined(literals.bits(lengthCode(word).code), lengthCode(word));
        std::array<Huffman::HuffEnc::Bits, 30> distanceCodes{};
        for (std::size_t code = 0; code < distanceCodes.size(); ++code)
            if (distanceCodes_[code] > 0) distanceCodes[code] = distances.bits(code);

        for (const std::uint16_t *symbol = symbols_.get(), *const end = symbol + held_; symbol != end;
             ++symbol) {
            const Huffman::HuffEnc::Bits word = words[*symbol];
            if (*symbol <= endOfBlock) {
                put(word);
                continue;
            }
            const Converter::Code code = distanceConverter_[*++symbol];
            const Huffman::HuffEnc::Bits distance = joined(distanceCodes[code.code], code);
            stream_.wide_put(word.pattern | std::uint64_t{distance.pattern} << word.length,
                             word.length + distance.length);
        }
        put(literals.bits(endOfBlock));
    }

    void put(Huffman::HuffEnc::Bits bits) { stream_.wide_put(bits.pattern, bits.length); }

    Stream& stream_;
    std::size_t blockLimit_;
    std::size_t held_ = 0; // words
    std::unique_ptr<std::uint16_t[]> symbols_ =
        std::make_unique_for_overwrite<std::uint16_t[]>(blockLimit_ + 2);
    std::array<std::uint32_t, wordKinds> words_{}; // how often each word is held
    std::array<std::uint32_t, 30> distanceCodes_{};
    inline static const Converter::CvMatchLength lengthConverter_;
    inline static const Converter::CvDistance distanceConverter_;
};

} // namespace BufferBlock
