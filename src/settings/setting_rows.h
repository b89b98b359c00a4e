#pragma once
// Which control of which page shows which setting.

#include <cstdint>
#include <span>
#include <string>

#include "data/data_application.h"

// What the button beside an edit looks for; its number is that of the edit and `browseOffset`.
enum class Browse { Nothing, Folder, Xml, Program, Sound, Log };
constexpr int browseOffset = 50;

struct TextRow {
    int id;
    const std::string& (DataApplication::*get)() const;
    void (DataApplication::*set)(const std::string&);
    Browse browse = Browse::Nothing;
};

struct NumberRow {
    int id;
    const char* label;
    std::int32_t (DataApplication::*get)() const;
    void (DataApplication::*set)(std::int32_t);
    int low, high;
};

// With an edit that is live only while the box is checked, or 0.
struct FlagRow {
    int id;
    bool (DataApplication::*get)() const;
    void (DataApplication::*set)(bool);
    int edit = 0;
};

struct PageRows {
    const char* name; // of the template
    std::span<const TextRow> texts;
    std::span<const NumberRow> numbers;
    std::span<const FlagRow> flags;
};

// In the order of the sheet.
extern const std::span<const PageRows> settingPages;

// Controls with a meaning of their own.
enum : int {
    idWordProgram = 5106,
    idWordFromDesktop = 5170, // レジストリ取得
    idLogSize = 5503,
    idLogLevel = 5504,
    idLogSizeText = 5505,
};
