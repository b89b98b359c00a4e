#include "host/state/host_log.h"

#include <algorithm>
#include <filesystem>

#include "data/app_logger.h"

namespace {

std::string fileOf(const std::source_location& place) {
    return std::filesystem::path(place.file_name()).stem().string();
}

// The bare name out of the compiler's "void f(int)".
std::string functionOf(const std::source_location& place) {
    std::string name = place.function_name();
    name.erase(std::min(name.find('('), name.size()));
    const auto start = name.find_last_of(" :*&");
    return start == std::string::npos ? name : name.substr(start + 1);
}

} // namespace

void writeLog(int code, const zelkova::DataPairsList& pairs, const std::source_location& place) {
    if (!AppLogger::isEnabled(code)) return;
    AppLogger::log(code, pairs, fileOf(place), functionOf(place), static_cast<int>(place.line()));
}

void writeDebug(const zelkova::DataPairsList& pairs, const std::source_location& place) {
    if (!AppLogger::isDebug()) return;
    AppLogger::logDebugText("", pairs, fileOf(place), functionOf(place), static_cast<int>(place.line()));
}

LogRange::LogRange(std::string condition, const std::source_location& place)
    : condition_(std::move(condition)), place_(place) {
    write(" start");
}

LogRange::~LogRange() {
    write(" end");
}

void LogRange::write(const char* range) const {
    if (!AppLogger::isDebug()) return;
    zelkova::DataPairsList pairs;
    pairs.add("RANGE", range);
    pairs.add("CONDITION", condition_);
    writeLog(1000003, pairs, place_);
}
