#include "documents/deflate.h"

#include "documents/bitstream.h"
#include "documents/bufferblock.h"
#include "documents/memory_input.h"

namespace ZIPFile {

std::string Deflater::deflate(std::string_view content, std::uint32_t& crc, std::size_t blockLimit) {
    crc = 0;
    if (content.empty()) return {};
    FileEncBuffer buffer(content.size());
    BitStream::BStrmOut<FileEncBuffer, 32> bits(buffer);
    BufferBlock::BBlkOut<decltype(bits)> block(bits, blockLimit);
    MemoryInput input(content);
    const HiSpeed_SlideDic::SDicEnc<MemoryInput, 256> dictionary(input, block, workspace_);
    crc = ~dictionary.crc();
    block.encode(1);
    bits.flush();
    return buffer.take();
}

} // namespace ZIPFile
