// The compressor beside zlib, both with the checksum that an archive needs. Run with
// --benchmark_enable_random_interleaving=true so that a busy machine slows all alike.
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <benchmark/benchmark.h>
#include <zlib.h>

#include "deflate_inputs.h"
#include "documents/deflate.h"

namespace {

using Files = std::vector<std::string>; // one after the other, as they go into an archive
using Encode = std::function<std::size_t(const Files&)>;

std::size_t own(const Files& files, ZIPFile::Deflater& deflater) {
    std::size_t size = 0;
    for (const std::string& file : files) {
        std::uint32_t crc = 0;
        size += deflater.deflate(file, crc).size();
        benchmark::DoNotOptimize(crc);
    }
    return size;
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
    output.resize(stream.total_out);
    deflateEnd(&stream);
    benchmark::DoNotOptimize(
        crc32(0, reinterpret_cast<const Bytef*>(input.data()), static_cast<uInt>(input.size())));
    return output.size();
}

Encode zlibAt(int level) {
    return [level](const Files& files) {
        std::size_t size = 0;
        for (const std::string& file : files)
            size += zlib(file, level);
        return size;
    };
}

void addRow(const std::string& name, const Files& files) {
    std::size_t bytes = 0;
    for (const std::string& file : files)
        bytes += file.size();
    const std::vector<std::pair<std::string, Encode>> encoders = {
        // As the program does it: a new encoder for each archive.
        {"own",
         [](const Files& input) {
             ZIPFile::Deflater deflater;
             return own(input, deflater);
         }},
        // What a file costs that is not the first of its archive.
        {"own-again", [deflater = std::make_shared<ZIPFile::Deflater>()](
                          const Files& input) { return own(input, *deflater); }},
        {"zlib-1", zlibAt(1)},
        {"zlib-6", zlibAt(6)},
        {"zlib-9", zlibAt(9)}};
    for (const auto& [encoder, encode] : encoders)
        benchmark::RegisterBenchmark(
            (name + "/" + encoder).c_str(), [files, bytes, encode](benchmark::State& state) {
                std::size_t size = 0;
                for ([[maybe_unused]] const auto iteration : state)
                    size = encode(files);
                state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(bytes));
                state.counters["in"] = static_cast<double>(bytes);
                state.counters["out"] = static_cast<double>(size);
            });
}

} // namespace

int main(int argc, char** argv) {
    constexpr std::size_t megabyte = 1 << 20;
    for (const auto& [name, document] :
         {std::pair{"certificate", inputs::certificate()}, {"application form", inputs::applicationForm()}}) {
        addRow(std::string(name) + ", content.xml", {document.content});
        addRow(std::string(name) + ", all files", document.files);
    }
    addRow("Japanese text", {inputs::japaneseText(megabyte)});
    addRow("XML", {inputs::catalogue(megabyte)});
    addRow("random bytes", {inputs::randomBytes(megabyte)});
    addRow("one byte", {inputs::oneByte(megabyte)});
    addRow("bitmap", {inputs::bitmap(4 * megabyte)});
    addRow("two bytes in turn", {inputs::twoBytesInTurn(megabyte)});
    addRow("rising numbers", {inputs::risingNumbers(megabyte)});
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
