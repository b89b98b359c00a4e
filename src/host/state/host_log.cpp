#include "host/state/host_log.h"

#include "data/app_logger.h"

void writeLog(int code, const zelkova::DataPairsList& pairs, const std::source_location& place) {
    AppLogger::log(code, pairs, place);
}

void writeDebug(const zelkova::DataPairsList& pairs, const std::source_location& place) {
    if (!AppLogger::isDebug()) return;
    AppLogger::logDebugText("", pairs, AppLogger::fileOf(place), AppLogger::functionOf(place),
                            static_cast<int>(place.line()));
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
