#include "documents/pipeline.h"

#include <stdexcept>

#include <zlib.h>

#include "documents/bitstream.h"
#include "documents/bufferblock.h"
#include "documents/memory_input.h"
#include "documents/slidedic.h"

namespace {

struct Sink {
    std::string bytes;
    void write(const unsigned char* data, std::size_t count) {
        bytes.append(reinterpret_cast<const char*>(data), count);
    }
};

} // namespace

Compressed compress(const std::string& input, std::size_t blockLimit) {
    Sink sink;
    BitStream::BStrmOut<Sink, 32> bits(sink);
    BufferBlock::BBlkOut<decltype(bits)> block(bits, blockLimit);
    ZIPFile::MemoryInput source(input);
    const HiSpeed_SlideDic::SDicEnc<ZIPFile::MemoryInput, 256> dictionary(source, block);
    block.encode(1);
    bits.flush();
    return {sink.bytes, ~dictionary.crc()};
}

std::string inflated(const std::string& deflated) {
    z_stream stream{};
    if (inflateInit2(&stream, -15) != Z_OK) throw std::runtime_error("zlib cannot start");
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(deflated.data()));
    stream.avail_in = static_cast<uInt>(deflated.size());
    std::string result, piece(1 << 16, '\0');
    int state = Z_OK;
    while (state == Z_OK) {
        stream.next_out = reinterpret_cast<Bytef*>(piece.data());
        stream.avail_out = static_cast<uInt>(piece.size());
        state = inflate(&stream, Z_NO_FLUSH);
        result.append(piece, 0, piece.size() - stream.avail_out);
    }
    const uInt unread = stream.avail_in;
    inflateEnd(&stream);
    if (state != Z_STREAM_END || unread != 0) throw std::runtime_error("not one whole stream");
    return result;
}
