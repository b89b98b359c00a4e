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
        wide_put(value & ((std::uint64_t{1} << count) - 1), count);
    }

    // Appends the low `count` bits, 0 to 63 of them; all bits above are zero. Nothing is checked.
    void wide_put(std::uint64_t bits, int count) {
        word_ |= bits << wordBits_;
        wordBits_ += count;
        if (wordBits_ < 64) return;
        wordBits_ -= 64;
        storeWord();
        word_ = bits >> (count - wordBits_);
    }

    // Hands on what is held; zero bits fill the last byte, so the next bit starts a new one.
    void flush() {
        const int tailBytes = (wordBits_ + 7) / 8;
        for (int i = 0; i < tailBytes; ++i)
            buffer_[used_ + i] = static_cast<unsigned char>(word_ >> (8 * i));
        used_ += tailBytes;
        word_ = 0;
        wordBits_ = 0;
        handOver();
    }

    int bitCount() const { return used_ * 8 + wordBits_; } // in the buffer
    std::uint64_t bytesOut() const { return bytesOut_; }   // handed to the sink so far

private:
    void storeWord() {
        if constexpr (std::endian::native == std::endian::little)
            std::memcpy(&buffer_[used_], &word_, 8);
        else
            for (int i = 0; i < 8; ++i)
                buffer_[used_ + i] = static_cast<unsigned char>(word_ >> (8 * i));
        used_ += 8;
        if (used_ == BufferBytes) handOver();
    }

    void handOver() {
        if (used_ == 0) return;
        sink_.write(buffer_.data(), static_cast<std::size_t>(used_));
        bytesOut_ += static_cast<std::uint64_t>(used_);
        used_ = 0;
    }

    Sink& sink_;
    std::array<unsigned char, BufferBytes> buffer_{};
    int used_ = 0; // whole bytes in the buffer, a multiple of 8 between calls
    std::uint64_t word_ = 0;
    int wordBits_ = 0; // 0 to 63
    std::uint64_t bytesOut_ = 0;
};

} // namespace BitStream
