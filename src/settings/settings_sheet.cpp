#include "settings/settings_sheet.h"

#include <algorithm>
#include <deque>
#include <optional>

#include "data/accesser_application.h"
#include "data/log_message.h"
#include "foundation/dialog.h"
#include "foundation/path.h"
#include "foundation/text.h"
#include "foundation/views/message_box.h"
#include "platform/controls.h"
#include "platform/files.h"
#include "settings/setting_rows.h"

namespace {

constexpr int badNumber = 3000030, noProgramForDocuments = 3000031;
constexpr int settingsSaved = 2000004, settingsNotSaved = 4000020;
constexpr const char* wordExtension = ".doc";
constexpr int logLevels = 6;
constexpr platform::Color goneRed{220, 0, 0};

struct BrowseWay {
    Browse browse;
    const char* filterName;
    const char* pattern;
    const char* folder; // where to look first when nothing is set
};

// Programs have no extension here, so every file is shown where one is looked for.
constexpr BrowseWay browseWays[] = {
    {Browse::Folder, "", "", "../cnf/"},
    {Browse::Xml, "XMLファイル(*.xml)", "*.xml", "../cnf/"},
    {Browse::Program, "WORD実行ファイル(*.exe)", "*", "/usr/bin/"},
    {Browse::Sound, "音楽(*.mp3,*.wma,*.wav,*.mid)", "*.mp3;*.wma;*.wav;*.mid", "../eft/"},
    {Browse::Log, "ログファイル(*.log)", "*.log", "../log/"},
};

// None when cancelled.
std::optional<std::string> browse(platform::WindowHandle page, Browse what, const std::string& current) {
    const BrowseWay& way = *std::ranges::find(browseWays, what, &BrowseWay::browse);
    const std::string start = zelkova::normalizePath(current.empty() ? way.folder : current);
    if (what == Browse::Folder) return platform::folderDialog(page, start);
    platform::FileDialog options;
    options.startPath = start;
    options.filterName = way.filterName;
    options.pattern = way.pattern;
    const std::vector<std::string> chosen = platform::openFileDialog(page, options);
    return chosen.empty() ? std::nullopt : std::optional(chosen.front());
}

// What is looked for has to be there already: not so a log file, nor a program that the system finds by name.
bool mustExist(Browse what) {
    return what == Browse::Folder || what == Browse::Xml || what == Browse::Sound;
}

// -1 for a text that is no level; the program then logs as at the first one.
int levelNamed(const std::string& text) {
    const int level = levelFromText(text);
    return zelkova::trim(levelText(level)) == zelkova::trim(text) ? level : -1;
}

// What all pages of one opening share.
struct Opening {
    DataApplication& settings;
    std::string (*programFor)(const std::string& extension);
    bool applied = false;
};

class SettingsPage : public zelkova::SheetPage {
public:
    SettingsPage(const PageRows& rows, Opening& opening)
        : SheetPage(rows.name), rows_(rows), opening_(opening) {}

private:
    void open() override {
        const DataApplication& settings = opening_.settings;
        for (const TextRow& row : rows_.texts) {
            platform::setText(control(row.id), (settings.*row.get)());
            mark(row);
        }
        for (const NumberRow& row : rows_.numbers)
            platform::setText(control(row.id), zelkova::numberToText((settings.*row.get)()));
        for (const FlagRow& row : rows_.flags)
            platform::setChecked(control(row.id), (settings.*row.get)());
        for (int level = 0; level < logLevels; ++level)
            platform::addItem(control(idLogLevel), zelkova::trim(levelText(level)));
        platform::setSelection(control(idLogLevel), levelNamed(settings.getLogLevel()));
        follow();
    }

    // Red where a file or folder is named that is not there, as in settings from another machine.
    void mark(const TextRow& row) const {
        const platform::Control edit = control(row.id);
        const std::string path = platform::getText(edit);
        const bool gone = mustExist(row.browse) && !path.empty() && !platform::pathExists(path);
        platform::setTextColor(edit, gone ? std::optional(goneRed) : std::nullopt);
        platform::setToolTip(edit, gone ? "この場所には見つかりません。" : "");
    }

