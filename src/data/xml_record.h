#pragma once
// Records to and from the elements of a document, along their tables.

#include <string>
#include <string_view>

#include "data/record.h"
#include "data/xml_dom.h"

namespace xml {

// One step of a field's place: "name", "name[2]" (the one whose attribute userId says so) or "@name".
struct Place {
    explicit Place(std::string_view element);
    std::string_view parent, name, userId; // "a/b/@c" has the parent "a/b"
    bool attribute = false;
};

// The text at a field's place below the element; of a "name[2]", which is a form for writing alone, the first
// of that name. False when an element on the way is missing; a missing attribute of an element that is there
// is "".
bool readPlace(const xercesc::DOMElement* from, std::string_view element, std::string& text);
// Appends what the place needs and is not there yet; text goes into a new element.
void writePlace(xercesc::DOMElement* into, std::string_view element, std::string_view text);

// A field whose element is missing keeps its value.
template <typename Record>
void readFields(const xercesc::DOMElement* from, Record& into) {
    std::string text;
    for (const record::Field<Record>& field : Record::fields())
        if (*field.element && readPlace(from, field.element, text)) record::setText(into, field, text);
}

template <typename Record>
void writeFields(xercesc::DOMElement* into, const Record& from) {
    for (const record::Field<Record>* field : record::inFileOrder(Record::fields()))
        writePlace(into, field->element, record::textOf(from, *field));
}

} // namespace xml
