// The compressor beside zlib, both with the checksum that an archive needs. Run with
// --benchmark_enable_random_interleaving=true so that a busy machine slows all alike.
#include <cstdint>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include <benchmark/benchmark.h>
#include <zlib.h>

#include "deflate_inputs.h"
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

std::size_t own(const std::string& input) {
    Sink sink;
    sink.bytes.reserve(input.size());
    BitStream::BStrmOut<Sink, 32> bits(sink);
    BufferBlock::BBlkOut<decltype(bits)> block(bits, 0x7FFE);
    ZIPFile::MemoryInput source(input);
    const HiSpeed_SlideDic::SDicEnc<ZIPFile::MemoryInput, 256> dictionary(source, block);
    block.encode(1);
    bits.flush();
    benchmark::DoNotOptimize(dictionary.crc());
    return sink.bytes.size();
}

std::size_t zlib(const std::string& input, int level) {
    z_stream stream{};
    deflateInit2(&stream, level, Z_DEFLATED, -15, 8, Z_DEFAULT_STRATEGY);
    std::string output(deflateBound(&stream, input.size()), '\0');
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(input.data()));
    stream.avail_in = static_cast<uInt>(input.size());
    stream.next_out = reinterpret_cast<Bytef*>(output.data());
    stream.avail_out = static_cast<uInt>(output.size());
    deflate(&stream, Z_FINISH);
    const std::size_t size = stream.total_out;
    deflateEnd(&stream);
    benchmark::DoNotOptimize(
        crc32(0, reinterpret_cast<const Bytef*>(input.data()), static_cast<uInt>(input.size())));
    return size;
}

void addRow(const std::string& name, const std::string& input) {
    const std::vector<std::pair<std::string, std::function<std::size_t(const std::string&)>>> encoders = {
        {"own", own},
        {"zlib-1", [](const std::string& text) { return zlib(text, 1); }},
        {"zlib-6", [](const std::string& text) { return zlib(text, 6); }},
        {"zlib-9", [](const std::string& text) { return zlib(text, 9); }}};
    for (const auto& [encoder, encode] : encoders)
        benchmark::RegisterBenchmark(
            (name + "/" + encoder).c_str(), [input, encode](benchmark::State& state) {
                std::size_t size = 0;
                for ([[maybe_unused]] const auto iteration : state)
                    size = encode(input);
                state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(input.size()));
                state.counters["in"] = static_cast<double>(input.size());
                state.counters["out"] = static_cast<double>(size);
            });
}

} // namespace

int main(int argc, char** argv) {
    constexpr std::size_t megabyte = 1 << 20;
    addRow("certificate", inputs::shipped("tmp/certificate.xml"));
    addRow("application form", inputs::shipped("tmp/writeApplication.xml"));
    addRow("Japanese text", inputs::japaneseText(megabyte));
    addRow("XML", inputs::catalogue(megabyte));
    addRow("random bytes", inputs::randomBytes(megabyte));
    addRow("one byte", inputs::oneByte(megabyte));
    addRow("bitmap", inputs::bitmap(4 * megabyte));
    addRow("two bytes in turn", inputs::twoBytesInTurn(megabyte));
    addRow("rising numbers", inputs::risingNumbers(megabyte));
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
