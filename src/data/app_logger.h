#pragma once
// The program's log: numbered messages into a rolling file. Process-wide; nothing is written before
// configure().

#include <source_location>
#include <string>

#include "data/log_message.h"
#include "foundation/data_pairs.h"

// The logger's settings.
class DataLogFile final {
public:
    virtual void clear() { *this = DataLogFile(); }
    virtual std::string toString(const std::string& separator) const;
    static std::span<const record::Field<DataLogFile>> fields();

    KDL_FIELD(std::int32_t, Level, 0);
    KDL_FIELD(std::string, FileName);
    KDL_FIELD(std::string, Pattern, "%d{%Y/%m/%d %H:%M:%S.%l} %m%n");
    KDL_FIELD(std::int32_t, RollBackNumber, 0); // old files kept
    KDL_FIELD(std::int32_t, RollFileSize, 0);   // bytes; 0 or less never rolls
};

namespace AppLogger {

void setMessageList(const DataLogMessageList& messages);
// The record of the logger's own copy of the catalogue, a cleared one when there is none.
DataLogMessage getMessage(std::int32_t code);
// False when the file cannot be written: the program goes on without a log file.
bool configure(const DataLogFile& settings);
// Closes the file.
void close();

void setLevel(std::int32_t level);
bool isTrace();
bool isDebug(); // also at TRACE
// Whether the message's level (5 when the catalogue lacks it) is not below the current one.
bool isEnabled(std::int32_t code);

// Writes "LEVEL C0000000 file(function|line) :text", the text expanded with the pairs and followed by those
// that it did not use. The answer is the catalogue's record, a cleared one when there is none.
DataLogMessage log(std::int32_t code, const zelkova::DataPairsList& pairs, const std::string& file,
                   const std::string& function, int line);
// The same for a place of the source, when the message is wanted at the current level.
void log(std::int32_t code, const zelkova::DataPairsList& pairs, const std::source_location& place);
// Free texts, at level 1 as number 1000000 and at level 0 as number 0.
void logDebugText(const std::string& text, const zelkova::DataPairsList& pairs, const std::string& file,
                  const std::string& function, int line);
void logTraceText(const std::string& text, const zelkova::DataPairsList& pairs, const std::string& file,
                  const std::string& function, int line);

// The bare names of a place: the file without folder and extension, the function without its types.
std::string fileOf(const std::source_location& place);
std::string functionOf(const std::source_location& place);
std::string formatCode(std::int32_t code); // "C2000001"
std::string formatOrigin(const std::string& file, const std::string& function,
                         int line); // "file(function|7)"

} // namespace AppLogger
