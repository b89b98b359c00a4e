#include "data/app_logger.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <limits>

#include <log4cpp/Category.hh>
#include <log4cpp/PatternLayout.hh>
#include <log4cpp/RollingFileAppender.hh>

#include "platform/files.h"

namespace {

// The library renames one file for each number up to this, whether it is there or not.
constexpr std::int32_t mostBackups = 1000;
constexpr mode_t fileMode = 0644;
constexpr const char* fallbackText = "メッセージコード(%CODE%)は、メッセージリストに存在しません。";

struct State {
    DataLogMessageList messages;
    std::int32_t level = 0;
};

State& state() {
    static State instance;
    return instance;
}

log4cpp::Category& category() {
    return log4cpp::Category::getInstance("AppLogger");
}

int priorityOf(std::int32_t level) {
    constexpr int priorities[] = {700, 700, 600, 400, 300, 0};
    return level >= 0 && level <= 5 ? priorities[level] : priorities[0];
}

void write(std::int32_t level, const std::string& line) {
    switch (level) {
    case 0:
        if (AppLogger::isTrace()) category().debug(line);
        break;
    case 1:
        category().debug(line);
        break;
    case 2:
        category().info(line);
        break;
    case 3:
        category().warn(line);
        break;
    case 4:
        category().error(line);
        break;
    default:
        category().fatal(line);
    }
}

struct Origin {
    const std::string& file;
    const std::string& function;
    int line;
};

void writeText(std::int32_t level, std::int32_t code, const std::string& text,
               const zelkova::DataPairsList& pairs, const Origin& origin) {
    write(level, levelText(level) + " " + AppLogger::formatCode(code) + " " +
                     AppLogger::formatOrigin(origin.file, origin.function, origin.line) + " :" +
                     zelkova::formatWithPairs(text, pairs, "%", true));
}

bool canAppend(const std::filesystem::path& path) {
    return std::ofstream(path, std::ios::app).is_open();
}

} // namespace

std::span<const record::Field<DataLogFile>> DataLogFile::fields() {
    static const record::Field<DataLogFile> table[] = {
        {"level", "", &DataLogFile::mLevel},
        {"fileName", "", &DataLogFile::mFileName},
        {"pattern", "", &DataLogFile::mPattern},
        {"rollBackNumber", "", &DataLogFile::mRollBackNumber},
        {"rollFileSize", "", &DataLogFile::mRollFileSize},
    };
    return table;
}

std::string DataLogFile::toString(const std::string& separator) const {
    return record::dump(*this, fields(), separator);
}

void AppLogger::setMessageList(const DataLogMessageList& messages) {
    state().messages = messages;
}

DataLogMessage AppLogger::getMessage(std::int32_t code) {
    return state().messages.getMessage(code);
}

bool AppLogger::configure(const DataLogFile& settings) {
    close();
    setLevel(settings.getLevel());
    const std::filesystem::path path = platform::nativePath(settings.getFileName());
    if (path.empty() || !canAppend(path)) return false;
    const std::size_t size = settings.getRollFileSize() > 0
                                 ? static_cast<std::size_t>(settings.getRollFileSize())
                                 : std::numeric_limits<std::size_t>::max();
    const auto backups = static_cast<unsigned>(std::clamp(settings.getRollBackNumber(), 0, mostBackups));
    auto appender = std::make_unique<log4cpp::RollingFileAppender>("root.file", path.string(), size, backups,
                                                                   true, fileMode);
    auto layout = std::make_unique<log4cpp::PatternLayout>();
    layout->setConversionPattern(settings.getPattern());
    appender->setLayout(layout.release());
    category().setAdditivity(false);
    category().addAppender(appender.release());
    return true;
}

void AppLogger::close() {
    category().removeAllAppenders();
}

void AppLogger::setLevel(std::int32_t level) {
    log4cpp::Category::setRootPriority(priorityOf(level));
    state().level = level;
}

bool AppLogger::isTrace() {
    return state().level == 0;
}

bool AppLogger::isDebug() {
    return state().level == 0 || state().level == 1;
}

bool AppLogger::isEnabled(std::int32_t code) {
    const DataLogMessage* message = state().messages.find(code);
    return (message ? message->getLogging() : 5) >= state().level;
}

DataLogMessage AppLogger::log(std::int32_t code, const zelkova::DataPairsList& pairs, const std::string& file,
                              const std::string& function, int line) {
    if (const DataLogMessage* message = state().messages.find(code)) {
        writeText(message->getLogging(), code, message->getContents(), pairs, {file, function, line});
        return *message;
    }
    zelkova::DataPairsList withCode = pairs;
    withCode.add("CODE", formatCode(code));
    writeText(5, code, fallbackText, withCode, {file, function, line});
    return {};
}

void AppLogger::log(std::int32_t code, const zelkova::DataPairsList& pairs,
                    const std::source_location& place) {
    if (isEnabled(code)) log(code, pairs, fileOf(place), functionOf(place), static_cast<int>(place.line()));
}

void AppLogger::logDebugText(const std::string& text, const zelkova::DataPairsList& pairs,
                             const std::string& file, const std::string& function, int line) {
    writeText(1, 1000000, text, pairs, {file, function, line});
}

void AppLogger::logTraceText(const std::string& text, const zelkova::DataPairsList& pairs,
                             const std::string& file, const std::string& function, int line) {
    writeText(0, 0, text, pairs, {file, function, line});
}

std::string AppLogger::fileOf(const std::source_location& place) {
    return std::filesystem::path(place.file_name()).stem().string();
}

// The bare name out of the compiler's "void f(int)".
std::string AppLogger::functionOf(const std::source_location& place) {
    std::string name = place.function_name();
    name.erase(std::min(name.find('('), name.size()));
    const auto start = name.find_last_of(" :*&");
    return start == std::string::npos ? name : name.substr(start + 1);
}

std::string AppLogger::formatCode(std::int32_t code) {
    char text[32];
    std::snprintf(text, sizeof text, "C%07d", code);
    return text;
}

std::string AppLogger::formatOrigin(const std::string& file, const std::string& function, int line) {
    return file + "(" + function + "|" + std::to_string(line) + ")";
}
