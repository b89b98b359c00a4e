#pragma once
// The two pages of the session wizard that show its stages: which there are, and their songs.

#include "editors/session_draft.h"
#include "foundation/dialog.h"
#include "foundation/views/view_part.h"

class StageListPage : public zelkova::SheetPage {
protected:
    StageListPage(std::string name, SessionDraft& draft, int idList, std::string menu)
        : SheetPage(std::move(name)), draft_(draft), idList_(idList), menu_(std::move(menu)) {}

    void open() override { list().makeColumns(); }
    bool onMessage(const platform::Message& message) override;
    bool onSheet(platform::SheetCode code) override;

    // What the page offers for the selected row, -1 for none, and on the sheet's buttons.
    virtual void follow(int selected) = 0;
    // What a double click stands for.
    virtual void editSelected() = 0;

    SessionDraft& draft() const { return draft_; }
    ViewPart list() const { return ViewPart(platform::getItem(window(), idList_)); }
    int selected() const { return list().getSelectedItem(); }
    DataSession& stage(int row) const { return draft_.stages[static_cast<std::size_t>(row)]; }
    // Controls and entries of the list's menu have the same numbers.
    void enableCommand(int id, bool enabled) const;

private:
    SessionDraft& draft_;
    const int idList_;
    const std::string menu_;
};

// Page 2: stages are added, changed, deleted and put in order.
class StagesPage : public StageListPage {
public:
    explicit StagesPage(SessionDraft& draft);

private:
    bool onCommand(int id) override;
    void follow(int selected) override;
    void editSelected() override;
    void add();
    void remove();
    void move(int by);
};

// Page 3: each stage gets its songs.
class SongsPage : public StageListPage {
public:
    explicit SongsPage(SessionDraft& draft);

private:
    void open() override;
    bool onCommand(int id) override;
    void follow(int selected) override;
    void editSelected() override;
};
