// The music catalogue beside the bare XML library on the same file, in one run: opening against parsing,
// committing against serialising. Then what the program does with an open catalogue. Ends with the ratios and
// the growth.
#include <cstdio>
#include <map>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>
#include <xercesc/dom/DOM.hpp>
#include <xercesc/framework/LocalFileFormatTarget.hpp>
#include <xercesc/parsers/XercesDOMParser.hpp>
#include <xercesc/util/XMLUni.hpp>

#include "data/accesser_resource.h"
#include "support/temporary_folder.h"

namespace {

using namespace xercesc;

DataResource song(int number) {
    DataResource out;
    const std::string text = std::to_string(number);
    out.setFileName("C:\\音楽\\名曲集\\第" + text + "巻\\曲" + text + ".mp3");
    out.setFileType(number % 3);
    out.setTitle("荒城の月・第" + text + "番");
    out.setType(number % 4);
    out.setReleaseDate({2011, 2, 0, 3, 0, 0, 0, 0});
    out.setGenre("Classic");
    out.setArtist("滝廉太郎");
    out.setArtistKana("タキレンタロウ");
    out.setLength(1530 + number % 700);
    out.setIntroStart(0);
    out.setIntroEnd(153);
    out.setSabiStart(600);
    out.setSabiEnd(905);
    out.setAnsStart(600);
    out.setAnsEnd(750);
    out.setDeficalt(3);
    out.setFamous(5);
    return out;
}

// Made once for each size.
const std::string& catalogue(int songs) {
    static const test_support::TemporaryFolder folder;
    static std::map<int, std::string> files;
    std::string& path = files[songs];
    if (path.empty()) {
        path = folder.file(std::to_string(songs) + ".xml");
        AccesserResource accesser;
        accesser.open(path);
        for (int i = 1; i <= songs; ++i)
            accesser.add(song(i));
        accesser.commit();
    }
    return path;
}

void bareParse(benchmark::State& state) {
    const std::string& path = catalogue(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        XercesDOMParser parser;
        parser.parse(path.c_str());
        benchmark::DoNotOptimize(parser.getDocument());
    }
}

void open(benchmark::State& state) {
    const std::string& path = catalogue(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        AccesserResource accesser;
        if (accesser.open(path) != 1) state.SkipWithError("not opened");
    }
}

void bareSerialise(benchmark::State& state) {
    const std::string& path = catalogue(static_cast<int>(state.range(0)));
    XercesDOMParser parser;
    parser.parse(path.c_str());
    DOMImplementation* implementation = DOMImplementationRegistry::getDOMImplementation(u"LS");
    for (auto _ : state) {
        DOMLSSerializer* writer = implementation->createLSSerializer();
        DOMLSOutput* output = implementation->createLSOutput();
        LocalFileFormatTarget target((path + ".bare").c_str());
        writer->getDomConfig()->setParameter(XMLUni::fgDOMWRTFormatPrettyPrint, true);
        output->setEncoding(u"shift-jis");
        output->setByteStream(&target);
        writer->write(parser.getDocument(), output);
        output->release();
        writer->release();
    }
}

void commit(benchmark::State& state) {
    const std::string& path = catalogue(static_cast<int>(state.range(0)));
    AccesserResource accesser;
    accesser.open(path);
    for (auto _ : state)
        if (accesser.commit() != 1) state.SkipWithError("not committed");
}

// As many looks as there are songs, in an order that helps nobody.
void get(benchmark::State& state) {
    const int songs = static_cast<int>(state.range(0));
    AccesserResource accesser;
    accesser.open(catalogue(songs));
    DataResource out;
    for (auto _ : state)
        for (long i = 0; i < songs; ++i) {
            accesser.get(static_cast<int>(i * 7919 % songs + 1), out);
            benchmark::DoNotOptimize(out);
        }
}

void search(benchmark::State& state) {
    const int songs = static_cast<int>(state.range(0));
    AccesserResource accesser;
    accesser.open(catalogue(songs));
    for (auto _ : state) {
        const auto found = accesser.search(0, 0, "", -1, {}, {}, "", "", "", -1);
        if (found.size() != static_cast<std::size_t>(songs)) state.SkipWithError("songs are missing");
    }
}

constexpr int repetitions = 3;

BENCHMARK(bareParse)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond)->Repetitions(repetitions);
BENCHMARK(open)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond)->Repetitions(repetitions);
BENCHMARK(bareSerialise)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond)->Repetitions(repetitions);
BENCHMARK(commit)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond)->Repetitions(repetitions);
BENCHMARK(get)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond)->Repetitions(repetitions);
BENCHMARK(search)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond)->Repetitions(repetitions);

// Keeps the shortest processor time of each benchmark's repetitions beside the usual table: what others do on
// the machine only ever adds.
class Ratios : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs) {
            if (run.run_type != Run::RT_Iteration) continue;
            double& best = times_[run.run_name.function_name + "/" + run.run_name.args];
            if (best == 0 || run.GetAdjustedCPUTime() < best) best = run.GetAdjustedCPUTime();
        }
        ConsoleReporter::ReportRuns(runs);
    }
    void print() const {
        ratio("open / bare parse, 10,000 songs", "open/10000", "bareParse/10000", 1.3);
        ratio("commit / bare serialisation, 10,000 songs", "commit/10000", "bareSerialise/10000", 1.3);
        limit("10,000 gets, ms", "get/10000", 60);
        limit("search without filters over 10,000, ms", "search/10000", 100);
        for (const char* name : {"open", "commit", "get", "search"})
            ratio((std::string(name) + ", 100,000 / 10,000 songs").c_str(), std::string(name) + "/100000",
                  std::string(name) + "/10000", 0);
    }

private:
    double time(const std::string& name) const {
        const auto found = times_.find(name);
        return found == times_.end() ? 0 : found->second;
    }
    void ratio(const char* what, const std::string& name, const std::string& by, double most) const {
        if (time(name) == 0 || time(by) == 0) return;
        std::printf("%-45s %7.2f", what, time(name) / time(by));
        if (most > 0) std::printf("  (at most %.1f)", most);
        std::printf("\n");
    }
    void limit(const char* what, const std::string& name, double most) const {
        if (time(name) > 0) std::printf("%-45s %7.1f  (at most %.0f)\n", what, time(name), most);
    }

    std::map<std::string, double> times_;
};

} // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    XMLPlatformUtils::Initialize();
    Ratios reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    reporter.print();
    XMLPlatformUtils::Terminate();
}
