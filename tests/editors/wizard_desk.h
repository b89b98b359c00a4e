#pragma once
// The session wizard, with a user's hands in it.

#include "data/session_plan.h"
#include "editors/catalogue_desk.h"
#include "editors/dialog_ids.h"
#include "editors/session_wizard.h"
#include "platform/property_sheet.h"
#include "support/stage.h"

namespace editors_tests {

using namespace session_wizard;
using test_support::stage;

enum : int { ok, yes = 0, no = 1 }; // buttons of the message box
enum : int { replaceFile = 3000014, loseStages = 3000015, unreadable = 3000012, notWritten = 4000018 };
enum : int { nameColumn = 1, markColumn = 10 };

// Two songs stand in the catalogue, and the settings name the folder as that of the session files.
class SessionWizard : public CatalogueDesk {
protected:
    SessionWizard() {
        host().dataApplication.setSessionFileName(folder.path().string());
        addSong(file("song.mp3"));
        addSong(file("song.mp3"));
    }

    void run(const std::function<void()>& act) {
        script.expectDialog(form, [&](Form sheet) {
            dialog = sheet;
            act();
        });
        dlgSessionWizard({});
        EXPECT_THAT(script.faults(), testing::IsEmpty());
    }

    std::string write(const std::string& name, const std::vector<DataSession>& stages) {
        const std::string path = folder.file(name);
        EXPECT_TRUE(writePlan(accesser, path,
                              {.name = "古い", .sessionVoice = "s.wav", .mcVoice = "m.wav", .stages = stages},
                              {2020, 1, 0, 2, 0, 0, 0, 0}));
        return path;
    }
    SessionPlan read(const std::string& path) {
        auto plan = readPlan(accesser, path);
        EXPECT_TRUE(plan) << accesser.loadError();
        return plan.value_or(SessionPlan());
    }

    Form page() const { return platform::shownPage(dialog); }
    std::string title() const { return page().title(); }
    std::vector<std::string> names() const { return page().column(idStages, nameColumn); }
    std::vector<std::string> marks(int list) const { return page().column(list, markColumn); }
    void next() const { dialog.click(platform::ID_WIZNEXT); }
    void back() const { dialog.click(platform::ID_WIZBACK); }
    void finish() const { dialog.click(platform::ID_WIZFINISH); }
    void cancel() const { dialog.click(platform::IDCANCEL); }
    // What the wizard's buttons offer, as letters.
    std::string offered() const {
        std::string letters;
        for (const auto& [letter, id] :
             {std::pair('B', +platform::ID_WIZBACK), std::pair('N', +platform::ID_WIZNEXT),
              std::pair('F', +platform::ID_WIZFINISH), std::pair('C', +platform::IDCANCEL)})
            if (dialog.live(id) && dialog.visible(id)) letters += letter;
        return letters;
    }

    // The first page, and on to the second.
    void begin(const std::string& name, const std::string& path) const {
        page().type(idName, name);
        platform::setText(page()[idFile], path);
        next();
    }
    void browse(const std::string& path, bool exists = false) {
        script.expectFileDialog(path);
        if (exists) script.expectMessageBox(platform::Answer::Yes);
        page().click(idBrowse);
    }
    void expectBox(int code, int button = ok) { test_support::expectMessage(script, code, button); }
    void expectStage(const std::string& name, const std::string& questNum) {
        script.expectDialog(part_detail::form, [=](Form stage) {
            stage.type(part_detail::idName, name);
            stage.type(part_detail::idQuestNum, questNum);
            stage.type(part_detail::idScore, "10");
            stage.select(part_detail::idRange, rangeStart);
            stage.click(part_detail::idOk);
        });
    }
    void add(const std::string& name, const std::string& questNum) {
        expectStage(name, questNum);
        page().click(idAdd);
    }
    void expectSongs(const std::function<void(Form)>& act) {
        script.expectDialog(resource_detail::form, act);
    }
    // On page 3: these buttons of the song dialog, for the stage in that row.
    void assign(int row, const std::vector<int>& buttons) {
        expectSongs([buttons](Form songs) {
            for (const int id : buttons)
                songs.click(id);
        });
        page().select(idSongs, row);
        page().click(idAssign);
    }
    void fill(int row, int way = resource_detail::idOk) {
        assign(row, {resource_detail::idShowAll, resource_detail::idFill, way});
    }

    AccesserSession accesser;
};

} // namespace editors_tests
