#include "documents/application_form.h"

#include <cstdio>

#include <xercesc/dom/DOM.hpp>

#include "foundation/text.h"

using namespace xercesc;

namespace {

constexpr int picturesInRow = 4;
// The last row of pictures up to which an empty paragraph keeps the foot of the page in its place.
constexpr int lastSpacedRow = 4;
constexpr char notKnown[] = "未定";

std::string controlId(int picture) {
    return "control" + zelkova::numberToText(picture);
}

std::string dateText(const zelkova::DateTime& date) {
    return date.toString(zelkova::DateTime::dateOnly);
}

std::string timeText(const zelkova::DateTime& time) {
    char text[32];
    std::snprintf(text, sizeof text, "%02d：%02d", time.getHour(), time.getMinute());
    return text;
}

// A form's cells, found by the styles of row and cell; an empty row style is any row.
struct Cell {
    const char* row;
    const char* style;
    std::string (*text)(const DataUserRegist&);
};

constexpr Cell headCells[] = {
    {"", "表1.B1", [](const DataUserRegist& form) { return form.getSessionName(); }},
    {"", "表1.B2", [](const DataUserRegist& form) { return dateText(form.getDate()); }},
    {"", "表1.D2", [](const DataUserRegist& form) { return timeText(form.getStartTime()); }},
    {"", "表1.F2",
     [](const DataUserRegist& form) {
         return form.getEndTime().getYear() ? timeText(form.getEndTime()) : notKnown;
     }},
    {"表1.3", "表1.B3", [](const DataUserRegist& form) { return form.getPlace(); }},
};

constexpr Cell footCells[] = {
    {"", "表3.B1", [](const DataUserRegist& form) { return form.getOrganizer(); }},
    {"", "表3.B2", [](const DataUserRegist& form) { return form.getDelegate(); }},
    {"", "表3.B3", [](const DataUserRegist& form) { return dateText(form.getIssueDate()); }},
};

} // namespace

DOMElement* ApplicationFormWriter::append(DOMNode* parent, const char* name,
                                          const Attributes& attributes) const {
    DOMElement* element = createElement(name);
    for (const auto& [attribute, value] : attributes)
        setAttribute(element, attribute, value);
    appendNode(parent, element);
    return element;
}

// The button's value is what a form that is sent would hold.
void ApplicationFormWriter::addRadioButton(DOMElement* form, int index, const std::string& name) const {
    DOMElement* properties =
        append(append(form, "form:radio",
                      {{"form:name", "dsp"},
                       {"form:control-implementation", "ooo:com.sun.star.form.component.RadioButton"},
                       {"form:id", controlId(index)},
                       {"form:label", name},
                       {"form:tab-index", zelkova::numberToText(index)},
                       {"form:visual-effect", "flat"},
                       {"form:image-position", "center"},
                       {"xml:id", controlId(index)}}), // what form:id is called since OpenDocument 1.2
               "form:properties", {});
    const std::pair<const char*, std::string> values[] = {
        {"DefaultControl", "com.sun.star.form.control.RadioButton"}, {"SecondaryRefValue", name}};
    for (const auto& [property, value] : values)
        append(properties, "form:property",
               {{"form:property-name", property},
                {"office:value-type", "string"},
                {"office:string-value", value}});
}

// What stands left and right of all the picture rows.
void ApplicationFormWriter::addSideCell(DOMElement* row, int rows, const SideCell& side) const {
    DOMElement* cell = append(row, "table:table-cell", {{"table:style-name", side.cellStyle}});
    if (rows > 1) setAttribute(cell, "table:number-rows-spanned", zelkova::numberToText(rows));
    if (side.typed) setAttribute(cell, "office:value-type", "string");
    DOMElement* paragraph = append(cell, "text:p", {{"text:style-name", side.paragraphStyle}});
    appendNode(paragraph, createTextNode(side.text));
}