    // An edit follows its check box, the size in words follows the number.
    void follow() const {
        for (const FlagRow& row : rows_.flags) {
            if (row.edit == 0) continue;
            const bool live = platform::isChecked(control(row.id));
            platform::enable(control(row.edit), live);
            platform::enable(control(row.edit + browseOffset), live);
        }
        platform::setText(control(idLogSizeText),
                          zelkova::formatSize(zelkova::stringToInt(platform::getText(control(idLogSize)))));
    }

    bool onCommand(int id) override {
        if (id == idWordFromDesktop) {
            takeProgramOfDesktop();
            return true;
        }
        const auto button = std::ranges::find_if(rows_.texts, [id](const TextRow& row) {
            return row.browse != Browse::Nothing && row.id + browseOffset == id;
        });
        if (button != rows_.texts.end()) {
            const platform::Control edit = control(button->id);
            if (const auto chosen = browse(window(), button->browse, platform::getText(edit)))
                platform::setText(edit, *chosen);
            return true;
        }
        const auto text = std::ranges::find(rows_.texts, id, &TextRow::id);
        if (text != rows_.texts.end()) mark(*text);
        follow();
        platform::sheetChanged(window());
        return false;
    }

    void takeProgramOfDesktop() const {
        const std::string program = opening_.programFor(wordExtension);
        if (program.empty())
            zelkova::showMessage(window(), noProgramForDocuments);
        else
            platform::setText(control(idWordProgram), program);
    }

    bool onSheet(platform::SheetCode code) override {
        if (code == platform::PSN_APPLY) store();
        return code != platform::PSN_KILLACTIVE || check();
    }

    // A page is left, and applied, only with numbers that the program can use.
    bool check() const {
        for (const NumberRow& row : rows_.numbers) {
            const std::string text = zelkova::trim(platform::getText(control(row.id)));
            const std::int32_t number = zelkova::stringToInt(text);
            if (number >= row.low && number <= row.high && text == zelkova::numberToText(number)) continue;
            zelkova::DataPairsList pairs;
            pairs.add("SUBJECT", row.label);
            pairs.add("LOW", row.low);
            pairs.add("HIGH", row.high);
            zelkova::showMessage_pairs(window(), badNumber, zelkova::MessageButtons::Ok, 0, pairs);
            platform::setFocus(control(row.id));
            return false;
        }
        return true;
    }

    void store() const {
        DataApplication& settings = opening_.settings;
        for (const TextRow& row : rows_.texts)
            (settings.*row.set)(platform::getText(control(row.id)));
        for (const NumberRow& row : rows_.numbers)
            (settings.*row.set)(zelkova::stringToInt(platform::getText(control(row.id))));
        for (const FlagRow& row : rows_.flags)
            (settings.*row.set)(platform::isChecked(control(row.id)));
        if (const int level = platform::getSelection(control(idLogLevel)); level >= 0)
            settings.setLogLevel(zelkova::trim(levelText(level)));
        opening_.applied = true;
    }

    const PageRows& rows_;
    Opening& opening_;
};

// False, with the host told, when the file could not be written.
bool save(platform::WindowHandle owner, const DataApplication& settings, const std::string& file) {
    AccesserApplication accesser;
    if (accesser.save(file, settings)) return true;
    zelkova::DataPairsList pairs;
    pairs.add("FILE", file);
    zelkova::reportMessage(owner, settingsNotSaved, pairs);
    return false;
}

void tellSaved(platform::WindowHandle owner) {
    zelkova::DataPairsList pairs;
    pairs.add("SUBJECT", "基本設定");
    zelkova::showMessage_pairs(owner, settingsSaved, zelkova::MessageButtons::Ok, 0, pairs);
}

} // namespace

void dlgSettings(platform::WindowHandle owner, DataApplication& settings, const std::string& file,
                 std::string (*programFor)(const std::string& extension)) {
    Opening opening{settings, programFor};
    std::deque<SettingsPage> pages;
    platform::PropertySheet sheet;
    sheet.name = "IDD_KDL0501_CONFIG";
    sheet.title = settings.getNameJpn() + " -基本設定-";
    for (const PageRows& rows : settingPages)
        sheet.pages.push_back(pages.emplace_back(rows, opening).entry());
    const int result = platform::runPropertySheet(owner, sheet);
    if (opening.applied && save(owner, settings, file) && result == platform::IDOK) tellSaved(owner);
}
