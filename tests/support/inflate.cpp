#include "support/inflate.h"

#include <stdexcept>

#include <zlib.h>

namespace test_support {

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

} // namespace test_support