void ApplicationFormWriter::addPlace(DOMElement* row, int index, bool hasPicture) const {
    DOMElement* cell = append(row, "table:table-cell",
                              {{"table:style-name", "表2.C4"},
                               {"table:number-columns-spanned", "2"},
                               {"office:value-type", "string"}});
    DOMElement* paragraph = append(cell, "text:p", {{"text:style-name", "P12"}});
    if (hasPicture)
        append(paragraph, "draw:control",
               {{"text:anchor-type", "as-char"},
                {"draw:z-index", "19"},
                {"draw:name", "dsp" + zelkova::numberToText(index)},
                {"draw:style-name", "gr5"},
                {"draw:text-style-name", "P22"},
                {"svg:width", "2.5cm"},
                {"svg:height", "0.5cm"},
                {"draw:control", controlId(index)}});
    append(row, "table:covered-table-cell", {});
}

void ApplicationFormWriter::addPictureRows(DOMElement* table, DOMElement* before, int pictures) const {
    constexpr SideCell left{"表2.A10", true, "P14", "表示画像"}, right{"表2.H5", false, "P10", "どれか１つ"};
    const int rows = (pictures + picturesInRow - 1) / picturesInRow;
    for (int row = 0; row < rows; ++row) {
        DOMElement* element = createElement("table:table-row");
        const auto addSide = [&](const SideCell& side) {
            if (row == 0)
                addSideCell(element, rows, side);
            else
                append(element, "table:covered-table-cell", {});
        };
        addSide(left);
        for (int i = row * picturesInRow; i < (row + 1) * picturesInRow; ++i)
            addPlace(element, i, i < pictures);
        addSide(right);
        table->insertBefore(element, before);
    }
}

void ApplicationFormWriter::addSpacing(DOMElement* table, int pictures) const {
    for (int row = (pictures - 1) / picturesInRow; row <= lastSpacedRow; ++row) {
        DOMElement* paragraph = createElement("text:p");
        setAttribute(paragraph, "text:style-name", "P2");
        table->getParentNode()->insertBefore(paragraph, table);
    }
}

const DOMElement* ApplicationFormWriter::requireCell(const DOMElement* table, std::string_view rowStyle,
                                                     std::string_view style) {
    for (const DOMElement* row : childrenNamed(table, "table:table-row")) {
        if (!rowStyle.empty() && attributeOf(row, "table:style-name") != rowStyle) continue;
        for (const DOMElement* cell : childrenNamed(row, "table:table-cell"))
            if (attributeOf(cell, "table:style-name") == style) return cell;
    }
    if (table) lacks(table, "table:table-cell[" + std::string(style) + "]");
    return nullptr;
}

std::optional<DocumentFault> ApplicationFormWriter::write(const std::string& outputPath,
                                                          const DataUserRegist& regist) {
    const zelkova::DataPairsList& pictures = regist.getImageList();
    DOMElement* text = openText();
    DOMElement* form = requireChild(requireChild(text, "office:forms"), "form:form");
    DOMElement* entries = requireChild(text, "table:table", "table:name", "表2");
    DOMElement* entryAfter = requireChild(entries, "table:table-row", "table:style-name", "表2.12");
    DOMElement* head = requireChild(text, "table:table", "table:name", "表1");
    DOMElement* foot = requireChild(text, "table:table", "table:name", "表3");
    for (const Cell& cell : headCells)
        setText(requireChild(requireCell(head, cell.row, cell.style), "text:p"), cell.text(regist));
    for (const Cell& cell : footCells)
        setText(requireChild(requireCell(foot, cell.row, cell.style), "text:p"), cell.text(regist));
    if (form && entryAfter && foot) {
        for (int i = 0; i < pictures.size(); ++i)
            addRadioButton(form, i, pictures.get(i).getValue());
        addPictureRows(entries, entryAfter, pictures.size());
        addSpacing(foot, pictures.size());
    }
    return finish(outputPath);
}
