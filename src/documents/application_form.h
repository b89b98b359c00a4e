#pragma once
// The application form as an OpenDocument text file. Beside filled cells it has rows that are built: one
// radio button for each picture name, four to a row, all of one group.

#include <initializer_list>
#include <utility>

#include "documents/data_user_regist.h"
#include "documents/odf_writer.h"

class ApplicationFormWriter : public OdfWriter {
public:
    // Makes or replaces the .odt. A fault leaves an earlier one as it was.
    std::optional<DocumentFault> write(const std::string& outputPath, const DataUserRegist& regist);

private:
    struct SideCell {
        const char* cellStyle;
        bool typed; // its value has a type
        const char* paragraphStyle;
        const char* text;
    };
    using Attributes = std::initializer_list<std::pair<const char*, std::string>>;

    const xercesc::DOMElement* requireCell(const xercesc::DOMElement* table, std::string_view rowStyle,
                                           std::string_view style);
    xercesc::DOMElement* append(xercesc::DOMNode* parent, const char* name,
                                const Attributes& attributes) const;
    void addRadioButton(xercesc::DOMElement* form, int index, const std::string& name) const;
    void addPictureRows(xercesc::DOMElement* table, xercesc::DOMElement* before, int pictures) const;
    void addSideCell(xercesc::DOMElement* row, int rows, const SideCell& side) const;
    void addPlace(xercesc::DOMElement* row, int index, bool hasPicture) const;
    void addSpacing(xercesc::DOMElement* table, int pictures) const;
};
