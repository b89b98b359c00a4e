#pragma once
// What the dialogs that make documents have in common: fields of text, and files beside the program.

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "data/data_application.h"
#include "documents/document_fault.h"
#include "foundation/dialog.h"

class DocumentDialog : public zelkova::Dialog {
protected:
    // `modulePath` is the program's folder, with a separator at its end. Both outlive the dialog.
    DocumentDialog(std::string name, const DataApplication& settings, const std::string& modulePath)
        : Dialog(std::move(name)), settings_(settings), modulePath_(modulePath) {}

    const DataApplication& settings() const { return settings_; }
    std::string text(int id) const;
    void setTexts(const std::vector<std::pair<int, std::string>>& texts) const;
    // Absolute, of a path that is relative to the program's folder.
    std::string path(const char* relative) const;

    // Tells the host of the fault, if there is one. Whether the document, or an earlier one, is to be opened.
    bool report(const std::optional<DocumentFault>& fault, const std::string& document) const;

    // Relative to the program's folder.
    struct OdfPaths {
        const char* master;
        const char* workDirectory;
        const char* document;
    };
    // Makes the document of what the fields tell, and opens it.
    template <class Writer, class Record>
    void makeOdf(const OdfPaths& paths, const Record& record) const {
        const std::string document = path(paths.document);
        Writer writer;
        writer.setSourcePath(path(paths.master));
        writer.setWorkDirectory(path(paths.workDirectory));
        if (report(writer.write(document, record), document)) openDocument(document);
    }

private:
    void openDocument(const std::string& document) const;

    const DataApplication& settings_;
    const std::string& modulePath_;
};
