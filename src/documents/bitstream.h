#pragma once
// Packs numbers of any width into bytes, the low bit of a byte first, as RFC 1951 section 3.1.1 wants it.

#include <array>
#include <bit>
#include <cstdint>
#include <cstring>

namespace BitStream {

// `Sink` needs write(const unsigned char* bytes, std::size_t count). It is given `BufferBytes` at a time and
// is not owned. Bits that were put and neither filled the buffer nor were flushed are lost at the end.
template <class Sink, int BufferBytes>
class BStrmOut {
    static_assert(BufferBytes > 0 && BufferBytes % 8 == 0, "the buffer is filled by words of 64 bits");

public:
    explicit BStrmOut(Sink& sink) : sink_(sink) {}

    // Appends the low `count` bits of `value`, 0 to 32 of them. Throws "n_bit_put: out of range.".
    void n_bit_put(std::uint32_t value, int count) {
        if (count < 0 || count > 32) throw "n_bit_put: out of range.";
        Row(*this).put(value & ((std::uint64_t{1} << count) - 1), count);
    }

    // A row of puts that keeps the bits in hand in registers. The stream is not used otherwise while it
    // lives.
    class Row {
    public:
        explicit Row(BStrmOut& stream)
            : stream_(stream), word_(stream.word_), wordBits_(stream.wordBits_), used_(stream.used_) {}
        ~Row() {
            stream_.word_ = word_;
            stream_.wordBits_ = wordBits_;
            stream_.used_ = used_;
        }
        Row(const Row&) = delete;
        Row& operator=(const Row&) = delete;

        // Appends the low `count` bits, 0 to 63 of them; all bits above are zero. Nothing is checked.
        void put(std::uint64_t bits, int count) {
            word_ |= bits << wordBits_;
            wordBits_ += static_cast<unsigned>(count);
            if (wordBits_ < 64) return;
            wordBits_ -= 64;
            stream_.storeWord(word_, used_);
            used_ += 8;
            if (used_ == BufferBytes) {
                stream_.handOver(BufferBytes);
                used_ = 0;
            }
            word_ = bits >> (static_cast<unsigned>(count) - wordBits_);
        }

    private:
        BStrmOut& stream_;
        std::uint64_t word_;
        unsigned wordBits_;
        unsigned used_;
    };

    // Hands on what is held; zero bits fill the last byte, so the next bit starts a new one.
    void flush() {
        storeWord(word_, used_);
        used_ += (wordBits_ + 7) / 8;
        word_ = 0;
        wordBits_ = 0;
        if (used_ > 0) handOver(used_);
        used_ = 0;
    }

    int bitCount() const { return static_cast<int>(used_ * 8 + wordBits_); } // in the buffer
    std::uint64_t bytesOut() const { return bytesOut_; }                     // handed to the sink so far

private:
    void storeWord(std::uint64_t word, std::size_t place) {
        if constexpr (std::endian::native == std::endian::little)
            std::memcpy(&buffer_[place], &word, 8);
        else
            for (std::size_t i = 0; i < 8; ++i)
                buffer_[place + i] = static_cast<unsigned char>(word >> (8 * i));
    }

    [[gnu::noinline]] void handOver(unsigned bytes) { // seldom, and it would take registers
        sink_.write(buffer_.data(), bytes);
        bytesOut_ += bytes;
    }

    Sink& sink_;
    std::array<unsigned char, BufferBytes> buffer_{};
    unsigned used_ = 0; // whole bytes in the buffer, a multiple of 8
    std::uint64_t word_ = 0;
    unsigned wordBits_ = 0; // 0 to 63
    std::uint64_t bytesOut_ = 0;
};

} // namespace BitStream
